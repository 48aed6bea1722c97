#include "lab/faults/scenario.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "lab/faults/scenario_words.h"

namespace tarvik::lab {
namespace {

constexpr const char* kRungNames[] = {"Ping", "CNC library", "K7", "FTP"};
constexpr const char* kGroupNames[] = {"Network", "Names", "CNC library", "K7", "FTP"};

}  // namespace

const char* NameOf(Rung rung) { return kRungNames[static_cast<size_t>(rung)]; }

const char* NameOf(FaultGroup group) { return kGroupNames[static_cast<size_t>(group)]; }

bool Scenario::HasTarget() const {
  // Every option has one value; the target follows the options.
  return WordsOf(CommandLine()).size() % 2 == 1;
}

Rung Scenario::HighestRung() const {
  constexpr long kLibraryBit = 2;
  constexpr long kK7Bit = 4;
  constexpr long kFtpBit = 8;
  long mask = 0;
  const std::vector<std::string> words = WordsOf(CommandLine());
  for (size_t i = 0; i + 1 < words.size(); ++i)
    if (words[i] == "-X") mask |= std::strtol(words[i + 1].c_str(), nullptr, 10);
  for (const Step& step : steps) {
    if (step.verb != "clicks") continue;
    if (step.what == "All Test") mask |= general ? kLibraryBit | kK7Bit : kLibraryBit;
    if (step.what == "FTP All Test") mask |= kFtpBit;
  }
  if ((mask & kFtpBit) != 0) return Rung::Ftp;
  if (general && (mask & kK7Bit) != 0) return Rung::K7;
  return (mask & kLibraryBit) != 0 ? Rung::CncLibrary : Rung::Ping;
}

std::vector<Scenario> ReadScenarios(const std::string& folder) {
  namespace fs = std::filesystem;
  std::vector<fs::path> paths;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error))
    if (entry.path().extension() == ".scenario") paths.push_back(entry.path());
  if (error) throw ScenarioError("cannot read the folder " + folder);
  std::sort(paths.begin(), paths.end());
  std::vector<Scenario> scenarios;
  for (const fs::path& path : paths) {
    std::ifstream file(path, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    scenarios.push_back(ReadScenario(path.stem().string(), text));
  }
  return scenarios;
}

std::string ToScenarioText(const Shown& shown) {
  std::string quoted = "\"" + Replaced(Replaced(shown.text, "\t", kTab), "\r\n", kNewLine) + "\"";
  switch (shown.kind) {
    case Shown::Kind::Line:
      return quoted;
    case Shown::Kind::AnyLine:
      return kAnyLine;
    case Shown::Kind::Box:
      return "box " + quoted + " answered " + shown.answer;
    case Shown::Kind::Sentence:
      return "The sentence: " + shown.text;
    case Shown::Kind::Marks:
      return "The marks: " + shown.text;
    case Shown::Kind::Field:
      break;
  }
  return "shows " + shown.field + " " + quoted;
}

std::string ToScenarioText(const Verdict& verdict) {
  switch (verdict.kind) {
    case Verdict::Kind::Passes:
      return "passes";
    case Verdict::Kind::NotRun:
      return "is not run";
    case Verdict::Kind::StopsAt:
      break;
  }
  return std::string("stops at ") + NameOf(verdict.rung);
}

}  // namespace tarvik::lab
