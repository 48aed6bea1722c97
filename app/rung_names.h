#pragma once

#include <vector>

namespace tarvik {

/// The short name of a rung of the ladder, as its field of the status bar shows it.
struct RungName {
  const wchar_t* english;
  const wchar_t* japanese;
};

/// The widest marks that follow a name.
inline constexpr RungName kWidestMark{L" FAIL", L" ×"};
/// The mark of a rung that has not been tested.
inline constexpr RungName kNotTestedMark{L" –", L" －"};

/// The rungs of this edition, in the order of the status bar's fields.
inline std::vector<RungName> RungNames(bool familyEdition) {
  std::vector<RungName> names = {{L"Name", L"名前"},   {L"PC", L"PC"},         {L"Gateway", L"ｹﾞｰﾄｳｪｲ"},
                                 {L"Target", L"相手"}, {L"NEXAL2", L"NEXAL2"}, {L"FTP", L"FTP"}};
  if (!familyEdition) names.insert(names.end() - 1, {L"K7", L"K7"});
  return names;
}

}  // namespace tarvik
