#include "app/command_line.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvik {
namespace {

class CommandLineTest : public testing::Test {
 protected:
  void Parse(std::wstring_view text) {
    ParseCommandLine(text, values, mask, mode, [this](int32_t language) { languages.push_back(language); });
  }

  CommandLineValues values;
  OptionMask mask;
  LanguageMode mode = kLanguageFile;
  std::vector<int32_t> languages;
};

TEST(CommandLineText, The_program_name_ends_at_the_first_space_or_tab_outside_quotes) {
  EXPECT_EQ(AfterProgramName(L"Tarvik.exe -X 1 host"), L" -X 1 host");
  EXPECT_EQ(AfterProgramName(L"Tarvik.exe\t-X 1"), L"\t-X 1");
  EXPECT_EQ(AfterProgramName(L"\"C:\\Program Files\\Tarvik.exe\" host"), L" host");
  EXPECT_EQ(AfterProgramName(L"\"Program Files\"\\Tarvik\\Tarvik.exe host"), L" host");
  EXPECT_EQ(AfterProgramName(L"C:\\\"Program Files\"\\\"My Tools\"\\Tarvik.exe -X 1"), L" -X 1");
  EXPECT_EQ(AfterProgramName(L"C:\\\"a b host"), L"");
  EXPECT_EQ(AfterProgramName(L"\"C:\\a b\""), L"");
  EXPECT_EQ(AfterProgramName(L"\"never closed"), L"");
  EXPECT_EQ(AfterProgramName(L""), L"");
}

TEST_F(CommandLineTest, A_host_alone_is_the_target) {
  Parse(L" 192.168.1.1 ");
  EXPECT_EQ(values.targetHost, L"192.168.1.1");
  EXPECT_EQ(values.accessCode, L"");
}

TEST_F(CommandLineTest, An_access_code_follows_the_first_semicolon) {
  Parse(L"cnc;ab;c");
  EXPECT_EQ(values.targetHost, L"cnc");
  EXPECT_EQ(values.accessCode, L"ab;c");
}

TEST_F(CommandLineTest, Host_and_access_code_may_be_empty) {
  Parse(L";code");
  EXPECT_EQ(values.targetHost, L"");
  EXPECT_EQ(values.accessCode, L"code");
  Parse(L"host;");
  EXPECT_EQ(values.targetHost, L"host");
  EXPECT_EQ(values.accessCode, L"");
}

TEST_F(CommandLineTest, Options_start_with_a_hyphen_or_slash_and_precede_the_host) {
  Parse(
      L"-PING_N 8 /X 3  -TCP_PORT 8193 -NXLIB_TMOUT 20 -K7SERVER_HOST k7 -FTP_USER u -FTP_PASSWD p "
      L"192.168.1.1");
  EXPECT_EQ(values.pingCount, 8);
  EXPECT_EQ(values.tcpPort, 8193);
  EXPECT_EQ(values.libraryTimeOut, 20);
  EXPECT_EQ(values.k7ServerHost, L"k7");
  EXPECT_EQ(values.ftpUser, L"u");
  EXPECT_EQ(values.ftpPassword, L"p");
  EXPECT_TRUE(mask.Test(3));
  EXPECT_EQ(values.targetHost, L"192.168.1.1");
}

TEST_F(CommandLineTest, A_key_in_lower_case_is_accepted) {
  Parse(L"-x 1 192.168.0.5");
  EXPECT_TRUE(mask.Test(1));
  EXPECT_EQ(values.targetHost, L"192.168.0.5");
}

TEST_F(CommandLineTest, An_unknown_key_ends_the_parsing) {
  Parse(L"-FOO 1 -PING_N 5 host");
  EXPECT_EQ(values.pingCount, 0);
  EXPECT_EQ(values.targetHost, L"");
}

TEST_F(CommandLineTest, Options_before_an_unknown_key_are_kept) {
  Parse(L"-PING_N 5 -FOO 1 host");
  EXPECT_EQ(values.pingCount, 5);
  EXPECT_EQ(values.targetHost, L"");
}

TEST_F(CommandLineTest, Two_hosts_are_both_ignored) {
  Parse(L"host1 host2");
  EXPECT_EQ(values.targetHost, L"");
}

TEST_F(CommandLineTest, A_word_that_is_not_last_is_read_as_an_option_without_its_first_letter) {
  Parse(L"ZX 4 host");
  EXPECT_TRUE(mask.Test(4));
  EXPECT_EQ(values.targetHost, L"host");
}

TEST_F(CommandLineTest, An_option_without_a_value_changes_nothing) {
  Parse(L"-PING_N");
  EXPECT_EQ(values.pingCount, 0);
  EXPECT_EQ(values.targetHost, L"");
}

TEST_F(CommandLineTest, The_UDP_port_is_accepted_and_ignored) {
  Parse(L"-UDP_PORT 9000 host");
  EXPECT_EQ(values.tcpPort, 0);
  EXPECT_EQ(values.targetHost, L"host");
}

TEST_F(CommandLineTest, An_option_with_an_invalid_or_oversized_number_is_ignored) {
  Parse(
      L"-PING_N 32768 -TCP_PORT 80x -NXLIB_TMOUT 99999999999999999999 -X 2147483648 -LANGID a -LOCALEID - "
      L"host");
  EXPECT_EQ(values.pingCount, 0);
  EXPECT_EQ(values.tcpPort, 0);
  EXPECT_EQ(values.libraryTimeOut, 0);
  EXPECT_TRUE(!mask.Test(1) && !mask.Test(0x80000000));
  EXPECT_EQ(mode, kLanguageFile);
  EXPECT_TRUE(languages.empty());
  EXPECT_EQ(values.targetHost, L"host");
}

TEST_F(CommandLineTest, Option_bits_accumulate) {
  Parse(L"-X 1 -X 8 host");
  EXPECT_TRUE(mask.Test(9));
}

TEST_F(CommandLineTest, LANGID_sets_the_language_mode) {
  Parse(L"-LANGID 0 host");
  EXPECT_EQ(mode, kBuiltInJapanese);
  Parse(L"-LANGID 1 host");
  EXPECT_EQ(mode, 1);
  Parse(L"-LANGID -1 host");
  EXPECT_EQ(mode, kLanguageFile);
}

TEST_F(CommandLineTest, LOCALEID_initialises_the_language_and_selects_the_language_files) {
  Parse(L"-LANGID 0 -LOCALEID 1041 host");
  EXPECT_EQ(languages, std::vector<int32_t>{1041});
  EXPECT_EQ(mode, kLanguageFile);
}

TEST_F(CommandLineTest, LANGID_after_LOCALEID_overrides_the_language_files) {
  Parse(L"-LOCALEID 1041 -LANGID 0 host");
  EXPECT_EQ(mode, kBuiltInJapanese);
}

TEST_F(CommandLineTest, Quotes_do_not_group_and_tabs_do_not_separate) {
  Parse(L"-FTP_USER \"a host\t1");
  EXPECT_EQ(values.ftpUser, L"\"a");
  EXPECT_EQ(values.targetHost, L"host\t1");
}

}  // namespace
}  // namespace tarvik
