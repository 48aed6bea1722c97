// The sentence above the result list and the marks in the status bar.

#include <utility>

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

class Form1AnswerTest : public Form1Test {
 protected:
  ui::MemoryStatusBar& Bar() { return form.Get<ui::MemoryStatusBar>(ID_sbrRungs); }
  std::wstring Sentence() { return Label(ID_lblAnswer).Caption(); }
  std::vector<std::wstring> Marks() {
    std::vector<std::wstring> marks;
    for (int field = 0; field < Bar().FieldCount(); ++field) marks.push_back(Bar().FieldText(field));
    return marks;
  }
  void Type(const std::wstring& address, const std::wstring& count = L"1") {
    Address().Type(address);
    Box(ID_txtPingReqCount).SetText(count);
  }
};

TEST_F(Form1AnswerTest, A_run_ends_with_its_sentence_and_marks) {
  Start();
  Type(L"192.168.1.100", L"2");
  Click(ID_cmdPing);
  EXPECT_EQ(Sentence(), L"Target good, 2 of 2 echoes, slowest 1 ms.");
  EXPECT_EQ(Marks(), (std::vector<std::wstring>{L"Name OK", L"PC OK", L"Gateway –", L"Target OK", L"NEXAL2 –",
                                                L"FTP –"}));
  EXPECT_EQ(Bar().FieldWhole(3), L"Target: 192.168.1.100 answered 2 of 2 echoes, slowest 1 ms.");
}

TEST_F(Form1AnswerTest, While_a_run_waits_the_sentence_says_where_it_is) {
  Start();
  Type(L"192.168.1.101", L"2");
  std::vector<std::wstring> sentences;
  onEvents = [&] {
    if (sentences.empty() || sentences.back() != Sentence()) sentences.push_back(Sentence());
  };
  Click(ID_cmdPing);
  ASSERT_GE(sentences.size(), 2U);
  EXPECT_EQ(sentences[0], L"Target, echo 1 of 2. Esc stops.");
  EXPECT_EQ(sentences[1], L"Target, echo 2 of 2. Esc stops.");
}

TEST_F(Form1AnswerTest, Esc_leaves_nothing_proven) {
  Start();
  Type(L"192.168.1.101", L"9");
  onEvents = [&] { form.onEscape(); };
  Click(ID_cmdPing);
  EXPECT_EQ(Sentence(), L"Stopped. Nothing is proven.");
}

TEST_F(Form1AnswerTest, Editing_the_address_resets_the_sentence_and_every_mark) {
  Start();
  Type(L"192.168.1.100");
  Click(ID_cmdPing);
  Address().Type(L"192.168.1.10");
  EXPECT_EQ(Sentence(), L"");
  EXPECT_EQ(Bar().FieldText(3), L"Target –");
}

TEST_F(Form1AnswerTest, An_address_that_was_edited_during_the_run_keeps_the_answer_until_the_next_edit) {
  Start();
  Type(L"192.168.1.100");
  bool edited = false;
  onEvents = [&] {
    if (!std::exchange(edited, true)) Address().Type(L"192.168.1.1");
  };
  Click(ID_cmdPing);
  EXPECT_EQ(Bar().FieldText(3), L"Target OK");
  EXPECT_NE(Sentence(), L"");
  Address().Type(L"192.168.1.10");
  EXPECT_EQ(Sentence(), L"");
  EXPECT_EQ(Bar().FieldText(3), L"Target –");
}

TEST_F(Form1AnswerTest, A_single_page_replaces_only_its_own_mark) {
  Start();
  Type(L"192.168.1.100");
  Click(ID_cmdPing);
  cncLibrary.openResult = 7;
  cncLibrary.codeResult = 7;
  Click(ID_cmdGetInfo);
  EXPECT_EQ(Sentence(), L"Access code needed: tick and type it on page NEXAL2.");
  EXPECT_EQ(Bar().FieldText(3), L"Target OK");
  EXPECT_EQ(Bar().FieldText(4), L"NEXAL2 FAIL");
}

TEST_F(Form1AnswerTest, The_K7_test_of_its_own_page_is_a_run) {
  Start(L"", false);
  Type(L"192.168.1.100");
  Box(ID_txtK7ApiTestCount).SetText(L"2");
  Click(ID_cmdK7Api);
  EXPECT_EQ(Sentence(), L"K7 good, live 2 of 2 times.");
  EXPECT_EQ(Bar().FieldText(5), L"K7 OK");
}

TEST_F(Form1AnswerTest, A_wrong_number_breaks_the_test_off) {
  Start();
  Type(L"192.168.1.100");
  Box(ID_txtTcpPortNo).SetText(L"x");
  Click(ID_cmdGetInfo);
  EXPECT_EQ(Sentence(), L"The test broke off: read the message, then run it again.");
  EXPECT_EQ(Bar().FieldText(4), L"NEXAL2 FAIL");
}

TEST_F(Form1AnswerTest, Copying_is_reported_for_three_seconds) {
  Start();
  Type(L"192.168.1.100");
  Click(ID_cmdPing);
  const std::wstring sentence = Sentence();
  List().DoubleClick();
  EXPECT_EQ(Sentence(), L"2 lines copied");
  form.PassTime(3000);
  EXPECT_EQ(Sentence(), sentence);
}

TEST_F(Form1AnswerTest, The_texts_are_Japanese_with_the_built_in_Japanese_texts) {
  Start(L"-LANGID 0");
  Type(L"192.168.1.101");
  Click(ID_cmdPing);
  EXPECT_EQ(Sentence(), L"相手が無応答。アドレス、ケーブル、電源を確認。");
  EXPECT_EQ(Bar().FieldText(3), L"相手 ×");
}

}  // namespace
}  // namespace tarvik::test
