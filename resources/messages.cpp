#include "resources/messages.h"

#include <array>

#include "resources/resource.h"

namespace tarvik {
namespace {

constexpr const wchar_t* kNone = nullptr;

// In the order of the enumeration. The numbers are those of the language files and never change; the missing
// ones were never used.
constexpr std::array<MessageRow, static_cast<size_t>(Message::Count)> kRows{{
    // Captions of the main window
    {Message::WindowCaption, 0, L"Tarvik - Obry Ethernet診断", L"Tarvik - Ethernet diagnosis for Obry"},
    {Message::HelpMenu, 1, L"ﾍﾙﾌﾟ(&H)", L"&Help"},
    {Message::AboutCommand, 2, L"ﾊﾞｰｼﾞｮﾝ情報(&A)", L"&About Tarvik"},
    {Message::PingPage, 3, L"Ping(&1)", L"Ping(&1)"},
    {Message::NexalPage, 4, L"NEXAL2(&2)", L"NEXAL2(&2)"},
    {Message::K7ApiPage, 5, L"K7 Api(&3)", L"K7 Api(&3)"},
    {Message::K7SvcPage, 6, L"K7 Svc(&4)", L"K7 Svc(&4)"},
    {Message::FtpPage, 7, L"Ftp(&5)", L"Ftp(&5)"},
    {Message::AddressLabel, 8, L"IPｱﾄﾞﾚｽ/ﾎｽﾄ名(&N):", L"IP address or host &name:"},
    {Message::PingCountLabel, 9, L"Ping回数(&C):", L"Ping &count:"},
    {Message::PingButton, 10, L"&Ping", L"&Ping"},
    {Message::AllTestButton, 11, L"全ﾃｽﾄ(&A)", L"&All Test"},
    {Message::TimeOutLabel, 12, L"ﾀｲﾑｱｳﾄ(秒)(&O):", L"Time&out (s):"},
    {Message::PortLabel, 13, L"TCPﾎﾟｰﾄ番号(&R):", L"TCP po&rt:"},
    {Message::AccessCodeBox, 14, L"ｱｸｾｽｺｰﾄﾞ(&A)", L"&Access Code"},
    {Message::GetInfoButton, 15, L"NC情報取得(&G)", L"&Get CNC Info."},
    {Message::TestCountLabel, 16, L"ﾃｽﾄ回数(&C):", L"Test &count:"},
    {Message::K7ApiButton, 17, L"&Test", L"&Test"},
    {Message::StatusLabel, 18, L"K7 Serverの状態:", L"K7 Server status:"},
    {Message::UdpPortLabel, 19, L"K7 Server UDPﾎﾟｰﾄ番号:", L"K7 Server UDP port:"},
    {Message::StartButton, 20, L"開始(&A)", L"St&art"},
    {Message::StopServiceButton, 21, L"停止(&O)", L"St&op"},
    {Message::DebugButton, 22, L"ﾃﾞﾊﾞｯｸﾞ(&D)", L"&Debug"},
    {Message::UserLabel, 23, L"ﾕｰｻﾞ名(&U):", L"&User name:"},
    {Message::PasswordLabel, 24, L"ﾊﾟｽﾜｰﾄﾞ(&W):", L"Pass&word:"},
    {Message::FtpConnectButton, 25, L"接続ﾃｽﾄ(&C)", L"&Connect Test"},
    {Message::AllFtpTestButton, 26, L"全ﾃｽﾄ(&A)", L"&All Test"},
    {Message::StopButton, 27, L"停止(&S)", L"&Stop"},
    {Message::PmcCommand, 28, L"PMC(&P)", L"&PMC"},
    {Message::AccessCodeLabel, 29, L"ｺｰﾄﾞ(数字8桁まで):", L"Code (up to 8 digits):"},
    {Message::ResultLabel, 30, L"結果(&E):", L"R&esult:"},
    // About box
    {Message::SystemInfoButton, 31, L"ｼｽﾃﾑ情報(&S)...", L"&System Info..."},
    // Tool tips
    {Message::K7StatusTip, 32, L"ｸﾘｯｸすると状態を更新します", L"Click to refresh the status"},
    // Reachability check
    {Message::CannotResolve, 101, kNone, L"Cannot resolve specified host name to IP address"},
    {Message::NoSubnetMask, 102, L"ｻﾌﾞﾈｯﾄﾏｽｸが必要ですが設定されていません", L"Subnet mask is not specified"},
    {Message::NotSameNetwork, 103, L"通信相手は同じﾈｯﾄﾜｰｸ上にありません",
     L"Target is not exist on the same network"},
    {Message::StartGatewayCheck, 104, L"ｹﾞｰﾄｳｪｲの設定を確認します", L"Start Gateway check..."},
    {Message::NoConfiguration, 105, L"このPCのIPｱﾄﾞﾚｽ情報を取得できません",
     L"Informational acquisition Failure"},
    {Message::NoGateway, 106, L"ｹﾞｰﾄｳｪｲが必要ですが設定されていません",
     L"Default Gateway is required but not specified"},
    {Message::SubnetMismatch, 107, L"ｻﾌﾞﾈｯﾄﾏｽｸとｹﾞｰﾄｳｪｲの設定が合っていません", L"Subnetmask Mismatch"},
    {Message::CannotAccessGateway, 108, L"このPCからｹﾞｰﾄｳｪｲにｱｸｾｽできません",
     L"Cannot access to the Gateway from this PC."},
    {Message::CannotPingGateway, 109, L"ｹﾞｰﾄｳｪｲにPingできません", L"Cannot ping to the Gateway"},
    {Message::CheckGateway, 110, L"ｹﾞｰﾄｳｪｲのIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください",
     L"Please check Gateway's address, cable and power"},
    {Message::CannotPingTarget, 111, L"通信先にPingできません", L"Cannot ping to the Target"},
    {Message::CheckTarget, 115, L"通信先のIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください",
     L"Please check Target's address, cable and power"},
    // CNC library
    {Message::OptionCheckError, 112, L"ｵﾌﾟｼｮﾝ確認ｴﾗｰ=", L"Option check error="},
    {Message::NoOption, 113, kNone, L"No option (Extended drivers and libraries function)"},
    {Message::SystemInfoError, 114, L"NCｼｽﾃﾑ情報取得ｴﾗｰ=", L"Get System Information error="},
    {Message::K7MustBeStopped, 116,
     L"このコマンドを実行するためには、'Stop' ボタンでK7サーバを停止させる必要があります。",
     L"Before execute this command, you have to terminate the K7 Service by 'Stop' button."},
    {Message::Option0, 125, L" 拡張ﾄﾞﾗｲﾊﾞ･ﾗｲﾌﾞﾗﾘ", L" Extended drivers and libraries"},
    {Message::Option1, 126, L" 外部ﾒｯｾｰｼﾞ", L" External message"},
    {Message::Option2, 127, L" ﾌﾟﾛｸﾞﾗﾑ転送", L" Program transfer"},
    {Message::Option3, 128, L" PMCﾃﾞｰﾀ", L" PMC data"},
    {Message::Option4, 129, L" 位置ﾃﾞｰﾀ", L" Position data"},
    {Message::Option5, 130, L" 工具ﾃﾞｰﾀ", L" Tool data"},
    {Message::Option6, 131, L" 波形診断", L" Waveform diagnosis"},
    {Message::OptionNone, 132, L" (なし)", L" (None)"},
    {Message::NumberRequired, 133, L"範囲内の整数を入力してください。",
     L"Enter a whole number in this range:"},
    {Message::NumberTyped, 134, L"入力値: ", L"You typed: "},
    {Message::NumberRangeTo, 135, L"～", L" ... "},
    {Message::PmcLengthError, 136, L"PMC読取長さエラー 最大=", L"PMC read length error, maximum="},
    {Message::PmcAddressLabel, 137, L"PMCｱﾄﾞﾚｽ", L"PMC Addr."},
    {Message::PmcStartLabel, 138, L"開始番号", L"StartNo"},
    {Message::PmcLengthLabel, 139, L"ﾃﾞｰﾀ長", L"Length"},
    {Message::PmcCountLabel, 140, L"ﾃｽﾄ回数", L"Test"},
    {Message::PmcIntervalLabel, 141, L"読取周期", L"Read Int."},
    {Message::PmcDataLabel, 142, L"読取 PMCﾃﾞｰﾀ", L"Result Data"},
    {Message::PmcResultLabel, 143, L"読取結果 (OK/ERR)", L"Result (OK/ERR)"},
    {Message::PmcReadButton, 144, L"読取(&R)", L"Read(&R)"},
    {Message::PmcStopButton, 145, L"停止(&S)", L"Stop(&S)"},
    {Message::PmcCloseButton, 146, L"終了(&X)", L"Close(&X)"},
    {Message::NotAWholeNumber, 147, L"は整数ではありません。", L" is not a whole number."},
    {Message::LibraryCannotBeLoaded, 148, L"を読み込めません。", L" cannot be loaded."},
    {Message::LibraryDoesNotExport, 149, L"は%1をエクスポートしていません。", L" does not export %1."},
    {Message::AccessCodeWrong, 150, L"NCがｱｸｾｽｺｰﾄﾞを受け付けませんでした。",
     L"The CNC did not accept the access code."},
    {Message::AccessCodeWrongHint, 151, L"NCに設定されたｱｸｾｽｺｰﾄﾞを確認し、入力し直してください。",
     L"Check the access code that is set in the CNC and type it again."},
    {Message::AccessCodeMissing, 152, L"ｱｸｾｽｺｰﾄﾞを入力してください (0以外、数字8桁まで)。",
     L"Type the access code (up to 8 digits, not 0)."},
    {Message::AccessCodeUndecodable, 153, L"ｺﾏﾝﾄﾞﾗｲﾝのｱｸｾｽｺｰﾄﾞを復号できません。",
     L"The access code on the command line cannot be decoded."},
    {Message::PasswordUndecodable, 154, L"ｺﾏﾝﾄﾞﾗｲﾝのFTPﾊﾟｽﾜｰﾄﾞを復号できません。",
     L"The FTP password on the command line cannot be decoded."},
    {Message::TestIsRunning, 155, L"ﾃｽﾄを実行中です。", L"A test is running."},
    {Message::ModuleNotFound, 156, L"が見つかりません。非表示: ", L" not found: hides "},
    // K7 service
    {Message::AlreadyRunning, 160, L"すでに起動しています", L"Already running"},
    {Message::StartingService, 161, L"K7サービスを再起動中です...", L"Starting K7 Service ..."},
    {Message::ServiceStarted, 162, L"K7サービスを起動しました。", L"The K7 Service Started."},
    {Message::CannotStartService, 163, L"K7サービスを起動できませんでした。", L"Cannot start K7 Service."},
    {Message::AlreadyStopped, 164, L"すでに停止しています", L"Already stopped"},
    {Message::ConfirmStop, 165,
     L"このコマンドを実行すると、NEXAL2/Ethernetで接続しているすべてのNCは、電源OFFと認識されます。\r\n"
     L"実行しますか？",
     L"When this command is executed, all of CNC which connected by NEXAL2/Ethernet are recognized as power "
     L"OFF.\r\nContinue ?"},
    {Message::ServiceStopped, 166,
     L"K7サービスを停止しました。この画面を終了する前に、必ず 'Start' "
     L"ボタンでK7サービスを再起動してください。",
     L"The K7 Service stopped. You have to re-start the K7 Service by 'Start' button before close this "
     L"screen."},
    {Message::CannotStopService, 167, L"K7サービスを停止できませんでした。", L"Cannot stop K7 Service"},
}};

constexpr bool EachRowIsInItsPlace() {
  for (size_t i = 0; i < kRows.size(); ++i)
    if (kRows[i].message != static_cast<Message>(i) || kRows[i].english == nullptr) return false;
  return true;
}
static_assert(EachRowIsInItsPlace());

const wchar_t* BuiltIn(const MessageRow& row, LanguageMode mode) {
  return mode == kBuiltInJapanese ? row.japanese : row.english;
}

}  // namespace

const MessageRow& RowOf(Message message) { return kRows[static_cast<size_t>(message)]; }

std::optional<std::wstring> Texts::Get(Message message) const {
  const MessageRow& row = RowOf(message);
  if (mode_ == kLanguageFile) return resource_.LoadString(row.id);
  const wchar_t* const text = BuiltIn(row, mode_);
  if (text == nullptr) return std::nullopt;
  return text;
}

std::wstring Texts::GetOrBuiltIn(Message message) const {
  if (mode_ == kLanguageFile) return FromFile(message);
  return GetOrEmpty(message);
}

std::wstring Texts::FromFile(Message message) const {
  const MessageRow& row = RowOf(message);
  if (auto text = resource_.FindString(row.id)) return *text;
  const wchar_t* const text = BuiltIn(row, mode_);
  return text == nullptr ? std::wstring() : text;
}

}  // namespace tarvik
