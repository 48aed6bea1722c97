#include "k7/k7_error_text.h"

namespace tarvik {
namespace {

struct K7ErrorRow {
  uint32_t code;
  const wchar_t* english;
  const wchar_t* japanese;
};

// The wordings differ on purpose: some Japanese texts say "service" where the English ones say "server". They
// are not in the language files; that language mode shows the English ones.
constexpr K7ErrorRow kK7Errors[] = {
    {0x00000000, L"No Error", L"エラー無し"},
    {0x1009F000, L"Invalid handle", L"ハンドル値が不正です"},
    {0x1009F001, L"Memory shortage", L"メモリ不足です"},
    {0x1009F002, L"No empty handle at all", L"空きハンドルがありません"},
    {0x1009F003, L"Not connected to K7 Server", L"K7 Serverに接続されていません"},
    {0x1009F004, L"The required unit is not recognized by K7 Server",
     L"指定したユニットは K7 Serverに認識されていません"},
    {0x1009F005, L"Required K7 server is unknown", L"指定した K7 Serverは認識（接続）できません"},
    {0x1009F100, L"Connecting service manager failed", L"サービス制御マネージャへの接続に失敗しました"},
    {0x1009F101, L"Cannot connect to K7 Server", L"K7 Serviceへの接続に失敗しました"},
    {0x1009F102, L"K7 server is already running", L"K7 Serviceは既に起動中"},
    {0x1009F103, L"K7 server is not running", L"K7 Serviceは起動していない"},
    {0x1009F104, L"Cannot start K7 server, see SystemError",
     L"K7 Serviceの起動に失敗しました（エラー詳細はSystemErrorを参照）"},
    {0x1009F105, L"Cannot stop K7 server, see SystemError",
     L"K7 Serviceの停止に失敗しました（エラー詳細はSystemErrorを参照）"},
};

}  // namespace

std::wstring K7ErrorText(int32_t code, LanguageMode mode) {
  for (const K7ErrorRow& row : kK7Errors)
    if (row.code == static_cast<uint32_t>(code)) return mode == kBuiltInJapanese ? row.japanese : row.english;
  return {};
}

}  // namespace tarvik
