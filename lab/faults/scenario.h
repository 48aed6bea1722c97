#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::lab {

/// A scenario file is malformed or cannot be set up. The text names the file and the line.
class ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The rungs of the ladder, lowest first.
enum class Rung { Ping, CncLibrary, K7, Ftp };

const char* NameOf(Rung rung);

/// The chapters of the page of faults.
enum class FaultGroup { Network, Names, CncLibrary, K7, Ftp };

inline constexpr FaultGroup kFaultGroups[] = {FaultGroup::Network, FaultGroup::Names, FaultGroup::CncLibrary,
                                              FaultGroup::K7, FaultGroup::Ftp};

const char* NameOf(FaultGroup group);

/// One line below "In the laboratory:": a change to the network, or a server to start.
struct Change {
  std::string verb;                ///< "cable out", "ftp server", ...
  std::string host;                ///< "pc", "gateway", "near" or "far"; empty when the verb takes no host
  std::vector<std::string> words;  ///< the arguments after verb and host
  std::vector<std::string> lines;  ///< the more deeply indented lines that follow
  int line = 0;                    ///< line number in the file
};

/// One line below "The technician:".
struct Step {
  std::string verb;  ///< "starts" (first), "types", "ticks" or "clicks"
  std::string what;  ///< command line, field or button
  std::string text;  ///< the text to type
  int line = 0;      ///< line number in the file
};

/// One thing that the tool shows.
struct Shown {
  enum class Kind {
    Line,      ///< a line of the result list
    AnyLine,   ///< a line whose text comes from Windows; matches any line
    Box,       ///< a message box
    Field,     ///< the final text of a field
    Sentence,  ///< the final sentence above the result list, "none" when it is empty
    Marks,     ///< the final fields of the status bar
  };
  Kind kind = Kind::Line;
  std::string text;
  std::string field;   ///< Field: its name
  std::string answer;  ///< Box: "OK", "Cancel", "Yes" or "No"

  friend bool operator==(const Shown&, const Shown&) = default;
};

/// How far the ladder got.
struct Verdict {
  enum class Kind {
    Passes,   ///< it began every requested rung
    StopsAt,  ///< it began no rung above `rung`
    NotRun,   ///< the scenario does not run the ladder
  };
  Kind kind = Kind::Passes;
  Rung rung = Rung::Ping;
};

/// A fault as its file describes it. lab/scenarios/README.md documents the file format.
struct Scenario {
  std::string name;  ///< file name without extension
  std::string title;
  FaultGroup group = FaultGroup::Network;
  bool general = false;   ///< uses the general edition instead of the family's
  std::string wrong;      ///< the page's description of the fault
  std::string advice;     ///< the page's advice
  std::string onWindows;  ///< what differs on a real Windows PC; empty when nothing is known to
  std::vector<Change> changes;
  std::vector<Step> steps;
  std::vector<Shown> shown;
  Verdict verdict;

  const std::string& CommandLine() const { return steps.front().what; }
  /// True when the command line names a target, so that the ladder starts by itself.
  bool HasTarget() const;
  /// The highest rung that the command line and the clicked buttons request.
  Rung HighestRung() const;
};

/// Parses a scenario. `name`: file name without extension. Throws ScenarioError.
Scenario ReadScenario(const std::string& name, std::string_view text);

/// Reads every "*.scenario" file of the folder, sorted by name. Throws ScenarioError.
std::vector<Scenario> ReadScenarios(const std::string& folder);

/// The text in a scenario file, without indentation.
std::string ToScenarioText(const Shown& shown);
std::string ToScenarioText(const Verdict& verdict);

}  // namespace tarvik::lab
