#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/explanations.h"
#include "report/run.h"

namespace tarvik::report {

/// True for the name of a placeholder, such as "echoes answered" of "{echoes answered}".
bool IsPlaceholder(std::wstring_view name);

struct FilledText {
  std::wstring text;
  bool complete = true;  ///< every placeholder has a value
};

/// Replaces the placeholders of a text by the facts of the run. One without a value disappears together with
/// the brackets or the space around it, except that "{target}" then becomes words.
FilledText Filled(const BothLanguages& text, const Run& run, Rung rung, AnswerLanguage language);

/// An explanation as it is shown, in one language and with the facts of the run.
struct ShownExplanation {
  std::wstring title;
  std::vector<std::wstring> steps;
  std::wstring facts;  ///< can be empty
  std::wstring meaning;
  std::wstring good;  ///< can be empty
  std::wstring ask;   ///< can be empty
};

/// Everything is empty when nothing was found.
ShownExplanation Shown(const FoundExplanation& found, const Run& run, AnswerLanguage language);

}  // namespace tarvik::report
