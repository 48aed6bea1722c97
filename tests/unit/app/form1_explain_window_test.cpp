// The window that shows what F1 explains.

#include "tests/unit/app/form1_explain_fixture.h"

namespace tarvik::test {
namespace {

class Form1ExplainWindowTest : public Form1ExplainTest {};

TEST_F(Form1ExplainWindowTest, Nothing_is_read_before_the_first_F1) {
  static int calls;
  calls = 0;
  explanationText = [] {
    ++calls;
    return ProgramText();
  };
  Start();
  Ping(L"192.168.1.101");
  EXPECT_EQ(calls, 0);
  EXPECT_TRUE(newForms.empty());
  PressF1();
  PressF1();
  EXPECT_EQ(calls, 1);
}

TEST_F(Form1ExplainWindowTest, Its_errors_are_in_its_caption_so_that_no_second_box_opens) {
  Start();
  PressF1();
  lastForm->Guarded([] { throw RuntimeError(L"The clipboard does not accept the text."); });
  EXPECT_EQ(lastForm->Caption(), L"The clipboard does not accept the text.");
  EXPECT_TRUE(boxes.boxes.empty());
  PressF1();
  EXPECT_EQ(lastForm->Caption(), L"Explanation - Tarvik");
}

TEST_F(Form1ExplainWindowTest, A_box_that_cannot_be_explained_gets_no_second_box) {
  Start();
  failNewForms = true;
  boxes.onShow = [&] { form.PressHelpInBox(boxes.boxes.back().text); };
  Box(ID_txtPingReqCount).SetText(L"x");
  Box(ID_txtPingReqCount).SetFocus();
  form.MoveFocus(Box(ID_txtPingReqCount), Button(ID_cmdPing));
  EXPECT_EQ(boxes.boxes.size(), 1U);
}

TEST_F(Form1ExplainWindowTest, Every_paragraph_is_one_line_whatever_was_typed) {
  Start();
  Ping(L"no\r\nname");
  PressF1();
  EXPECT_TRUE(Says(L"no  name"));
  for (const ui::Paragraph& paragraph : View().paragraphs)
    EXPECT_EQ(paragraph.text.find_first_of(L"\r\n"), std::wstring::npos);
}

TEST_F(Form1ExplainWindowTest, Its_caption_follows_the_language_of_the_texts) {
  configuration.folderResult = 1;
  boxes.onShow = [&] { form.PressHelpInBox(boxes.boxes.back().text); };
  Start(L"-LANGID 0");
  EXPECT_EQ(lastForm->Caption(), L"Explanation - Tarvik");
  PressF1();
  EXPECT_EQ(newForms.size(), 1U);
  EXPECT_EQ(lastForm->Caption(), L"説明 - Tarvik");
}

TEST_F(Form1ExplainWindowTest, F1_works_in_secondary_windows_and_their_boxes_too) {
  Start();
  form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Click();
  ui::MemoryForm* const pmc = lastForm;
  pmc->PressHelp();
  EXPECT_TRUE(Title().starts_with(L"Not tested yet"));
  pmc->PressHelpInBox(L"Allocate Handle error=-16");
  EXPECT_NE(lastForm, pmc);
  EXPECT_TRUE(Title().starts_with(L"The library cannot connect"));
}

TEST_F(Form1ExplainWindowTest, F1_again_updates_the_same_window_and_brings_it_to_the_front) {
  Start();
  PressF1();
  const ui::MemoryForm* const window = lastForm;
  screen.active = &form;
  Ping(L"192.168.1.101");
  PressF1();
  EXPECT_EQ(newForms.size(), 1U);
  EXPECT_EQ(screen.active, window);
  EXPECT_TRUE(Title().starts_with(L"[115]"));
  Ping(L"192.168.1.100");
  lastForm->PressHelp();
  EXPECT_TRUE(Says(MeaningOf(report::Finding::TargetGood))) << "F1 in the Explain window itself";
}

TEST_F(Form1ExplainWindowTest, Esc_closes_the_window_and_F1_opens_another_one) {
  Start();
  PressF1();
  lastForm->PressEscape();
  EXPECT_TRUE(lastForm->unloaded);
  PressF1();
  EXPECT_EQ(newForms.size(), 2U);
  EXPECT_EQ(Existing(), 1);
  EXPECT_TRUE(lastForm->Visible());
}

TEST_F(Form1ExplainWindowTest, It_closes_with_the_main_window) {
  Start();
  PressF1();
  EXPECT_TRUE(form.Close());
  EXPECT_EQ(Existing(), 0);
}

TEST_F(Form1ExplainWindowTest, It_opens_next_to_the_main_window_and_keeps_the_list_visible) {
  Start();
  PressF1();
  EXPECT_EQ(lastForm->beside, (std::pair<const ui::Form*, const ui::Control*>(&form, &List())));
  EXPECT_EQ(newForms.back(), L"frmExplain");
  EXPECT_FALSE(lastForm->topmost);
}

TEST_F(Form1ExplainWindowTest, It_stays_above_others_when_the_main_window_does) {
  Start(L"-X 1 -PING_N 4");
  PressF1();
  EXPECT_TRUE(lastForm->topmost);
}

TEST_F(Form1ExplainWindowTest, The_text_fills_the_window_at_every_size_and_scaling) {
  Start();
  PressF1();
  const auto fills = [&] {
    const ui::Size client = lastForm->ClientSize();
    return View().Bounds() == ui::Rect{0, 0, client.width, client.height};
  };
  EXPECT_TRUE(fills());
  lastForm->SetWindowSize({700, 650});
  EXPECT_TRUE(fills());
  lastForm->dpi = 192;
  lastForm->lineHeight = 30;
  lastForm->onScalingChanged();
  EXPECT_TRUE(fills());
  EXPECT_GE(lastForm->minimumWindowSize.width, 20 * 30);
}

TEST_F(Form1ExplainWindowTest, The_window_is_Japanese_with_the_Japanese_texts) {
  Start(L"-LANGID 0");
  Ping(L"192.168.1.101");
  PressF1();
  EXPECT_TRUE(Title().starts_with(L"[115] 通信先のIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください / Please check"));
  EXPECT_EQ(Of(ui::ParagraphKind::Heading),
            (std::vector<std::wstring>{L"今すること", L"意味", L"ここまで良好", L"他の問い合わせ先"}));
  EXPECT_EQ(lastForm->Caption(), L"説明 - Tarvik");
}

TEST_F(Form1ExplainWindowTest, Without_explanations_F1_does_nothing) {
  explanationText = [] { return std::string_view(); };
  Start();
  PressF1();
  EXPECT_TRUE(newForms.empty());
}

}  // namespace
}  // namespace tarvik::test
