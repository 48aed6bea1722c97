#include "resources/messages.h"

#include <array>

#include "resources/resource.h"

namespace tarvik {
namespace {

constexpr const wchar_t* kNone = nullptr;

// In the order of the enumeration. The numbers are those of the language files and never change; a free
// number between two blocks is a number that was never given out.
constexpr std::array<MessageRow, static_cast<size_t>(Message::Count)> kRows{{
    // Captions of the main window
    {0, L"Tarvik - Obry Ethernet診断", L"Tarvik - Ethernet diagnosis for Obry"},
    {1, L"ﾍﾙﾌﾟ(&H)", L"&Help"},
    {2, L"Tarvikについて(&A)...", L"&About Tarvik..."},
    {3, L"Ping(&1)", L"Ping(&1)"},
    {4, L"NEXAL2(&2)", L"NEXAL2(&2)"},
    {5, L"K7 Api(&3)", L"K7 Api(&3)"},
    {6, L"K7 Svc(&4)", L"K7 Svc(&4)"},
    {7, L"Ftp(&5)", L"Ftp(&5)"},
    {8, L"IPｱﾄﾞﾚｽ/ﾎｽﾄ名(&N):", L"IP address or host &name:"},
    {9, L"Ping回数(&C):", L"Ping &count:"},
    {10, L"&Ping", L"&Ping"},
    {11, L"全ﾃｽﾄ(&A)", L"&All Test"},
    {12, L"ﾀｲﾑｱｳﾄ(秒)(&O):", L"Time-&out (s):"},
    {13, L"TCPﾎﾟｰﾄ番号(&R):", L"TCP po&rt:"},
    {14, L"ｱｸｾｽｺｰﾄﾞ(&A)", L"&Access Code"},
    {15, L"NC情報取得(&G)", L"&Get CNC Info."},
    {16, L"ﾃｽﾄ回数(&C):", L"Test &count:"},
    {17, L"&Test", L"&Test"},
    {18, L"K7 Serverの状態:", L"K7 Server status:"},
    {19, L"K7 Server UDPﾎﾟｰﾄ番号:", L"K7 Server UDP port:"},
    {20, L"開始(&A)", L"St&art"},
    {21, L"停止(&O)", L"St&op"},
    {22, L"ﾃﾞﾊﾞｯｸﾞ(&D)", L"&Debug"},
    {23, L"ﾕｰｻﾞ名(&U):", L"&User name:"},
    {24, L"ﾊﾟｽﾜｰﾄﾞ(&W):", L"Pass&word:"},
    {25, L"接続ﾃｽﾄ(&C)", L"&Connect Test"},
    {26, L"全ﾃｽﾄ(&A)", L"&All Test"},
    {27, L"停止(&S)", L"&Stop"},
    {28, L"PMC(&P)", L"&PMC"},
    {29, L"ｺｰﾄﾞ(数字8桁まで):", L"Code (up to 8 digits):"},
    {30, L"結果(&E):", L"R&esult:"},
    // About box
    {31, L"ｼｽﾃﾑ情報(&S)...", L"&System Info..."},
    // Reachability check
    {101, kNone, L"Cannot resolve specified host name to IP address"},
    {102, L"ｻﾌﾞﾈｯﾄﾏｽｸが必要ですが設定されていません", L"Subnet mask is not specified"},
    {103, L"通信相手は同じﾈｯﾄﾜｰｸ上にありません", L"Target is not exist on the same network"},
    {104, L"ｹﾞｰﾄｳｪｲの設定を確認します", L"Start Gateway check..."},
    {105, L"このPCのIPｱﾄﾞﾚｽ情報を取得できません", L"Informational acquisition Failure"},
    {106, L"ｹﾞｰﾄｳｪｲが必要ですが設定されていません", L"Default Gateway is required but not specified"},
    {107, L"ｻﾌﾞﾈｯﾄﾏｽｸとｹﾞｰﾄｳｪｲの設定が合っていません", L"Subnetmask Mismatch"},
    {108, L"このPCからｹﾞｰﾄｳｪｲにｱｸｾｽできません", L"Cannot access to the Gateway from this PC."},
    {109, L"ｹﾞｰﾄｳｪｲにPingできません", L"Cannot ping to the Gateway"},
    {110, L"ｹﾞｰﾄｳｪｲのIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください",
     L"Please check Gateway's address, cable and power"},
    {111, L"通信先にPingできません", L"Cannot ping to the Target"},
    {115, L"通信先のIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください", L"Please check Target's address, cable and power"},
    // CNC library
    {112, L"ｵﾌﾟｼｮﾝ確認ｴﾗｰ=", L"Option check error="},
    {113, kNone, L"No option (Extended drivers and libraries function)"},
    {114, L"NCｼｽﾃﾑ情報取得ｴﾗｰ=", L"Get System Information error="},
    {116, L"このコマンドを実行するためには、'Stop' ボタンでK7サーバを停止させる必要があります。",
     L"Before execute this command, you have to terminate the K7 Service by 'Stop' button."},
    {125, L" 拡張ﾄﾞﾗｲﾊﾞ･ﾗｲﾌﾞﾗﾘ", L" Extended drivers and libraries"},
    {126, L" 外部ﾒｯｾｰｼﾞ", L" External message"},
    {127, L" ﾌﾟﾛｸﾞﾗﾑ転送", L" Program transfer"},
    {128, L" PMCﾃﾞｰﾀ", L" PMC data"},
    {129, L" 位置ﾃﾞｰﾀ", L" Position data"},
    {130, L" 工具ﾃﾞｰﾀ", L" Tool data"},
    {131, L" 波形診断", L" Waveform diagnosis"},
    {132, L" (なし)", L" (None)"},
    {133, L"範囲内の整数を入力してください。", L"A whole number within the range is required."},
    {134, L"入力値: ", L"Typed: "},
    {136, L"PMC読取長さエラー 最大=", L"PMC read length error, maximum="},
    {137, L"PMCｱﾄﾞﾚｽ", L"PMC Addr."},
    {138, L"開始番号", L"StartNo"},
    {139, L"ﾃﾞｰﾀ長", L"Length"},
    {140, L"ﾃｽﾄ回数", L"Test"},
    {141, L"読取周期", L"Read Int."},
    {142, L"読取 PMCﾃﾞｰﾀ", L"Result Data"},
    {143, L"読取結果 (OK/ERR)", L"Result (OK/ERR)"},
    {144, L"読取(&R)", L"Read(&R)"},
    {145, L"停止(&S)", L"Stop(&S)"},
    {146, L"終了(&X)", L"Close(&X)"},
    {150, L"CNCがｱｸｾｽｺｰﾄﾞを受け付けませんでした。", L"The CNC did not accept the access code."},
    {151, L"CNCに設定されたｱｸｾｽｺｰﾄﾞを確認し、入力し直してください。",
     L"Check the access code that is set in the CNC and type it again."},
    {152, L"ｱｸｾｽｺｰﾄﾞを入力してください (0以外、数字8桁まで)。",
     L"Type the access code (up to 8 digits, not 0)."},
    {153, L"ｺﾏﾝﾄﾞﾗｲﾝのｱｸｾｽｺｰﾄﾞを復号できません。", L"The access code on the command line cannot be decoded."},
    {154, L"ｺﾏﾝﾄﾞﾗｲﾝのFTPﾊﾟｽﾜｰﾄﾞを復号できません。",
     L"The FTP password on the command line cannot be decoded."},
    // K7 service
    {160, L"すでに起動しています", L"Already running"},
    {161, L"K7サービスを再起動中です...", L"Starting K7 Service ..."},
    {162, L"K7サービスを起動しました。", L"The K7 Service Started."},
    {163, L"K7サービスを起動できませんでした。", L"Cannot start K7 Service."},
    {164, L"すでに停止しています", L"Already stopped"},
    {165,
     L"このコマンドを実行すると、NEXAL2/Ethernetで接続しているすべてのNCは、電源OFFと認識されます。\r\n"
     L"実行しますか？",
     L"When this command is executed, all of CNC which connected by NEXAL2/Ethernet are recognized as power "
     L"OFF.\r\nContinue ?"},
    {166,
     L"K7サービスを停止しました。この画面を終了する前に、必ず 'Start' "
     L"ボタンでK7サービスを再起動してください。",
     L"The K7 Service stopped. You have to re-start the K7 Service by 'Start' button before close this "
     L"screen."},
    {167, L"K7サービスを停止できませんでした。", L"Cannot stop K7 Service"},
}};

// A row too few would leave a null English text at the end.
static_assert(kRows.back().english != nullptr);

}  // namespace

const MessageRow& RowOf(Message message) { return kRows[static_cast<size_t>(message)]; }

std::optional<std::wstring> Texts::Get(Message message) const {
  const MessageRow& row = RowOf(message);
  if (mode_ == kLanguageFile) return resource_.LoadString(row.id);
  const wchar_t* const text = mode_ == kBuiltInJapanese ? row.japanese : row.english;
  if (text == nullptr) return std::nullopt;
  return text;
}

}  // namespace tarvik
