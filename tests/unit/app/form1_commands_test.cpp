// The commands of the result list: their menus, their keys, what they copy, and when they do nothing.

#include <map>
#include <set>

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

constexpr int16_t kCtrlShift = ui::kCtrlHeld + ui::kShiftHeld;

class Form1CommandsTest : public Form1Test {
 protected:
  ui::MemoryMenuItem& Command(int id) { return form.Get<ui::MemoryMenuItem>(id); }
  std::wstring Sentence() { return Label(ID_lblAnswer).Caption(); }
  void SetLines(const std::vector<std::wstring>& lines) {
    form1->Results().ClearList();
    form1->Results().AddBatch(lines);
    clipboard.text = L"before";
  }
  /// Calls `check` once while a run waits.
  void DuringARun(const std::function<void()>& check) {
    Address().Type(L"192.168.1.101");
    bool checked = false;
    onEvents = [&] {
      if (!std::exchange(checked, true)) check();
    };
    Click(ID_cmdPing);
    EXPECT_TRUE(checked);
    onEvents = nullptr;
  }
};

TEST_F(Form1CommandsTest, The_Help_menu_has_them_after_what_it_had_before) {
  Start();
  EXPECT_EQ(form.CommandsOf(ID_mnuHelp),
            (std::vector<int>{ID_mnuHelpSub, ID_mnuPMC, 0, ID_mnuCopyLine, ID_mnuCopyAll, ID_mnuCopyReport,
                              ID_mnuSaveReport, ID_mnuExplain, 0, ID_mnuClearList}));
}

TEST_F(Form1CommandsTest, The_context_menu_of_the_list_has_them_in_the_same_order) {
  Start();
  std::vector<ui::MenuItem*> expected;
  for (const int id : std::vector<int>{ID_mnuCopyLine, ID_mnuCopyAll, ID_mnuCopyReport, ID_mnuSaveReport,
                                       ID_mnuExplain, 0, ID_mnuClearList})
    expected.push_back(id == 0 ? nullptr : &Command(id));
  EXPECT_EQ(form.OpenContextMenu(List()), expected);
}

TEST_F(Form1CommandsTest, Japanese_captions_name_the_same_keys) {
  Start(L"-LANGID 0 -X 0");
  EXPECT_EQ(Command(ID_mnuCopyReport).Caption(), L"レポートをコピー(&R)\tCtrl+Shift+C");
  EXPECT_EQ(Command(ID_mnuClearList).Caption(), L"結果欄を消去(&T)");
  const std::map<int, const wchar_t*> keys = {{ID_mnuCopyLine, L"\tCtrl+C"},
                                              {ID_mnuCopyReport, L"\tCtrl+Shift+C"},
                                              {ID_mnuSaveReport, L"\tCtrl+S"},
                                              {ID_mnuExplain, L"\tF1"}};
  for (const auto& [id, key] : keys) EXPECT_TRUE(Command(id).Caption().ends_with(key)) << id;
}

TEST_F(Form1CommandsTest, No_two_commands_of_the_Help_menu_have_the_same_mnemonic) {
  for (const bool japanese : {false, true}) {
    ui::MemoryForm own{screen};
    Form1Controls controls(own, true);
    controls.ShowCommandCaptions(japanese ? report::AnswerLanguage::Japanese
                                          : report::AnswerLanguage::English);
    std::set<wchar_t> letters;
    for (const int id : own.CommandsOf(ID_mnuHelp)) {
      if (id == 0) continue;
      const auto& item = own.Get<ui::MemoryMenuItem>(id);
      const std::wstring caption =
          japanese && item.captionMessage ? RowOf(*item.captionMessage).japanese : item.Caption();
      const size_t mark = caption.find(L'&');
      ASSERT_NE(mark, std::wstring::npos) << id;
      EXPECT_TRUE(letters.insert(UpperCaseAscii(caption).at(mark + 1)).second) << id;
    }
    EXPECT_EQ(letters.size(), 8U);
  }
}

TEST_F(Form1CommandsTest, Ctrl_C_copies_the_selected_line_while_the_list_has_the_focus) {
  Start();
  SetLines({L"one", L"two", L"three"});
  List().ClickLine(1);
  List().SetFocus();
  EXPECT_TRUE(form.PressShortcut(L'C', ui::kCtrlHeld));
  EXPECT_EQ(clipboard.text, L"two");
  EXPECT_EQ(Sentence(), L"1 line copied");
}

TEST_F(Form1CommandsTest, Ctrl_C_in_the_address_box_is_left_to_the_box) {
  Start();
  SetLines({L"one"});
  Address().SetFocus();
  EXPECT_FALSE(form.PressShortcut(L'C', ui::kCtrlHeld));
  EXPECT_EQ(clipboard.text, L"before");
}

TEST_F(Form1CommandsTest, Without_a_selected_line_there_is_nothing_to_copy) {
  Start();
  SetLines({L"one"});
  List().Select(-1);
  Command(ID_mnuCopyLine).Click();
  EXPECT_EQ(clipboard.text, L"before");
  EXPECT_EQ(Sentence(), L"");
}

TEST_F(Form1CommandsTest, Copy_all_copies_every_line_also_when_a_double_click_pastes) {
  Start(L"-X 16 -X");
  SetLines({L"one", L"two"});
  Command(ID_mnuCopyAll).Click();
  EXPECT_EQ(clipboard.text, L"one\r\ntwo\r\n");
  EXPECT_EQ(Sentence(), L"2 lines copied");
}

TEST_F(Form1CommandsTest, Ctrl_Shift_C_copies_the_report_wherever_the_focus_is) {
  Start();
  Address().SetFocus();
  EXPECT_TRUE(form.PressShortcut(L'C', kCtrlShift));
  EXPECT_TRUE(clipboard.text->starts_with(L"Tarvik 1.0")) << clipboard.text->size();
  EXPECT_EQ(Sentence(), L"Report copied");
  form.PassTime(2999);
  EXPECT_EQ(Sentence(), L"Report copied");
  form.PassTime(1);
  EXPECT_EQ(Sentence(), L"");
}

TEST_F(Form1CommandsTest, The_sentence_reports_a_copied_report_in_Japanese) {
  Start(L"-LANGID 0 -X 0");
  Command(ID_mnuCopyReport).Click();
  EXPECT_EQ(Sentence(), L"レポートをコピーしました");
}

TEST_F(Form1CommandsTest, A_clipboard_in_use_is_reported_in_a_box_and_not_as_a_copy) {
  Start();
  clipboard.taken = true;
  for (const int id : {ID_mnuCopyLine, ID_mnuCopyAll, ID_mnuCopyReport}) {
    boxes.boxes.clear();
    Command(id).Click();
    EXPECT_EQ(boxes.Texts(),
              std::vector<std::wstring>{L"The clipboard is in use by another program. Try again."});
    EXPECT_EQ(Sentence(), L"");
  }
}

TEST_F(Form1CommandsTest, The_report_can_be_copied_during_a_run) {
  Start();
  DuringARun([this] {
    EXPECT_TRUE(form.PressShortcut(L'C', kCtrlShift));
    EXPECT_TRUE(clipboard.text->starts_with(L"Tarvik 1.0"));
  });
}

TEST_F(Form1CommandsTest, Clearing_the_list_is_off_during_a_run) {
  Start();
  SetLines({L"one", L"two"});
  Command(ID_mnuClearList).Click();
  EXPECT_TRUE(List().lines.empty());
  DuringARun([this] {
    const size_t lines = List().lines.size();
    form.OpenContextMenu(List());
    EXPECT_FALSE(Command(ID_mnuClearList).Enabled());
    Command(ID_mnuClearList).Click();
    EXPECT_EQ(List().lines.size(), lines);
  });
  EXPECT_FALSE(List().lines.empty());
  form.OpenContextMenu(List());
  EXPECT_TRUE(Command(ID_mnuClearList).Enabled());
}

TEST_F(Form1CommandsTest, Clearing_the_list_is_off_during_a_K7_test) {
  Start(L"", false);
  Address().Type(L"192.168.1.100");
  bool checked = false;
  onEvents = [&] {
    checked = true;
    form.OpenContextMenu(List());
    EXPECT_FALSE(Command(ID_mnuClearList).Enabled());
  };
  Click(ID_cmdK7Api);
  EXPECT_TRUE(checked);
}

TEST_F(Form1CommandsTest, Copying_and_saving_by_keys_do_nothing_while_a_message_box_is_open) {
  Start();
  SetLines({L"one"});
  boxes.onShow = [this] {
    EXPECT_TRUE(form.PressShortcut(L'C', kCtrlShift));
    EXPECT_TRUE(form.PressShortcut(L'S', ui::kCtrlHeld));
  };
  form.Boxes().Show(L"a box");
  EXPECT_EQ(clipboard.text, L"before");
  EXPECT_EQ(boxes.boxes.size(), 1U);
}

}  // namespace
}  // namespace tarvik::test
