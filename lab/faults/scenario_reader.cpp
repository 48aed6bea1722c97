// The parser of scenario files: first headings with their indented lines, then each section by its heading. A
// new verb of the laboratory is added to kVerbs here and carried out in scenario_setup.cpp.

#include <algorithm>
#include <iterator>

#include "lab/faults/scenario.h"
#include "lab/faults/scenario_words.h"
#include "lab/pc/window_parts.h"

namespace tarvik::lab {
namespace {

struct VerbRule {
  const char* verb;
  size_t minWords;  ///< after verb and host
  size_t maxWords;
  bool hasHost;
  bool hasLines;  ///< more deeply indented lines may follow
};

constexpr VerbRule kVerbs[] = {
    {"cable out", 0, 0, true, false},     {"address", 1, 16, true, false},
    {"gateway", 1, 1, true, false},       {"second card", 1, 1, false, false},
    {"name", 2, 2, false, false},         {"route", 3, 3, true, false},
    {"forwards", 0, 0, true, false},      {"filter", 2, 64, true, false},
    {"line speed", 2, 2, true, false},    {"controller", 0, 0, true, true},
    {"ftp server", 1, 1, true, true},     {"faulty ftp server", 1, 16, true, false},
    {"k7 server", 0, 0, false, true},     {"k7 service", 1, 1, false, true},
    {"services file", 0, 0, false, true},
};

constexpr Rung kRungs[] = {Rung::Ping, Rung::CncLibrary, Rung::K7, Rung::Ftp};
constexpr const char* kHostNames[] = {"pc", "gateway", "near", "far"};
constexpr const char* kAnswers[] = {"OK", "Cancel", "Yes", "No"};

std::string_view TextOf(const char* name) { return name; }
std::string_view TextOf(const std::string& name) { return name; }
std::string_view TextOf(const WindowPart& part) { return part.name; }
std::string_view TextOf(Rung rung) { return NameOf(rung); }
std::string_view TextOf(FaultGroup group) { return NameOf(group); }

/// The element of that name, or the end.
template <typename Names>
auto Find(const Names& names, std::string_view name) {
  return std::find_if(std::begin(names), std::end(names),
                      [name](const auto& each) { return TextOf(each) == name; });
}

template <typename Names>
bool Has(const Names& names, std::string_view name) {
  return Find(names, name) != std::end(names);
}

template <typename Names>
std::string Listed(const Names& names) {
  std::string text;
  for (const auto& name : names) text.append(text.empty() ? "\"" : ", \"").append(TextOf(name)).append("\"");
  return text;
}

/// A heading, the text after it on the same line, and the indented lines below it.
struct Section {
  std::string heading;
  std::string value;
  struct Line {
    std::string text;  ///< without its indentation
    size_t depth = 0;
    int number = 0;
  };
  std::vector<Line> lines;
  int number = 0;
};

class Reader {
 public:
  Reader(const std::string& name, std::string_view text) : file_(name + ".scenario") {
    scenario_.name = name;
    Split(text);
  }

  Scenario Read();

 private:
  [[noreturn]] void Fail(int line, const std::string& why) const {
    throw ScenarioError(file_ + ":" + std::to_string(line) + ": " + why);
  }

  void Split(std::string_view text);
  void ReadSection(const Section& section);
  std::string Value(const Section& section) const;
  std::string Prose(const Section& section) const;
  void ReadChanges(const Section& section);
  Change ReadChange(const Section::Line& line) const;
  void ReadSteps(const Section& section);
  void CheckPart(const Step& step) const;
  void ReadShown(const Section& section);
  std::string Quoted(const Section::Line& line, std::string_view& after) const;
  void ReadVerdict(const Section& section);
  void Check() const;

  std::string file_;
  std::vector<Section> sections_;
  std::vector<std::string> seen_;
  Scenario scenario_;
  std::string sentence_;
  std::string marks_;
  int last_ = 0;
};

void Reader::Split(std::string_view text) {
  for (int number = 1; !text.empty(); ++number) {
    const size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    last_ = number;
    if (Trimmed(line).empty() || line.starts_with('#')) continue;
    const size_t depth = line.find_first_not_of(' ');
    if (line[depth] == '\t') Fail(number, "indent with spaces, not with tabs");
    if (depth != 0) {
      if (sections_.empty()) Fail(number, "this line needs a heading before it, such as \"Title:\"");
      sections_.back().lines.push_back({std::string(Trimmed(line)), depth, number});
      continue;
    }
    const size_t colon = line.find(':');
    if (colon == std::string_view::npos) {
      Fail(number, "a heading ends with \":\"; the lines below it are indented");
    }
    sections_.push_back(
        {std::string(line.substr(0, colon)), std::string(Trimmed(line.substr(colon + 1))), {}, number});
  }
}

std::string Reader::Value(const Section& section) const {
  if (section.value.empty())
    Fail(section.number, "\"" + section.heading + ":\" needs a value on the same line");
  if (!section.lines.empty())
    Fail(section.lines.front().number, "\"" + section.heading + ":\" takes no lines below it");
  return section.value;
}

std::string Reader::Prose(const Section& section) const {
  std::string text = section.value;
  for (const Section::Line& line : section.lines) text.append(text.empty() ? "" : " ").append(line.text);
  if (text.empty()) Fail(section.number, "\"" + section.heading + ":\" needs a text");
  return text;
}

Change Reader::ReadChange(const Section::Line& line) const {
  for (const VerbRule& rule : kVerbs) {
    const std::string_view verb = rule.verb;
    if (!line.text.starts_with(verb)) continue;
    const std::string_view after = std::string_view(line.text).substr(verb.size());
    if (!after.empty() && after.front() != ' ') continue;
    Change change{rule.verb, {}, WordsOf(after), {}, line.number};
    if (rule.hasHost) {
      if (change.words.empty() || !Has(kHostNames, change.words.front())) {
        Fail(line.number, "\"" + change.verb + "\" needs a host: " + Listed(kHostNames));
      }
      change.host = change.words.front();
      change.words.erase(change.words.begin());
    }
    if (change.words.size() < rule.minWords) Fail(line.number, "too few words in \"" + line.text + "\"");
    if (change.words.size() > rule.maxWords)
      Fail(line.number, "\"" + change.words[rule.maxWords] + "\" is one word too many");
    return change;
  }
  std::string known;
  for (const VerbRule& rule : kVerbs) known.append(known.empty() ? "" : ", ").append(rule.verb);
  Fail(line.number, "the laboratory does not know \"" + line.text + "\", only " + known);
}

void Reader::ReadChanges(const Section& section) {
  for (const Section::Line& line : section.lines) {
    if (line.depth <= section.lines.front().depth) {
      scenario_.changes.push_back(ReadChange(line));
      continue;
    }
    Change& change = scenario_.changes.back();
    const auto rule = std::find_if(std::begin(kVerbs), std::end(kVerbs),
                                   [&change](const VerbRule& each) { return change.verb == each.verb; });
    if (!rule->hasLines) Fail(line.number, "\"" + change.verb + "\" takes no lines below it");
    change.lines.push_back(line.text);
  }
}

void Reader::ReadSteps(const Section& section) {
  for (const Section::Line& line : section.lines) {
    const size_t end = std::min(line.text.find(' '), line.text.size());
    Step step{line.text.substr(0, end), std::string(Trimmed(line.text.substr(end))), {}, line.number};
    const bool first = scenario_.steps.empty();
    if (first != (step.verb == "starts")) {
      Fail(line.number, "the first step, and only the first, is \"starts COMMAND LINE\"");
    }
    if (step.verb == "types") {
      const size_t colon = step.what.find(':');
      if (colon == std::string::npos) Fail(line.number, "write \"types FIELD: TEXT\"");
      step.text = Trimmed(std::string_view(step.what).substr(colon + 1));
      step.what.resize(colon);
    } else if (step.verb != "starts" && step.verb != "ticks" && step.verb != "clicks") {
      Fail(line.number,
           "a step is \"starts\", \"types\", \"ticks\" or \"clicks\", not \"" + step.verb + "\"");
    }
    CheckPart(step);
    scenario_.steps.push_back(std::move(step));
  }
}

void Reader::CheckPart(const Step& step) const {
  const bool known = step.verb == "starts" || (step.verb == "types" && FindPart(kFields, step.what)) ||
                     (step.verb == "ticks" && FindPart(kCheckBoxes, step.what)) ||
                     (step.verb == "clicks" && FindPart(kButtons, step.what));
  if (known) return;
  const std::string choice = step.verb == "types"   ? Listed(kFields)
                             : step.verb == "ticks" ? Listed(kCheckBoxes)
                                                    : Listed(kButtons);
  Fail(step.line,
       "cannot " + step.verb.substr(0, step.verb.size() - 1) + " \"" + step.what + "\", only " + choice);
}

std::string Reader::Quoted(const Section::Line& line, std::string_view& after) const {
  const size_t first = line.text.find('"');
  const size_t last = line.text.rfind('"');
  if (first == last) Fail(line.number, "write what the tool shows in double quotes");
  after = std::string_view(line.text).substr(last + 1);
  const std::string text = line.text.substr(first + 1, last - first - 1);
  return Replaced(Replaced(text, kTab, "\t"), kNewLine, "\r\n");
}

void Reader::ReadShown(const Section& section) {
  constexpr std::string_view kBox = "box ";
  constexpr std::string_view kField = "shows ";
  constexpr std::string_view kAnswered = " answered ";
  for (const Section::Line& line : section.lines) {
    if (line.text == kAnyLine) {
      scenario_.shown.push_back({Shown::Kind::AnyLine, {}, {}, {}});
      continue;
    }
    std::string_view after;
    Shown shown;
    shown.text = Quoted(line, after);
    const std::string before(Trimmed(line.text.substr(0, line.text.find('"'))));
    if (line.text.starts_with(kBox)) {
      shown.kind = Shown::Kind::Box;
      if (before != Trimmed(kBox)) Fail(line.number, "write: box \"TEXT\" answered OK");
      if (after.starts_with(kAnswered)) shown.answer = after.substr(kAnswered.size());
      if (!Has(kAnswers, shown.answer)) {
        Fail(line.number, "after the text of a box write \"answered\" and one of " + Listed(kAnswers));
      }
    } else if (line.text.starts_with(kField)) {
      shown.kind = Shown::Kind::Field;
      shown.field = before.substr(std::min(kField.size(), before.size()));
      if (!after.empty()) Fail(line.number, "write: shows FIELD \"TEXT\"");
      if (!FindText(shown.field))
        Fail(line.number,
             "there is no field \"" + shown.field + "\", only " + Listed(kFields) + ", " + Listed(kLabels));
    } else if (!before.empty() || !after.empty()) {
      Fail(line.number, "write only the text in double quotes");
    }
    scenario_.shown.push_back(std::move(shown));
  }
}

void Reader::ReadVerdict(const Section& section) {
  constexpr std::string_view kStopsAt = "stops at ";
  const std::string value = Value(section);
  if (value == "passes") {
    scenario_.verdict = {Verdict::Kind::Passes, {}};
  } else if (value == "is not run") {
    scenario_.verdict = {Verdict::Kind::NotRun, {}};
  } else if (value.starts_with(kStopsAt) && Has(kRungs, value.substr(kStopsAt.size()))) {
    scenario_.verdict = {Verdict::Kind::StopsAt, *Find(kRungs, value.substr(kStopsAt.size()))};
  } else {
    Fail(section.number, "the ladder \"passes\", \"is not run\" or \"stops at\" one of " + Listed(kRungs));
  }
}

void Reader::ReadSection(const Section& section) {
  if (Has(seen_, section.heading)) Fail(section.number, "\"" + section.heading + ":\" appears twice");
  seen_.push_back(section.heading);
  if (section.heading == "Title") {
    scenario_.title = Value(section);
  } else if (section.heading == "Group") {
    const auto group = Find(kFaultGroups, Value(section));
    if (group == std::end(kFaultGroups)) Fail(section.number, "a group is one of " + Listed(kFaultGroups));
    scenario_.group = *group;
  } else if (section.heading == "Edition") {
    if (Value(section) != "general") Fail(section.number, "the only other edition is \"general\"");
    scenario_.general = true;
  } else if (section.heading == "What is wrong") {
    scenario_.wrong = Prose(section);
  } else if (section.heading == "What to do") {
    scenario_.advice = Prose(section);
  } else if (section.heading == "On Windows") {
    scenario_.onWindows = Prose(section);
  } else if (section.heading == "In the laboratory") {
    ReadChanges(section);
  } else if (section.heading == "The technician") {
    ReadSteps(section);
  } else if (section.heading == "The tool says") {
    ReadShown(section);
  } else if (section.heading == "The sentence") {
    sentence_ = Value(section);
  } else if (section.heading == "The marks") {
    marks_ = Value(section);
  } else if (section.heading == "The ladder") {
    ReadVerdict(section);
  } else {
    Fail(section.number, "\"" + section.heading + ":\" is not a heading of a scenario");
  }
}

void Reader::Check() const {
  for (const char* heading :
       {"Title", "Group", "What is wrong", "What to do", "The technician", "The tool says", "The ladder"}) {
    if (!Has(seen_, heading)) Fail(last_, std::string("\"") + heading + ":\" is missing");
  }
  if (scenario_.steps.empty()) Fail(last_, "\"The technician:\" needs a step");
  if (scenario_.shown.empty()) Fail(last_, "\"The tool says:\" needs a line");
  const Verdict& verdict = scenario_.verdict;
  // That the ladder stopped shows only when a higher rung was requested. FTP is the highest.
  if (verdict.kind == Verdict::Kind::StopsAt && verdict.rung != Rung::Ftp &&
      scenario_.HighestRung() <= verdict.rung) {
    Fail(last_, std::string("request a higher rung with -X, or nothing shows that the ladder stops at ") +
                    NameOf(verdict.rung));
  }
}

Scenario Reader::Read() {
  for (const Section& section : sections_) ReadSection(section);
  Check();
  // What is missing in the file appears as unexpected when the scenario runs.
  if (!sentence_.empty()) scenario_.shown.push_back({Shown::Kind::Sentence, sentence_, {}, {}});
  if (!marks_.empty()) scenario_.shown.push_back({Shown::Kind::Marks, marks_, {}, {}});
  return std::move(scenario_);
}

}  // namespace

Scenario ReadScenario(const std::string& name, std::string_view text) { return Reader(name, text).Read(); }

}  // namespace tarvik::lab
