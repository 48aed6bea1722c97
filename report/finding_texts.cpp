#include "report/finding_texts.h"

#include "report/finding_rows.h"

namespace tarvik::report {
namespace {

constexpr int32_t kJapaneseFile = 1041;

constexpr const wchar_t* kNames[][2] = {
    {L"Name", L"名前"},     {L"PC", L"PC"}, {L"Gateway", L"ｹﾞｰﾄｳｪｲ"}, {L"Target", L"相手"},
    {L"NEXAL2", L"NEXAL2"}, {L"K7", L"K7"}, {L"FTP", L"FTP"}};
static_assert(sizeof kNames / sizeof *kNames == kRungCount);

}  // namespace

AnswerLanguage LanguageOfTexts(LanguageMode mode, int32_t languageFile) {
  const bool japanese = mode == kBuiltInJapanese || (mode == kLanguageFile && languageFile == kJapaneseFile);
  return japanese ? AnswerLanguage::Japanese : AnswerLanguage::English;
}

const FindingRow& RowOf(Finding finding) {
  const auto index = static_cast<size_t>(finding);
  const size_t firstService = PingRows().size();
  return index < firstService ? PingRows()[index] : ServiceRows()[index - firstService];
}

const wchar_t* MarkOf(RungState state, AnswerLanguage language) {
  const bool japanese = language == AnswerLanguage::Japanese;
  switch (state) {
    case RungState::Good:
      return japanese ? L"○" : L"OK";
    case RungState::Doubtful:
      return japanese ? L"△" : L"!";
    case RungState::Failed:
      return japanese ? L"×" : L"FAIL";
    case RungState::LibraryMissing:
      return japanese ? L"なし" : L"none";
    default:
      return japanese ? L"－" : L"–";
  }
}

const wchar_t* NameOf(Rung rung, AnswerLanguage language) {
  return kNames[static_cast<size_t>(rung)][language == AnswerLanguage::Japanese ? 1 : 0];
}

size_t Columns(std::wstring_view text) {
  size_t columns = 0;
  for (const wchar_t letter : text) {
    const bool halfWidthKana = letter >= 0xFF61 && letter <= 0xFF9F;
    columns += letter < 0x80 || halfWidthKana ? 1 : 2;
  }
  return columns;
}

}  // namespace tarvik::report
