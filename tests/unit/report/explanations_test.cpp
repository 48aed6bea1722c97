#include "report/explanations.h"

#include <gtest/gtest.h>

#include "report/explanation_facts.h"
#include "resources/resource.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_system.h"
#include "tests/unit/resources/program_explanations.h"

namespace tarvik::report {
namespace {

constexpr char kRest[] = "place: target\ntitle: T\n= t\ndo: D\n= d\nmeans: M\n= m\n";

/// The text of an entry that explains `key`.
std::string EntryFor(const std::string& key, const std::string& title = "T") {
  return key + "\nplace: target\ntitle: " + title + "\n= t\ndo: D\n= d\nmeans: M\n= m\n\n";
}

Explanations ReadFrom(const std::string& text) {
  Explanations explanations;
  explanations.Add(text);
  return explanations;
}

std::wstring FirstProblem(const std::string& text) {
  const Explanations explanations = ReadFrom(text);
  return explanations.Problems().empty() ? L"" : explanations.Problems().front();
}

class ExplanationsTest : public testing::Test {
 protected:
  std::wstring TitleOfLine(const Explanations& explanations, const std::wstring& line) const {
    const FoundExplanation found = explanations.OfLine(line, texts);
    return found.explanation == nullptr ? L"(none)" : found.explanation->title.english;
  }
  std::wstring TitleOfBox(const Explanations& explanations, const std::wstring& text) const {
    const FoundExplanation found = explanations.OfBox(text, texts);
    return found.explanation == nullptr ? L"(none)" : found.explanation->title.english;
  }

  tarvik::test::FakeFiles files;
  tarvik::test::FakeSystem system;
  tarvik::test::FakeCodePage codePage;
  Resource resource{files, system, codePage};
  LanguageMode mode = kBuiltInEnglish;
  Texts texts{mode, resource};
};

TEST_F(ExplanationsTest, An_entry_has_its_texts_in_both_languages_and_the_rung_of_its_section) {
  const Explanations explanations = ReadFrom(
      "# a comment\n@share: Shared\n= \xE5\x85\xB1\n\nsection: Gateway\n\nline: x\nplace: cable\n"
      "title: T\n= t\ndo: @share\ndo: E\n= \xC3\xA9\nfacts: F\n= f\nmeans: M\n= m\ngood: G\n= g\nask: A\n= "
      "a\n");
  EXPECT_TRUE(explanations.Problems().empty());
  ASSERT_EQ(explanations.All().size(), 1U);
  const Explanation& entry = explanations.All().front();
  EXPECT_EQ(entry.rung, Rung::Gateway);
  EXPECT_EQ(entry.place, Place::Cable);
  EXPECT_EQ(entry.title.In(AnswerLanguage::English), L"T");
  EXPECT_EQ(entry.title.In(AnswerLanguage::Japanese), L"t");
  ASSERT_EQ(entry.steps.size(), 2U);
  EXPECT_EQ(entry.steps[0].english, L"Shared");
  EXPECT_EQ(entry.steps[0].japanese, L"\u5171");
  EXPECT_EQ(entry.steps[1].japanese, L"\u00E9");
  EXPECT_EQ(entry.facts.front().english, L"F");
  EXPECT_EQ(entry.meaning.english, L"M");
  EXPECT_EQ(entry.good.english, L"G");
  EXPECT_EQ(entry.ask.japanese, L"a");
}

TEST_F(ExplanationsTest, Lines_of_Windows_editors_are_read_alike) {
  const Explanations explanations =
      ReadFrom("line: x\r\nplace: pc\r\ntitle: T\r\n= t\r\ndo: D\r\n= d\r\nmeans: M\r\n= m\r\n");
  EXPECT_TRUE(explanations.Problems().empty());
  EXPECT_EQ(TitleOfLine(explanations, L"x"), L"T");
}

TEST_F(ExplanationsTest, A_damaged_text_names_the_line_and_leaves_the_rest_readable) {
  const std::string rest = kRest;
  EXPECT_EQ(FirstProblem("no colon\n"), L"line 1: a field name and \":\" are missing");
  EXPECT_EQ(FirstProblem("colour: red\n"), L"line 1: unknown field colour");
  EXPECT_EQ(FirstProblem("section: Moon\n"), L"line 1: unknown section");
  EXPECT_EQ(FirstProblem("line: x\nplace: moon\n"), L"line 2: unknown place");
  EXPECT_EQ(FirstProblem("finding: Nothing\n" + rest), L"line 1: unknown finding Nothing");
  EXPECT_EQ(FirstProblem("message: 999\n" + rest), L"line 1: unknown message 999");
  EXPECT_EQ(FirstProblem("line: x\nplace: pc\ntitle: T\ndo: D\n= d\n"),
            L"line 4: the Japanese text is missing before this line");
  EXPECT_EQ(FirstProblem("line: x\n= y\n"), L"line 2: no English text before the Japanese one");
  EXPECT_EQ(FirstProblem("line: x\nplace: pc\ntitle: T\n= \n"), L"line 4: no text");
  EXPECT_EQ(FirstProblem("line: x\ntitle: T\n= t\ntitle: T\n= t\n"), L"line 4: given twice: title");
  EXPECT_EQ(FirstProblem("line: x\ndo: @nobody\n"), L"line 2: unknown text @nobody");
  EXPECT_EQ(FirstProblem("@a: A\n= a\n@a: B\n= b\n"), L"line 3: defined twice: @a");
  EXPECT_EQ(FirstProblem("line: x\nline: x\n" + rest), L"line 2: explained twice: x");
  EXPECT_EQ(FirstProblem("finding: Stopped Stopped\n" + rest), L"line 9: explained twice: Stopped");
  EXPECT_EQ(FirstProblem(rest), L"line 8: the entry before explains nothing");
  EXPECT_EQ(FirstProblem("line: x\ntitle: T\n= t\ndo: D\n= d\nmeans: M\n= m\n"),
            L"line 8: the entry before has no place");
  EXPECT_EQ(FirstProblem("line: x\nplace: pc\ntitle: T\n= t\nmeans: M\n= m\n"),
            L"line 7: the entry before lacks title, do or means");

  const Explanations explanations = ReadFrom("\xFF\xC3 : what\n\n= x\n\n" + EntryFor("line: good"));
  EXPECT_FALSE(explanations.Problems().empty());
  EXPECT_EQ(TitleOfLine(explanations, L"good"), L"T");
}

TEST_F(ExplanationsTest, The_pattern_with_the_most_literal_characters_explains_a_line) {
  const Explanations explanations =
      ReadFrom(EntryFor("line: *", "anything") + EntryFor("line: ICMP_Error:*", "an error") +
               EntryFor("icmp: 11010", "silent") + EntryFor("line: * Reply From *: bytes=*", "good"));
  EXPECT_EQ(TitleOfLine(explanations, L"ICMP_Error:11010"), L"silent");
  EXPECT_EQ(TitleOfLine(explanations, L"ICMP_Error:110100"), L"an error");
  EXPECT_EQ(TitleOfLine(explanations, L"0001 Reply From 10.0.0.1: bytes=32 time=1ms TTL=64"), L"good");
  EXPECT_EQ(TitleOfLine(explanations, L"0001 Reply From 10.0.0.1: Bad Route"), L"anything");
  EXPECT_EQ(TitleOfLine(explanations, L""), L"(none)");
  EXPECT_EQ(TitleOfLine(explanations, L"  "), L"(none)");
}

TEST_F(ExplanationsTest, A_message_is_known_in_every_wording) {
  files.contents[L"D\\Language\\T_1041.ini"] = "";
  system.profile["D\\Language\\T_1041.ini|1041|115"] = "from the file";
  resource.Initialize(1041, L"D", L"T");
  const Explanations explanations = ReadFrom(EntryFor("message: 115 112*"));
  for (const std::wstring& line :
       {std::wstring(RowOf(Message::CheckTarget).english), std::wstring(RowOf(Message::CheckTarget).japanese),
        std::wstring(L"from the file"), std::wstring(L"(115)"),
        RowOf(Message::OptionCheckError).english + std::wstring(L"-7")}) {
    EXPECT_EQ(TitleOfLine(explanations, line), L"T");
    EXPECT_TRUE(explanations.OfLine(line, texts).message.has_value());
  }
  EXPECT_EQ(TitleOfLine(explanations, std::wstring(RowOf(Message::CheckTarget).english) + L"!"), L"(none)");
  EXPECT_NE(explanations.Of(Message::CheckTarget).explanation, nullptr);
  EXPECT_EQ(explanations.Of(Message::NoGateway).explanation, nullptr);
}

TEST_F(ExplanationsTest, A_reply_of_a_server_is_known_by_its_code_or_else_by_its_class) {
  const Explanations explanations = ReadFrom(EntryFor("reply: 5", "refused") +
                                             EntryFor("reply: 530", "login") + EntryFor("line: * OK", "x"));
  EXPECT_EQ(TitleOfLine(explanations, L"530 Login incorrect."), L"login");
  EXPECT_EQ(TitleOfLine(explanations, L"530-Login"), L"login");
  EXPECT_EQ(TitleOfLine(explanations, L"530"), L"login");
  EXPECT_EQ(TitleOfLine(explanations, L"501 not OK"), L"refused");
  EXPECT_EQ(TitleOfLine(explanations, L"5301 x"), L"(none)");
  EXPECT_EQ(TitleOfBox(explanations, L"530 Login incorrect."), L"(none)");
}

TEST_F(ExplanationsTest, The_first_known_line_of_a_box_explains_it) {
  const Explanations explanations =
      ReadFrom(EntryFor("box:", "empty") + EntryFor("box: *", "any box") + EntryFor("line: *", "any line") +
               EntryFor("message: *148", "library") + EntryFor("line: ERROR: *", "error"));
  EXPECT_EQ(TitleOfBox(explanations, L"NxLib32.dll cannot be loaded.\r\nERROR: 126 - Gone"), L"library");
  EXPECT_EQ(TitleOfBox(explanations, L"Something\n\rERROR: 5 - Denied"), L"error");
  EXPECT_EQ(TitleOfBox(explanations, L"Something\r\nelse"), L"any box");
  EXPECT_EQ(TitleOfBox(explanations, L""), L"empty");
  EXPECT_EQ(TitleOfLine(explanations, L"Something"), L"any line");
}

TEST_F(ExplanationsTest, The_name_of_a_function_can_be_anywhere_in_a_message) {
  const Explanations explanations = ReadFrom(EntryFor("message: *149"));
  EXPECT_EQ(TitleOfBox(explanations, L"NxLib32.dll does not export nx_sysinfo."), L"T");
  EXPECT_EQ(TitleOfBox(explanations, L"NxLib32.dllはnx_sysinfoをエクスポートしていません。"), L"T");
}

TEST_F(ExplanationsTest, The_title_has_the_number_and_both_languages_the_users_first) {
  const Explanations explanations = ReadFrom(EntryFor("message: 115 112* 101") + EntryFor("line: x", "Own"));
  const auto title = [&](const std::wstring& line, AnswerLanguage language) {
    return TitleOf(explanations.OfLine(line, texts), language);
  };
  const std::wstring english = RowOf(Message::CheckTarget).english;
  const std::wstring japanese = RowOf(Message::CheckTarget).japanese;
  EXPECT_EQ(title(english, AnswerLanguage::English), L"[115] " + english + L" / " + japanese);
  EXPECT_EQ(title(english, AnswerLanguage::Japanese), L"[115] " + japanese + L" / " + english);
  EXPECT_EQ(title(L"Option check error=3", AnswerLanguage::English),
            L"[112] Option check error / ｵﾌﾟｼｮﾝ確認ｴﾗｰ");
  EXPECT_EQ(title(RowOf(Message::CannotResolve).english, AnswerLanguage::Japanese),
            std::wstring(L"[101] t / ") + RowOf(Message::CannotResolve).english);
  EXPECT_EQ(title(L"x", AnswerLanguage::Japanese), L"t / Own");
  EXPECT_EQ(TitleOf({}, AnswerLanguage::English), L"");
}

TEST_F(ExplanationsTest, The_title_of_a_message_that_ends_a_sentence_shows_that_its_beginning_is_missing) {
  const Explanations explanations = ReadFrom(EntryFor("message: *147 *149"));
  EXPECT_EQ(
      TitleOf(explanations.OfBox(L"\"Ping count\" is not a whole number.", texts), AnswerLanguage::English),
      L"[147] … is not a whole number. / …は整数ではありません。");
  EXPECT_EQ(TitleOf(explanations.OfBox(L"a.dll does not export b.", texts), AnswerLanguage::Japanese),
            L"[149] …は…をエクスポートしていません。 / … does not export ….");
}

Run RunWithEchoes() {
  Run run;
  run.facts.name = {Progress::Ended, L"cnc-7", false, L"192.168.1.100"};
  run.facts.target.echoes.address = L"192.168.1.100";
  run.facts.target.echoes.asked = run.facts.target.echoes.sent = 4;
  return run;
}

std::wstring FilledWith(const Run& run, const std::wstring& text) {
  return Filled({text, text}, run, Rung::Target, AnswerLanguage::English).text;
}

TEST(ExplanationFactsTest, Placeholders_become_the_numbers_of_the_run) {
  report::Run run = RunWithEchoes();
  PcCard card;
  card.name = L"Ethernet 2";
  card.up = true;
  run.facts.pc.way.card = card;
  EXPECT_EQ(FilledWith(run, L"{echoes answered} of {echoes sent} echoes to {asked} through {card}."),
            L"0 of 4 echoes to 192.168.1.100 through Ethernet 2.");
  EXPECT_EQ(FilledWith(run, L"Compare {target}"), L"Compare cnc-7");
}

TEST(ExplanationFactsTest, A_placeholder_without_a_value_leaves_no_gap) {
  const report::Run run;
  EXPECT_EQ(FilledWith(run, L"Compare \"TCP port\" ({tcp port}) with it"), L"Compare \"TCP port\" with it");
  EXPECT_EQ(FilledWith(run, L"番号（{tcp port}）とNC"), L"番号とNC");
  EXPECT_EQ(FilledWith(run, L"Open port {tcp port} there"), L"Open port there");
  EXPECT_EQ(FilledWith(run, L"Compare {target}"), L"Compare the typed address");
  EXPECT_EQ(FilledWith(run, L"not closed {tcp port"), L"not closed {tcp port");
  EXPECT_FALSE(Filled({L"{target}", L""}, run, Rung::Target, AnswerLanguage::English).complete);
}

TEST(ExplanationFactsTest, The_first_facts_whose_values_are_all_known_are_shown) {
  const Explanations explanations = ReadFrom(
      "line: x\nfacts: {asked} through {card}\n= {asked}\nfacts: {echoes sent} to {asked}\n= {asked}\n" +
      std::string(kRest));
  FoundExplanation found;
  found.explanation = &explanations.All().front();
  EXPECT_EQ(Shown(found, RunWithEchoes(), AnswerLanguage::English).facts, L"4 to 192.168.1.100");
  EXPECT_EQ(Shown(found, RunWithEchoes(), AnswerLanguage::Japanese).facts, L"192.168.1.100");
  EXPECT_EQ(Shown(found, {}, AnswerLanguage::English).facts, L"");
  EXPECT_EQ(Shown(found, {}, AnswerLanguage::Japanese).steps, std::vector<std::wstring>{L"d"});
  EXPECT_EQ(Shown({}, {}, AnswerLanguage::English).title, L"");
}

TEST(ExplanationFactsTest, Each_rule_about_the_words_is_checked) {
  const auto problemsOf = [](const std::string& more) {
    const Explanations explanations = ReadFrom("line: x\n" + more + kRest);
    const std::vector<std::wstring> problems = tarvik::test::WordProblems(explanations.All().front());
    return problems.empty() ? std::wstring() : problems.front().substr(0, problems.front().find(L':'));
  };
  EXPECT_EQ(problemsOf(""), L"");
  EXPECT_EQ(problemsOf("do: A\n= a\ndo: A\n= a\ndo: A\n= a\ndo: A\n= a\n"), L"");
  EXPECT_EQ(problemsOf("do: A\n= a\ndo: A\n= a\ndo: A\n= a\ndo: A\n= a\ndo: A\n= a\n"), L"too many steps");
  EXPECT_EQ(problemsOf("do: " + std::string(90, 'x') + "\n= a\n"), L"");
  EXPECT_EQ(problemsOf("do: " + std::string(91, 'x') + "\n= a\n"), L"too long");
  EXPECT_EQ(problemsOf("do: A\n= " + std::string(91, 'x') + "\n"), L"too long");
  EXPECT_EQ(problemsOf("do: {colour}\n= a\n"), L"unknown placeholder");
  EXPECT_EQ(problemsOf("do: A\n= {target\n"), L"unknown placeholder");
  EXPECT_EQ(problemsOf("good: A\n"), L"missing in a language");
}

}  // namespace
}  // namespace tarvik::report
