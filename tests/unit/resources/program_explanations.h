#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "report/explanation_facts.h"
#include "report/explanations.h"

namespace tarvik::test {

/// The files with the program's explanations, in the order in which the program contains them.
inline std::vector<std::filesystem::path> ExplanationFiles() {
  std::vector<std::filesystem::path> files;
  for (const auto& file : std::filesystem::directory_iterator(TARVIK_SOURCE_FOLDER "/resources/explanations"))
    if (file.path().extension() == ".txt") files.push_back(file.path());
  std::sort(files.begin(), files.end());
  return files;
}

inline std::string BytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The explanations of the program.
inline const report::Explanations& ProgramExplanations() {
  static const report::Explanations kExplanations = [] {
    report::Explanations explanations;
    for (const auto& file : ExplanationFiles()) explanations.Add(BytesOf(file));
    return explanations;
  }();
  return kExplanations;
}

inline constexpr size_t kMaxSteps = 5;
inline constexpr size_t kMaxStepColumns = 90;
inline constexpr size_t kMaxTextColumns = 120;

/// What is wrong with the words of an entry; empty = nothing.
inline std::vector<std::wstring> WordProblems(const report::Explanation& entry) {
  using report::Columns;
  std::vector<std::wstring> problems;
  const auto check = [&](const std::wstring& text, size_t maxColumns) {
    if (Columns(text) > maxColumns) problems.push_back(L"too long: " + text);
    for (size_t open = text.find(L'{'); open != std::wstring::npos; open = text.find(L'{', open + 1)) {
      const size_t close = text.find(L'}', open);
      const bool known =
          close != std::wstring::npos && report::IsPlaceholder(text.substr(open + 1, close - open - 1));
      if (!known) problems.push_back(L"unknown placeholder: " + text);
    }
  };
  const auto checkBoth = [&](const report::BothLanguages& texts, size_t maxColumns, bool required) {
    check(texts.english, maxColumns);
    check(texts.japanese, maxColumns);
    if (texts.english.empty() != texts.japanese.empty() || (required && texts.english.empty()))
      problems.push_back(L"missing in a language: " + texts.english + texts.japanese);
  };
  if (entry.steps.empty()) problems.push_back(L"no step: " + entry.title.english);
  if (entry.steps.size() > kMaxSteps) problems.push_back(L"too many steps: " + entry.title.english);
  for (const report::BothLanguages& step : entry.steps) checkBoth(step, kMaxStepColumns, true);
  for (const report::BothLanguages& facts : entry.facts) checkBoth(facts, kMaxTextColumns, true);
  checkBoth(entry.title, kMaxStepColumns, true);
  checkBoth(entry.meaning, kMaxTextColumns, true);
  checkBoth(entry.good, kMaxStepColumns, false);
  checkBoth(entry.ask, kMaxStepColumns, false);
  return problems;
}

}  // namespace tarvik::test
