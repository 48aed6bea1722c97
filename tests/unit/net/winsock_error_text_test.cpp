#include "net/winsock_error_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <limits>

namespace tarvik::test {
namespace {

struct ErrorRow {
  int32_t code;
  const wchar_t* text;
};

// Written out once more: a slip of the keyboard in the program's own table shows.
constexpr ErrorRow kErrorRows[] = {
    {10004, L"呼び出しが取り消された。"},
    {10013, L"指定されたアドレスは、ブロードキャストパケットの送信をサポートしていない。"},
    {10014, L"32ビットインターネットアドレス指定に誤りがあります。"},
    {10022, L"関数の呼び出し順番に誤りがある。"},
    {10024, L"利用可能なファイル番号が存在しない。"},
    {10035, L"このソケットはノンブロッキング型である。"},
    {10036, L"ブロッキング呼び出し進行中。"},
    {10037, L"ノンブロッキング型の処理を処理中。"},
    {10038, L"ソケット以外を指定した。"},
    {10039, L"リモートアドレスが指定されていない。"},
    {10040, L"データがバッファより大きいので切りつめられた。"},
    {10041, L"ソケットは指定されたプロトコルをサポートしていない。"},
    {10042, L"プロトコルのオプションに誤りがある。"},
    {10043, L"指定されたプロトコルはサポートされていない。"},
    {10044, L"指定されたソケットタイプはサポートされていない。"},
    {10045, L"指定されたソケットがサポートしていない操作である。"},
    {10046, L"指定されたアドレスファミリがサポートされていない。"},
    {10047, L"指定されたプロトコルでは、指定されたアドレスファミリがサポートされていない。"},
    {10048, L"指定されたアドレスは使用中。"},
    {10049, L"指定されたアドレスは使用できない。"},
    {10050, L"ネットワークがダウンしている。"},
    {10051, L"リモートホストのネットワークに接続できない。"},
    {10052, L"ネットワークから切断された。"},
    {10053, L"ネットワーク不良で接続が中止された。"},
    {10054, L"リモートホストから切断された。"},
    {10055, L"バッファ領域不足。"},
    {10056, L"ソケットはすでに接続されている。"},
    {10057, L"ソケットが接続されていない。"},
    {10058, L"ソケットがシャットダウンされている。"},
    {10060, L"接続処理タイムアウト。"},
    {10061, L"接続が拒否された。"},
    {10064, L"リモートホストがダウンしている。"},
    {10065, L"ホストへのルートが存在しない。"},
    {10067, L"プロセスが多すぎます。"},
    {10091, L"ネットワークサブシステムに通信するための準備ができていない。"},
    {10092, L"指定されたバージョンがサポートされていない。"},
    {10093, L"WSAStartup関数を呼び出していないか、失敗しています。"},
    {11001, L"ホストが見つからない。"},
    {11002, L"権限があるホストが見つからない。"},
    {11003, L"修復不可能なエラーが発生した。"},
    {11004, L"データレコードの型が要求されていない。"},
};

TEST(WinsockErrorText, Every_code_of_the_table_has_its_sentence) {
  EXPECT_EQ(std::size(kErrorRows), 41u);
  for (const ErrorRow& row : kErrorRows) EXPECT_EQ(WinsockErrorText(row.code), row.text) << row.code;
}

TEST(WinsockErrorText, No_error_has_no_text) { EXPECT_EQ(WinsockErrorText(0), L""); }

TEST(WinsockErrorText, A_code_outside_the_table_is_shown_in_brackets) {
  EXPECT_EQ(WinsockErrorText(10059), L"(10059)");
  EXPECT_EQ(WinsockErrorText(10062), L"(10062)");
  EXPECT_EQ(WinsockErrorText(10063), L"(10063)");
  EXPECT_EQ(WinsockErrorText(10066), L"(10066)");
  EXPECT_EQ(WinsockErrorText(-1), L"(-1)");
  EXPECT_EQ(WinsockErrorText(std::numeric_limits<int32_t>::min()), L"(-2147483648)");
}

TEST(WinsockErrorText, Every_code_of_the_socket_range_but_those_of_the_table_is_shown_in_brackets) {
  for (int32_t code = 10000; code < 11100; ++code) {
    const bool listed = std::any_of(std::begin(kErrorRows), std::end(kErrorRows),
                                    [&](const ErrorRow& row) { return row.code == code; });
    if (!listed) {
      EXPECT_EQ(WinsockErrorText(code), L"(" + std::to_wstring(code) + L")");
    }
  }
}

}  // namespace
}  // namespace tarvik::test
