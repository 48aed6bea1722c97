// The caption loader: every element of the window takes its own text of the language file, in the fixed
// order.

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

/// Where a text of the language file goes. A tab's caption belongs to a page of ID_tabMode.
struct CaptionOf {
  int text;
  int control;
  int page = ui::kNoPage;
};

/// In the order of the caption loader, after the window's own caption.
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

TEST_F(Form1CaptionsTest, Every_element_has_its_own_text_of_the_language_file) {
  Start();
  EXPECT_EQ(form.Caption(), L"t0");
  for (const CaptionOf& caption : kCaptions)
    EXPECT_EQ(Caption(caption), L"t" + std::to_wstring(caption.text))
        << caption.control << " page " << caption.page;
}

TEST_F(Form1CaptionsTest, The_list_of_this_test_names_every_captioned_control) {
  Construct();
  for (const int id : form.Order()) {
    const auto& element = form.Get<ui::Element>(id);
    // The two states of the K7 Svc page are read from the PC.
    if (element.Caption().empty() || id == ID_lblK7ServerStatus || id == ID_lblK7UdpPortNo) continue;
    EXPECT_TRUE(std::any_of(kCaptions.begin(), kCaptions.end(), [id](const CaptionOf& caption) {
      return caption.control == id;
    })) << id;
  }
}

TEST_F(Form1CaptionsTest, The_captions_are_loaded_from_left_to_right_and_page_by_page) {
  Construct();
  std::vector<int> loaded;
  bool loading = false;
  form.beforeText = [&](const ui::Element& element) {
    loading = loading || &element == &form.Get<ui::Element>(kCaptions.front().control);
    if (!loading) return;
    for (const int id : form.Order())
      if (&element == &form.Get<ui::Element>(id)) loaded.push_back(id);
  };
  kernel.onSearch = [&] { form.beforeText = nullptr; };  // the module check follows the captions
  form1->Form_Load();
  std::vector<int> expected;
  for (const CaptionOf& caption : kCaptions) expected.push_back(caption.control);
  EXPECT_EQ(loaded, expected);
}

TEST_F(Form1CaptionsTest, An_older_language_file_without_the_tip_about_the_status_gives_the_built_in_one) {
  AddString(1033, 32, "");
  Start();
  EXPECT_EQ(form.Get<ui::MemoryLabel>(ID_lblK7ServerStatus).toolTip, L"Click to refresh the status");
}

class RefusedCaption : public Form1CaptionsTest, public testing::WithParamInterface<CaptionOf> {};

TEST_P(RefusedCaption, Costs_no_other_element_its_text) {
  Construct();
  form.beforeText = [this](const ui::Element& element) {
    const CaptionOf& refused = GetParam();
    if (&element == &form.Get<ui::Element>(refused.control) &&
        (refused.page == ui::kNoPage || Tabs().pageTakingCaption == refused.page))
      throw RuntimeError(L"The control does not take its text.");
  };
  form1->Form_Load();
  EXPECT_TRUE(boxes.boxes.empty());
  for (const CaptionOf& caption : kCaptions) {
    const bool refused = caption.text == GetParam().text;
    EXPECT_EQ(Caption(caption) == L"t" + std::to_wstring(caption.text), !refused) << caption.text;
  }
}

INSTANTIATE_TEST_SUITE_P(EachElement, RefusedCaption, testing::ValuesIn(kCaptions),
                         [](const auto& caption) { return "Text" + std::to_string(caption.param.text); });

}  // namespace
}  // namespace tarvik::test
