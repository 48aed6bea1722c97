#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::lab {

/// A scenario file cannot be read, or what it says cannot be made; the text names the file and the line.
class ScenarioError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The rungs of the ladder, lowest first.
enum class Rung { Ping, CncLibrary, K7, Ftp };

const char* NameOf(Rung rung);

/// Where a fault is at home; the page has a chapter for each.
enum class FaultGroup { Network, Names, CncLibrary, K7, Ftp };

inline constexpr FaultGroup kFaultGroups[] = {FaultGroup::Network, FaultGroup::Names, FaultGroup::CncLibrary,
                                              FaultGroup::K7, FaultGroup::Ftp};

const char* NameOf(FaultGroup group);

/// One thing that is made wrong in the laboratory, or one server that is switched on in it.
struct Change {
  std::string verb;                ///< "cable out", "ftp server", ...
  std::string host;                ///< "pc", "gateway", "near" or "far"; empty where the verb takes none
  std::vector<std::string> words;  ///< what stands behind
  std::vector<std::string> lines;  ///< the deeper lines below it
  int line = 0;                    ///< in the file
};

/// One thing that the technician does.
struct Step {
  std::string verb;  ///< "starts" (first), "types", "ticks" or "clicks"
  std::string what;  ///< command line, field or button
  std::string text;  ///< what is typed
  int line = 0;
};

/// What the tool shows, in its order.
struct Shown {
  enum class Kind {
    Line,     ///< a line of the result list
    AnyLine,  ///< a line whose words are Windows' own and may be any
    Box,      ///< a message box
    Field,    ///< what a field of the window says at the end
  };
  Kind kind = Kind::Line;
  std::string text;
  std::string field;   ///< of a Field, its name
  std::string answer;  ///< of a Box: "OK", "Cancel", "Yes" or "No"

  friend bool operator==(const Shown&, const Shown&) = default;
};

/// What the ladder did with the fault.
struct Verdict {
  enum class Kind {
    Passes,   ///< every rung that was asked for was begun
    StopsAt,  ///< none above `rung` was
    NotRun,   ///< the scenario is about something else
  };
  Kind kind = Kind::Passes;
  Rung rung = Rung::Ping;
};

/// A fault of the laboratory, as its file tells it. lab/scenarios/README.md describes the file.
struct Scenario {
  std::string name;  ///< of the file, without its end
  std::string title;
  FaultGroup group = FaultGroup::Network;
  bool general = false;  ///< the general edition instead of the family's
  std::string wrong;     ///< what is wrong, for the page
  std::string advice;    ///< what to do, for the page
  std::vector<Change> changes;
  std::vector<Step> steps;
  std::vector<Shown> shown;
  Verdict verdict;

  const std::string& CommandLine() const { return steps.front().what; }
  /// The command line names a target, so that the ladder begins by itself.
  bool HasTarget() const;
  /// The highest rung that the ladder was asked for, by the command line and by the buttons.
  Rung HighestRung() const;
};

/// Reads the text of a file; `name` is the file's, without its end. Throws ScenarioError.
Scenario ReadScenario(const std::string& name, std::string_view text);

/// Every "*.scenario" of the folder, in the order of the names. Throws ScenarioError.
std::vector<Scenario> ReadScenarios(const std::string& folder);

/// As a scenario file writes it, without the indentation.
std::string InScenarioFile(const Shown& shown);
std::string InScenarioFile(const Verdict& verdict);

}  // namespace tarvik::lab
