#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lab/faults/guide_texts.h"

namespace tarvik::lab {

struct StopStep {
  BothTexts text;
  std::vector<std::string> faults;  ///< names of the scenarios that it finds
};

/// One row of the page: what the user sees last, and what to check then.
struct Stop {
  std::vector<BothTexts> shown;  ///< any of them
  BothTexts when;                ///< what else must be so; can be empty
  std::vector<StopStep> steps;   ///< nearest to the user first
};

struct StopSection {
  BothTexts title;
  std::vector<Stop> stops;
};

/// Reads docs/sources/where-did-it-stop.txt. Throws GuideError. Each English text has its Japanese one in the
/// next line, after "= ".
///
///   section: TITLE      a heading
///   stop: A | B         a new row: what is shown last; without a Japanese line the same in both languages
///   when: TEXT          an addition to "stop"
///   step: TEXT          what to check; "@name" is a step that the explanations share
///   faults: NAME ...    the scenarios that the step above finds
///
/// "{115}" is the message with this number, without access key.
std::vector<StopSection> ReadStops(std::string_view text, const GuideTexts& texts);

/// The page in Markdown.
std::string StopPage(const std::vector<StopSection>& sections, GuideLanguage language);

/// The page as plain text with fixed pitch.
std::string StopText(const std::vector<StopSection>& sections, GuideLanguage language);

/// The size of the plain text: one window of Notepad on a screen of 1920 x 1080.
inline constexpr size_t kMaxStopTextLines = 52;
inline constexpr size_t kMaxStopTextColumns = 165;

}  // namespace tarvik::lab
