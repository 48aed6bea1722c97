// The caption loader: which text of the language file each element of the window gets, and in which order.

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

/// A text of the language file and the element that shows it.
struct CaptionOf {
  int text;  ///< number in the language file
  int control;
  int page = ui::kNoPage;  ///< for the captions of ID_tabMode's tabs
};

/// Every caption except the window's own, in the order in which they are loaded.
const std::vector<CaptionOf> kCaptions = {
    {1, ID_mnuHelp},
    {2, ID_mnuHelpSub},
    {28, ID_mnuPMC},
    {3, ID_tabMode, 0},
    {4, ID_tabMode, 1},
    {5, ID_tabMode, 2},
    {6, ID_tabMode, 3},
    {7, ID_tabMode, 4},
    {8, ID_lblIPAddr},
    {9, ID_lblPingReqCount},
    {10, ID_cmdPing},
    {11, ID_cmdAllTest},
    {12, ID_lblNxlibTimeOut},
    {13, ID_lblTcpPortNo},
    {14, ID_chkAccessCode},
    {29, ID_lblAccessCode},
    {15, ID_cmdGetInfo},
    {16, ID_lblTestCount},
    {17, ID_cmdK7Api},
    {18, ID_lblStatus},
    {19, ID_lblPcUdpSetting},
    {20, ID_cmdStartStopK7Server_1},
    {21, ID_cmdStartStopK7Server_0},
    {22, ID_cmdK7ServerDebug},
    {23, ID_lblFtpUsername},
    {24, ID_lblFtpPasswd},
    {25, ID_cmdFtpConnect},
    {26, ID_cmdAllFtpTest},
    {30, ID_lblResult},
};

class Form1CaptionsTest : public Form1Test {
 protected:
  Form1CaptionsTest() {
    for (int id = 0; id < 200; ++id) AddString(1033, id, "t" + std::to_string(id));
  }

  std::wstring Caption(const CaptionOf& caption) {
    return caption.page == ui::kNoPage ? form.Get<ui::Element>(caption.control).Caption()
                                       : Tabs().PageCaption(caption.page);
  }
};

TEST_F(Form1CaptionsTest, Every_element_gets_its_own_text_from_the_language_file) {
  Start();
  EXPECT_EQ(form.Caption(), L"t0");
  for (const CaptionOf& caption : kCaptions)
    EXPECT_EQ(Caption(caption), L"t" + std::to_wstring(caption.text))
        << caption.control << " page " << caption.page;
}

TEST_F(Form1CaptionsTest, The_list_in_this_test_is_complete) {
  Construct();
  for (const int id : form.Order()) {
    const auto& element = form.Get<ui::Element>(id);
    // The texts of these two labels come from the PC, not from the language file.
    if (element.Caption().empty() || id == ID_lblK7ServerStatus || id == ID_lblK7UdpPortNo) continue;
    // Those of the list's commands are built in.
    if (id >= ID_mnuCopyLine && id <= ID_mnuClearList) continue;
    EXPECT_TRUE(std::any_of(kCaptions.begin(), kCaptions.end(), [id](const CaptionOf& caption) {
      return caption.control == id;
    })) << id;
  }
}

TEST_F(Form1CaptionsTest, Captions_are_loaded_in_the_order_menus_tabs_controls) {
  Construct();
  std::vector<int> loaded;
  bool loading = false;
  form.beforeText = [&](const ui::Element& element) {
    loading = loading || &element == &form.Get<ui::Element>(kCaptions.front().control);
    if (!loading) return;
    for (const int id : form.Order())
      if (&element == &form.Get<ui::Element>(id)) loaded.push_back(id);
  };
  kernel.onSearch = [&] { form.beforeText = nullptr; };  // the module check is the step after the captions
  form1->Form_Load();
  std::vector<int> expected;
  for (const CaptionOf& caption : kCaptions) expected.push_back(caption.control);
  EXPECT_EQ(loaded, expected);
}

TEST_F(Form1CaptionsTest, A_language_file_without_the_status_tip_keeps_the_built_in_tip) {
  AddString(1033, 32, "");
  Start();
  EXPECT_EQ(form.Get<ui::MemoryLabel>(ID_lblK7ServerStatus).toolTip, L"Click to refresh the status");
}

class FailingCaption : public Form1CaptionsTest, public testing::WithParamInterface<CaptionOf> {};

TEST_P(FailingCaption, Does_not_affect_the_other_captions) {
  Construct();
  form.beforeText = [this](const ui::Element& element) {
    const CaptionOf& failing = GetParam();
    if (&element == &form.Get<ui::Element>(failing.control) &&
        (failing.page == ui::kNoPage || Tabs().pageTakingCaption == failing.page))
      throw RuntimeError(L"The text of a control could not be set.");
  };
  form1->Form_Load();
  EXPECT_TRUE(boxes.boxes.empty());
  for (const CaptionOf& caption : kCaptions) {
    const bool failing = caption.text == GetParam().text;
    EXPECT_EQ(Caption(caption) == L"t" + std::to_wstring(caption.text), !failing) << caption.text;
  }
}

INSTANTIATE_TEST_SUITE_P(EachElement, FailingCaption, testing::ValuesIn(kCaptions),
                         [](const auto& caption) { return "Text" + std::to_string(caption.param.text); });

}  // namespace
}  // namespace tarvik::test
