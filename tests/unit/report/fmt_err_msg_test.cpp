#include "report/fmt_err_msg.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_modules.h"

namespace tarvik::test {
namespace {

class FmtErrMsgTest : public testing::Test {
 protected:
  FakeKernel kernel;
  FakeCodePage codePage;
  FakeBoxes boxes;
  FmtErrMsg errors{kernel, codePage, boxes};
};

TEST_F(FmtErrMsgTest, A_code_of_the_system_is_put_into_words_from_the_systems_table_only) {
  kernel.messages[10061] = "Connection refused.\r\n";
  EXPECT_EQ(errors.Decode(10061), L"ERROR: 10061 - Connection refused.");
  EXPECT_TRUE(kernel.loads.empty());
  ASSERT_EQ(kernel.formats.size(), 1U);
  EXPECT_EQ(kernel.formats[0].flags, 0x1000U);
  EXPECT_EQ(kernel.formats[0].module, 0);
  EXPECT_EQ(kernel.formats[0].languageId, 0U);
  EXPECT_EQ(kernel.formats[0].size, 256U);
}

TEST_F(FmtErrMsgTest, A_code_of_the_network_management_consults_its_own_table_too) {
  kernel.messages[2102] = "The workstation driver is not installed.\r\n";
  EXPECT_EQ(errors.Decode(2102), L"ERROR: 2102 - The workstation driver is not installed.");
  EXPECT_EQ(kernel.loads, (std::vector<std::pair<std::string, uint32_t>>{{"netmsg.dll", 2}}));
  EXPECT_EQ(kernel.formats[0].flags, 0x1800U);
  EXPECT_EQ(kernel.formats[0].module, kernel.loadResult);
  EXPECT_EQ(kernel.freed, std::vector<KernelCalls::Module>{kernel.loadResult});
}

TEST_F(FmtErrMsgTest, The_network_managements_codes_are_2100_to_2999) {
  for (const int32_t code : {2099, 3000, -2102}) errors.Decode(code);
  EXPECT_TRUE(kernel.loads.empty());
  for (const int32_t code : {2100, 2999}) errors.Decode(code);
  EXPECT_EQ(kernel.loads.size(), 2U);
  EXPECT_EQ(kernel.openModules, 0);
}

TEST_F(FmtErrMsgTest, Without_the_network_managements_table_the_systems_serves) {
  kernel.loadResult = 0;
  kernel.messages[2102] = "text";
  EXPECT_EQ(errors.Decode(2102), L"ERROR: 2102 - text");
  EXPECT_EQ(kernel.formats[0].flags, 0x1000U);
  EXPECT_TRUE(kernel.freed.empty());
}

TEST_F(FmtErrMsgTest, An_unknown_code_is_told_in_a_box_and_has_an_empty_text) {
  EXPECT_EQ(errors.Decode(2102), L"ERROR: 2102 - ");
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"FormatMessage Error : 317"});
  EXPECT_EQ(kernel.openModules, 0);
}

TEST_F(FmtErrMsgTest, The_table_stays_loaded_while_the_box_is_shown_and_is_freed_behind_it) {
  boxes.onShow = [this] { EXPECT_EQ(kernel.openModules, 1); };
  errors.Decode(2102);
  EXPECT_EQ(kernel.openModules, 0);
}

TEST_F(FmtErrMsgTest, The_line_is_one_line) {
  kernel.messages[1] = "first\r\nsecond \r\n\r\nthird\nfourth\r\n\r\n";
  EXPECT_EQ(errors.Decode(1), L"ERROR: 1 - first second third fourth");
  kernel.messages[2] = "\r\n";
  EXPECT_EQ(errors.Decode(2), L"ERROR: 2 - ");
}

TEST_F(FmtErrMsgTest, The_text_is_cut_at_its_NUL) {
  kernel.messages[1] = std::string("text\0rest", 9);
  EXPECT_EQ(errors.Decode(1), L"ERROR: 1 - text");
}

TEST_F(FmtErrMsgTest, A_text_without_an_end_is_read_no_further_than_the_buffer) {
  kernel.messages[1] = std::string(300, 'x');
  kernel.formatLie = 0xFFFFFFFF;
  EXPECT_EQ(errors.Decode(1), L"ERROR: 1 - " + std::wstring(256, L'x'));
}

TEST_F(FmtErrMsgTest, A_Japanese_text_goes_through_the_code_page) {
  kernel.messages[5] = codePage.ToAnsi(L"アクセスが拒否されました。\r\n");
  EXPECT_EQ(errors.Decode(5), L"ERROR: 5 - アクセスが拒否されました。");
}

TEST_F(FmtErrMsgTest, A_code_above_the_signed_range_is_shown_signed) {
  kernel.messages[0x80004005] = "Unspecified error";
  EXPECT_EQ(errors.Decode(static_cast<int32_t>(0x80004005)), L"ERROR: -2147467259 - Unspecified error");
}

TEST_F(FmtErrMsgTest, The_latest_error_is_put_into_words) {
  kernel.lastError = 5;
  kernel.messages[5] = "Access is denied.\r\n";
  EXPECT_EQ(errors.mGetLastError(), L"ERROR: 5 - Access is denied.");
}

}  // namespace
}  // namespace tarvik::test
