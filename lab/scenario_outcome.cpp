#include "lab/scenario_outcome.h"

#include <algorithm>
#include <string_view>

namespace tarvik::lab {
namespace {

// More than this and the table of the comparison would be large; a list holds a thousand lines.
constexpr size_t kMostCompared = 1500;

struct FirstLine {
  const char* begin;
  Rung rung;
};

constexpr FirstLine kFirstLines[] = {
    {"Get System Information test....", Rung::CncLibrary},
    {"K7Api test....", Rung::K7},
    {"FTP Connect test...", Rung::Ftp},
};

std::vector<std::string> Written(const std::vector<Shown>& shown) {
  std::vector<std::string> lines;
  lines.reserve(shown.size());
  for (const Shown& each : shown) lines.push_back(InScenarioFile(each));
  lines.resize(std::min(lines.size(), kMostCompared));
  return lines;
}

/// The lines of both with "  ", "- " or "+ " before them, by their longest common subsequence.
std::string LineByLine(const std::vector<std::string>& expected, const std::vector<std::string>& seen) {
  std::vector<std::vector<size_t>> common(expected.size() + 1, std::vector<size_t>(seen.size() + 1));
  for (size_t i = expected.size(); i-- > 0;) {
    for (size_t k = seen.size(); k-- > 0;) {
      common[i][k] =
          expected[i] == seen[k] ? common[i + 1][k + 1] + 1 : std::max(common[i + 1][k], common[i][k + 1]);
    }
  }
  std::string text;
  size_t i = 0;
  size_t k = 0;
  while (i < expected.size() || k < seen.size()) {
    if (i < expected.size() && k < seen.size() && expected[i] == seen[k]) {
      text.append("    ").append(expected[i]).append("\n");
      ++i;
      ++k;
    } else if (k == seen.size() || (i < expected.size() && common[i + 1][k] >= common[i][k + 1])) {
      text.append("  - ").append(expected[i++]).append("\n");
    } else {
      text.append("  + ").append(seen[k++]).append("\n");
    }
  }
  return text;
}

Verdict VerdictOf(const Scenario& scenario, const Outcome& outcome) {
  if (!outcome.highestBegun) return {Verdict::Kind::NotRun, {}};
  const Rung begun = *outcome.highestBegun;
  // Above FTP there is no rung that could tell whether it passed; what it says tells it.
  const bool stoppedByItself = scenario.verdict.kind == Verdict::Kind::StopsAt &&
                               scenario.verdict.rung >= begun &&
                               (begun < scenario.HighestRung() || begun == Rung::Ftp);
  if (stoppedByItself) return scenario.verdict;
  if (begun >= scenario.HighestRung()) return {Verdict::Kind::Passes, {}};
  return {Verdict::Kind::StopsAt, begun};
}

}  // namespace

std::optional<Rung> HighestBegun(const std::vector<std::string>& lines) {
  std::optional<Rung> highest;
  for (const std::string& line : lines) {
    Rung rung = Rung::Ping;
    for (const FirstLine& first : kFirstLines)
      if (line == first.begin) rung = first.rung;
    highest = std::max(highest.value_or(Rung::Ping), rung);
  }
  return highest;
}

std::string Difference(const Scenario& scenario, const Outcome& outcome) {
  std::string text;
  std::vector<Shown> shown = outcome.shown;
  for (size_t i = 0; i < std::min(shown.size(), scenario.shown.size()); ++i)
    if (scenario.shown[i].kind == Shown::Kind::AnyLine && shown[i].kind == Shown::Kind::Line)
      shown[i] = scenario.shown[i];
  if (scenario.shown != shown) {
    text += "The tool says other things (- missing, + not expected):\n";
    text += LineByLine(Written(scenario.shown), Written(shown));
  }
  const std::string expected = InScenarioFile(scenario.verdict);
  const std::string seen = InScenarioFile(VerdictOf(scenario, outcome));
  if (expected != seen) text += "The ladder: " + seen + ", and not: " + expected + "\n";
  if (!text.empty()) text = "lab/scenarios/" + scenario.name + ".scenario\n" + text;
  return text;
}

}  // namespace tarvik::lab
