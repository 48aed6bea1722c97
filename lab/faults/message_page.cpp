#include "lab/faults/message_page.h"

#include "lab/faults/scenario_words.h"

namespace tarvik::lab {
namespace {

constexpr char kMessagesIntroduction[] =
    R"(<!-- Generated from resources/messages.cpp by build/native/lab/guide_pages. Edit the texts there. -->

# Messages / メッセージ一覧

Every text of Tarvik with its number, in both languages. Two people with different languages can tell each other the
number. The numbers are those in the folder Language.

Tarvikが表示する文と番号の一覧です。言語が違う相手には番号で伝えられます。番号はLanguageフォルダーのファイルと同じです。

Lines and boxes without a number, such as "Allocate Handle error=7", are the same in both languages:
[Where did it stop?](where-did-it-stop.en.md). 番号のない行は両言語とも同じです:
[どこで止まったか](where-did-it-stop.ja.md)

| No. | English | 日本語 | Meaning / 意味 |
|---|---|---|---|
)";

/// A text as a cell of a table. Captions lose their access keys.
std::string Cell(const std::string& text, bool caption) {
  const std::string shown = caption ? Caption(text) : text;
  return Replaced(Replaced(shown, "\r\n", "<br>"), "|", "\\|");
}

/// Captions have the numbers below 100, and the labels of the PMC window these.
bool IsCaption(int32_t id) {
  constexpr int32_t kFirstSentence = 101;
  constexpr int32_t kFirstPmcLabel = 137;
  constexpr int32_t kLastPmcLabel = 146;
  return id < kFirstSentence || (id >= kFirstPmcLabel && id <= kLastPmcLabel);
}

}  // namespace

std::string MessagePage(const GuideTexts& texts) {
  std::string page = kMessagesIntroduction;
  for (const auto& [id, both] : texts.messages) {
    const bool caption = IsCaption(id);
    page += "| " + std::to_string(id) + " | " + Cell(both.english, caption) + " | " +
            Cell(both.japanese, caption) + " | ";
    const auto title = texts.titles.find(id);
    if (title != texts.titles.end()) page += title->second.english + "<br>" + title->second.japanese + " ";
    page += "|\n";
  }
  return page;
}

}  // namespace tarvik::lab
