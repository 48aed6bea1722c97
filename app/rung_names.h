#pragma once

#include <vector>

#include "report/finding_texts.h"
#include "report/rung.h"

namespace tarvik {

/// The short name of a rung of the ladder, as its field of the status bar shows it.
struct RungName {
  const wchar_t* english;
  const wchar_t* japanese;
};

/// The widest marks that follow a name.
inline constexpr RungName kWidestMark{L" FAIL", L" なし"};

/// The rungs of this edition, in the order of the status bar's fields.
inline std::vector<report::Rung> RungsOf(bool familyEdition) {
  std::vector<report::Rung> rungs;
  for (int i = 0; i < report::kRungCount; ++i)
    if (!familyEdition || static_cast<report::Rung>(i) != report::Rung::K7)
      rungs.push_back(static_cast<report::Rung>(i));
  return rungs;
}

/// Their names.
inline std::vector<RungName> RungNames(bool familyEdition) {
  std::vector<RungName> names;
  for (const report::Rung rung : RungsOf(familyEdition))
    names.push_back({report::NameOf(rung, report::AnswerLanguage::English),
                     report::NameOf(rung, report::AnswerLanguage::Japanese)});
  return names;
}

}  // namespace tarvik
