#include "report/finding_texts.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/text.h"
#include "report/answer.h"
#include "report/finding_words.h"

namespace tarvik::report {
namespace {

constexpr AnswerLanguage kLanguages[] = {AnswerLanguage::English, AnswerLanguage::Japanese};

EchoSeries LongestEchoes() {
  EchoSeries echoes;
  echoes.address = echoes.otherSender = L"192.168.100.100";
  echoes.asked = echoes.sent = 9999;
  echoes.answered = 1000;
  echoes.slowestMs = 100;
  echoes.error = echoes.status = 11050;
  return echoes;
}

/// Facts that take as much room as they ever do in practice.
Run LongestFacts() {
  Run run;
  run.end = RunEnd::Finished;
  run.planned.fill(true);
  Facts& facts = run.facts;
  facts.name = {Progress::Ended, std::wstring(63, L'w'), false, L"192.168.100.100"};
  facts.pc.addresses = {{L"192.168.100.101", L"255.255.255.252", {L"192.168.200.200"}}};
  PcCard card;
  card.name = std::wstring(40, L'c');
  facts.pc.way.card = card;
  facts.gateway.tried = {LongestEchoes()};
  facts.target.echoes = LongestEchoes();
  facts.cnc.result = -32768;
  facts.cnc.callMs = 999'000;
  facts.cnc.port = 8193;
  facts.cnc.timeOutSeconds = 999;
  facts.cnc.type = L"31i(6912)";
  facts.k7.server = std::wstring(63, L's');
  facts.k7.errorCode = static_cast<int32_t>(0x9009F101);
  facts.k7.asked = facts.k7.answers = facts.k7.live = 9999;
  facts.ftp.entries = 199'999;
  facts.ftp.endReply = L"425 x";
  return run;
}

std::wstring SentenceFor(Finding finding, AnswerLanguage language) {
  const FindingWords& words = RowOf(finding).In(language);
  const report::Run run = LongestFacts();
  const std::wstring what = WithFacts(words.what, run, Rung::Gateway, language);
  const std::wstring todo = WithFacts(words.todo, run, Rung::Gateway, language);
  return language == AnswerLanguage::Japanese ? what + L"。" + (todo.empty() ? L"" : todo + L"。")
                                              : what + (todo.empty() ? L"." : L": " + todo + L".");
}

TEST(FindingTextsTest, Every_finding_has_its_row_with_texts_in_both_languages) {
  for (int i = 0; i < kFindingCount; ++i) {
    const FindingRow& row = RowOf(static_cast<Finding>(i));
    EXPECT_EQ(row.finding, static_cast<Finding>(i));
    for (const AnswerLanguage language : kLanguages) EXPECT_STRNE(row.In(language).what, L"") << i;
    EXPECT_EQ(*row.english.todo == 0, *row.japanese.todo == 0) << i;
  }
}

TEST(FindingTextsTest, A_failure_or_a_doubt_names_the_first_thing_to_do) {
  for (int i = 0; i < kFindingCount; ++i) {
    const FindingRow& row = RowOf(static_cast<Finding>(i));
    if (row.state == RungState::Failed || row.state == RungState::Doubtful)
      EXPECT_STRNE(row.english.todo, L"") << i;
  }
}

TEST(FindingTextsTest, No_sentence_is_longer_than_60_columns_with_the_longest_facts) {
  // Good only as the detail of a rung; never the sentence of a run.
  const std::set<Finding> onlyDetails = {Finding::NameResolved};
  for (int i = 0; i < kFindingCount; ++i)
    for (const AnswerLanguage language : kLanguages) {
      if (onlyDetails.contains(static_cast<Finding>(i))) continue;
      const std::wstring sentence = SentenceFor(static_cast<Finding>(i), language);
      EXPECT_LE(Columns(sentence), kMaxSentenceColumns) << testing::PrintToString(sentence);
    }
}

TEST(FindingTextsTest, Every_placeholder_is_a_known_fact) {
  const report::Run run = LongestFacts();
  for (int i = 0; i < kFindingCount; ++i)
    for (const AnswerLanguage language : kLanguages) {
      const FindingWords& words = RowOf(static_cast<Finding>(i)).In(language);
      for (const wchar_t* text : {words.what, words.todo, words.detail}) {
        if (text == nullptr) continue;
        const std::wstring filled = WithFacts(text, run, Rung::Target, language);
        EXPECT_EQ(filled.find(L'%'), std::wstring::npos) << testing::PrintToString(text);
        for (const wchar_t* at = text; *at != 0; ++at)
          if (*at == L'%')
            EXPECT_NE(std::wstring(L"ABCDEFGHIKLMNOPQRSTUVWXYZcfinoprstuz").find(at[1]), std::wstring::npos)
                << testing::PrintToString(text);
      }
    }
}

TEST(FindingTextsTest, A_full_width_character_takes_two_columns) {
  EXPECT_EQ(Columns(L"ab ()"), 5u);
  EXPECT_EQ(Columns(L"相手。"), 6u);
  EXPECT_EQ(Columns(L"ｹﾞｰﾄｳｪｲ"), 7u);
}

TEST(FindingTextsTest, The_texts_follow_the_language_of_the_programs_texts) {
  EXPECT_EQ(LanguageOfTexts(kBuiltInJapanese, 1033), AnswerLanguage::Japanese);
  EXPECT_EQ(LanguageOfTexts(kLanguageFile, 1041), AnswerLanguage::Japanese);
  EXPECT_EQ(LanguageOfTexts(kLanguageFile, 1033), AnswerLanguage::English);
  EXPECT_EQ(LanguageOfTexts(kBuiltInEnglish, 1041), AnswerLanguage::English);
}

TEST(FindingTextsTest, A_mark_is_a_word_or_a_sign_and_never_empty) {
  EXPECT_STREQ(MarkOf(RungState::Good, AnswerLanguage::English), L"OK");
  EXPECT_STREQ(MarkOf(RungState::Failed, AnswerLanguage::English), L"FAIL");
  EXPECT_STREQ(MarkOf(RungState::Doubtful, AnswerLanguage::Japanese), L"△");
  EXPECT_STREQ(MarkOf(RungState::NotTested, AnswerLanguage::Japanese), L"－");
  EXPECT_STREQ(MarkOf(RungState::LibraryMissing, AnswerLanguage::English), L"none");
  EXPECT_STREQ(MarkOf(RungState::LibraryMissing, AnswerLanguage::Japanese), L"なし");
}

}  // namespace
}  // namespace tarvik::report
