#include "lab/faults/stop_page.h"

#include <algorithm>

namespace tarvik::lab {
namespace {

constexpr size_t kShownColumns = 53;
constexpr char kGenerated[] =
    "<!-- Generated from docs/sources/where-did-it-stop.txt by build/native/lab/guide_pages. -->\n\n";

const BothTexts kTitle{"Where did it stop?", "どこで止まったか"};
const BothTexts kUse{
    "Find the last line of the list here. Check from 1 on, the nearest first. Then test again.",
    "結果欄の最後の行をここで探し、1から順に確認して、もう一度テストする。"};
const BothTexts kReply{"A reply without \"bytes=\" comes first: see there.",
                       "「bytes=」のない応答があれば、先にその欄を見る。"};
const BothTexts kLastLine{"Last line", "最後の行"};
const BothTexts kCheck{"Check, nearest first", "確認すること（近い順）"};
const BothTexts kMore{"All faults with all their lines", "すべての異常と表示される行（英語）"};
const BothTexts kGuide{"User guide", "使い方"};

std::string WhenOf(const Stop& stop, GuideLanguage language) {
  if (stop.when.english.empty()) return {};
  return language == &BothTexts::english ? "(" + stop.when.english + ")" : "（" + stop.when.japanese + "）";
}

std::string Padded(std::string text, size_t columns) {
  text.append(columns - std::min(columns, ColumnsOf(text)), ' ');
  return text;
}

/// What separates two sentences: Japanese ones need no space.
std::string SentenceSpace(GuideLanguage language) { return language == &BothTexts::english ? " " : ""; }

/// The steps in lines; none is split.
std::vector<std::string> StepLines(const Stop& stop, GuideLanguage language) {
  std::vector<std::string> lines;
  for (size_t i = 0; i < stop.steps.size(); ++i) {
    const std::string step = std::to_string(i + 1) + " " + stop.steps[i].text.*language;
    if (lines.empty() || kShownColumns + ColumnsOf(lines.back()) + 3 + ColumnsOf(step) > kMaxStopTextColumns)
      lines.push_back(step);
    else
      lines.back() += "   " + step;
  }
  return lines;
}

void AppendStop(std::string& text, const Stop& stop, GuideLanguage language) {
  std::vector<std::string> shown;
  for (const BothTexts& one : stop.shown) {
    if (!shown.empty() && ColumnsOf(shown.back()) + 3 + ColumnsOf(one.*language) < kShownColumns)
      shown.back() += " / " + one.*language;
    else
      shown.push_back(one.*language);
  }
  const std::string when = WhenOf(stop, language);
  if (!when.empty() && ColumnsOf(shown.back()) + 1 + ColumnsOf(when) < kShownColumns)
    shown.back() += SentenceSpace(language) + when;
  else if (!when.empty())
    shown.push_back(when);
  const std::vector<std::string> steps = StepLines(stop, language);
  for (size_t i = 0; i < std::max(shown.size(), steps.size()); ++i) {
    const std::string left = i < shown.size() ? shown[i] : std::string();
    text += i < steps.size() ? Padded(left, kShownColumns) + steps[i] : left;
    text += "\n";
  }
}

}  // namespace

std::string StopPage(const std::vector<StopSection>& sections, GuideLanguage language) {
  const std::string guide = language == &BothTexts::english ? "guide.en.md" : "guide.ja.md";
  std::string page = kGenerated;
  page +=
      "# " + kTitle.*language + "\n\n" + kUse.*language + SentenceSpace(language) + kReply.*language + "\n\n";
  page += "| " + kLastLine.*language + " | " + kCheck.*language + " |\n|---|---|\n";
  for (const StopSection& section : sections) {
    page += "| **" + section.title.*language + "** | |\n";
    for (const Stop& stop : section.stops) {
      page += "| ";
      for (const BothTexts& shown : stop.shown)
        page += (&shown == &stop.shown.front() ? "`" : "<br>`") + shown.*language + "`";
      if (!stop.when.english.empty()) page += " " + WhenOf(stop, language);
      page += " |";
      for (size_t i = 0; i < stop.steps.size(); ++i)
        page += " **" + std::to_string(i + 1) + "** " + stop.steps[i].text.*language;
      page += " |\n";
    }
  }
  return page + "\n[" + kMore.*language + "](faults.md) · [" + kGuide.*language + "](" + guide + ")\n";
}

std::string StopText(const std::vector<StopSection>& sections, GuideLanguage language) {
  std::string text =
      kTitle.*language + "  " + kUse.*language + SentenceSpace(language) + kReply.*language + "\n";
  for (const StopSection& section : sections) {
    std::string rule = "-- " + section.title.*language + " ";
    rule.append(kMaxStopTextColumns - std::min(kMaxStopTextColumns, ColumnsOf(rule)), '-');
    text += rule + "\n";
    for (const Stop& stop : section.stops) AppendStop(text, stop, language);
  }
  return text;
}

}  // namespace tarvik::lab
