// Compares what a scenario expects with what the tool showed and did.

#include "lab/faults/scenario_outcome.h"

#include <algorithm>
#include <string_view>

namespace tarvik::lab {
namespace {

// The comparison needs a table of the square of this; a result list holds at most 1,000 lines.
constexpr size_t kMaxComparedLines = 1500;

struct FirstLine {
  const char* begin;
  Rung rung;
};

constexpr FirstLine kFirstLines[] = {
    {"Get System Information test....", Rung::CncLibrary},
    {"K7Api test....", Rung::K7},
    {"FTP Connect test...", Rung::Ftp},
};

std::vector<std::string> ToScenarioLines(const std::vector<Shown>& shown) {
  std::vector<std::string> lines;
  lines.reserve(shown.size());
  for (const Shown& each : shown) lines.push_back(ToScenarioText(each));
  lines.resize(std::min(lines.size(), kMaxComparedLines));
  return lines;
}

/// A line diff by longest common subsequence: "- " is missing, "+ " is unexpected.
std::string Diff(const std::vector<std::string>& expected, const std::vector<std::string>& seen) {
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
  // A rung has passed when the next one begins. The FTP rung has no next one, so its lines alone decide.
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
    text += "The tool shows something else (- missing, + unexpected):\n";
    text += Diff(ToScenarioLines(scenario.shown), ToScenarioLines(shown));
  }
  const std::string expected = ToScenarioText(scenario.verdict);
  const std::string seen = ToScenarioText(VerdictOf(scenario, outcome));
  if (expected != seen) text += "The ladder: " + seen + ", expected: " + expected + "\n";
  if (!text.empty()) text = "lab/scenarios/" + scenario.name + ".scenario\n" + text;
  return text;
}

}  // namespace tarvik::lab
