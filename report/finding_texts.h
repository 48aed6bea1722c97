#pragma once

#include <cstddef>
#include <string_view>

#include "report/finding.h"
#include "report/rung.h"
#include "resources/messages.h"

namespace tarvik::report {

/// The languages of the answer. Its texts are compiled in, so that they appear without a language file.
enum class AnswerLanguage { English, Japanese };

/// The language in which the program's own texts appear.
AnswerLanguage LanguageOfTexts(LanguageMode mode, int32_t languageFile);

/// One finding in one language. Only ASCII letters after a "%" are replaced by facts; see
/// finding_words.cpp.
struct FindingWords {
  const wchar_t* what;    ///< what was found
  const wchar_t* todo;    ///< the first thing to do; empty = nothing
  const wchar_t* detail;  ///< `what` with the facts, for the rung's whole text; null = `what`
};

struct FindingRow {
  Finding finding;
  RungState state;
  FindingWords english;
  FindingWords japanese;

  const FindingWords& In(AnswerLanguage language) const {
    return language == AnswerLanguage::Japanese ? japanese : english;
  }
};

const FindingRow& RowOf(Finding finding);

/// "OK", "!", "FAIL", "none" for a missing library, or an en dash; in Japanese a circle, a triangle, a cross,
/// the word for "none" or a dash.
const wchar_t* MarkOf(RungState state, AnswerLanguage language);

/// The rung's name as the status bar shows it.
const wchar_t* NameOf(Rung rung, AnswerLanguage language);

/// The width of a text in half-width columns; a full-width character takes two.
size_t Columns(std::wstring_view text);

/// The longest sentence, in columns.
inline constexpr size_t kMaxSentenceColumns = 60;

}  // namespace tarvik::report
