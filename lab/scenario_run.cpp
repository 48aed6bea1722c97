#include "lab/scenario_run.h"

#include <algorithm>
#include <functional>

#include "lab/main_window.h"
#include "lab/program.h"
#include "lab/window_parts.h"

namespace tarvik::lab {
namespace {

using Lines = std::vector<std::string>;

constexpr std::chrono::seconds kLongestRun(120);
constexpr char kStartUpReport[] = "szDescription:";

BoxButton ButtonOf(const std::string& answer) {
  if (answer == "Cancel") return BoxButton::Cancel;
  if (answer == "Yes") return BoxButton::Yes;
  return answer == "No" ? BoxButton::No : BoxButton::Ok;
}

const char* NameOf(BoxButton button) {
  switch (button) {
    case BoxButton::Cancel:
      return "Cancel";
    case BoxButton::Yes:
      return "Yes";
    case BoxButton::No:
      return "No";
    case BoxButton::Ok:
      break;
  }
  return "OK";
}

/// The technician at work, and the notes taken of it.
class Visit {
 public:
  Visit(const ScenarioContext& context, const Scenario& scenario)
      : scenario_(scenario),
        program_(context.pc, scenario.general ? context.generalProgram : context.program,
                 scenario.CommandLine()),
        window_(WaitForWindow()) {}

  Outcome Make();

 private:
  struct NotedBox {
    size_t position = 0;  ///< how many lines of the run were there
    Shown box;
  };

  WindowUnderTest WaitForWindow();
  bool AnswerBox(const std::function<size_t()>& position);
  void FollowRunAtStart();
  void Click(const WindowPart& button);
  void BringToFront(Page page) const;
  /// Follows a run to its end and notes what it showed. `before`: what the list held when it began.
  void Follow(const Lines& before, bool ofLadder, const std::function<bool(const Lines&)>& hasBegun);
  bool IsAtRest() const;
  void Note(const Lines& lines);

  const Scenario& scenario_;
  ProgramUnderTest program_;
  std::vector<NotedBox> boxes_;
  size_t boxesBefore_ = 0;
  Outcome outcome_;
  WindowUnderTest window_;  // last: it is waited for with all of the above
};

WindowUnderTest Visit::WaitForWindow() {
  const bool visible = WaitUntil(std::chrono::seconds(60), [this] {
    AnswerBox([] { return size_t{0}; });
    program_.RequireRunning();
    return program_.HasWindow("Form1");
  });
  if (!visible) throw LabError("The main window does not come");
  return program_.WaitForWindow("Form1");
}

bool Visit::AnswerBox(const std::function<size_t()>& position) {
  if (!program_.HasBox()) return false;
  const BoxUnderTest box = program_.WaitForBox();
  const size_t at = position();
  // The scenario says how its next box is answered.
  size_t index = boxesBefore_ + boxes_.size();
  BoxButton answer = BoxButton::Ok;
  for (const Shown& shown : scenario_.shown)
    if (shown.kind == Shown::Kind::Box && index-- == 0) answer = ButtonOf(shown.answer);
  boxes_.push_back({at, {Shown::Kind::Box, box.text, {}, NameOf(answer)}});
  program_.Answer(box, answer);
  return true;
}

/// Lines behind those that were there before; all of them when the list was emptied meanwhile.
Lines Behind(const Lines& before, Lines lines) {
  if (lines.size() >= before.size() && std::equal(before.begin(), before.end(), lines.begin()))
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(before.size()));
  return lines;
}

bool Visit::IsAtRest() const {
  return !RunIsActive(window_) && window_.Enabled(0) &&
         window_.CurrentPointer() != WindowUnderTest::Pointer::Hourglass;
}

void Visit::Follow(const Lines& before, bool ofLadder, const std::function<bool(const Lines&)>& hasBegun) {
  Lines lines;
  bool begun = false;
  const bool ended = WaitUntil(kLongestRun, [&] {
    try {
      const auto sinceThen = [&] { return Behind(before, window_.Lines(ID_lstResult)).size(); };
      if (AnswerBox(sinceThen)) begun = true;
      begun = begun || RunIsActive(window_) || hasBegun(window_.Lines(ID_lstResult));
      if (!begun || !IsAtRest() || program_.HasBox()) return false;
      lines = window_.Lines(ID_lstResult);
      return true;
    } catch (const LabError&) {
      if (!program_.Runs()) throw;
      return false;  // the window does not answer while a library blocks it
    }
  });
  if (!ended) throw LabError(begun ? "The run does not end" : "The run does not begin");
  lines = WithoutTimes(Behind(before, lines));
  if (ofLadder) outcome_.highestBegun = HighestBegun(lines);
  Note(lines);
}

void Visit::Note(const Lines& lines) {
  size_t next = 0;
  for (size_t i = 0; i <= lines.size(); ++i) {
    // A list that was emptied later has fewer lines than it had when the box came.
    while (next < boxes_.size() && (boxes_[next].position <= i || i == lines.size()))
      outcome_.shown.push_back(boxes_[next++].box);
    if (i < lines.size()) outcome_.shown.push_back({Shown::Kind::Line, lines[i], {}, {}});
  }
  boxesBefore_ += boxes_.size();
  boxes_.clear();
}

void Visit::FollowRunAtStart() {
  // What the start-up itself has to say comes before the run's lines.
  Note({});
  Follow(Lines{}, true,
         [](const Lines& lines) { return lines.empty() || !lines.front().starts_with(kStartUpReport); });
}

void Visit::BringToFront(Page page) const {
  int index = static_cast<int>(page);
  // The family's edition hides the two pages before the last.
  if (!scenario_.general && page == Page::Ftp) index -= 2;
  window_.SelectTab(ID_tabMode, index);
}

void Visit::Click(const WindowPart& button) {
  BringToFront(button.page);
  const Lines before = window_.Lines(ID_lstResult);
  const bool ofLadder = button.id == ID_cmdAllTest || button.id == ID_cmdAllFtpTest;
  // A ping empties the list first; what looks like the lines of the run before are then its own.
  const bool empties = ofLadder || button.id == ID_cmdPing;
  window_.Click(button.id);
  // A test that has written no more than its title may not have begun to keep the user out.
  Follow(empties ? Lines{} : before, ofLadder, [&before](const Lines& lines) {
    return lines != before && (lines.empty() || !lines.back().ends_with("test..."));
  });
}

Outcome Visit::Make() {
  if (scenario_.HasTarget()) FollowRunAtStart();
  for (size_t i = 1; i < scenario_.steps.size(); ++i) {
    const Step& step = scenario_.steps[i];
    if (step.verb == "types") {
      window_.SetText(FindPart(kFields, step.what)->id, step.text);
    } else if (step.verb == "ticks") {
      const WindowPart& part = *FindPart(kCheckBoxes, step.what);
      BringToFront(part.page);
      window_.Click(part.id);
      if (!WaitUntil(kSoon, [&] { return window_.Checked(part.id); }))
        throw LabError("The tick does not come");
    } else {
      Click(*FindPart(kButtons, step.what));
    }
  }
  Note({});
  for (const Shown& shown : scenario_.shown) {
    if (shown.kind != Shown::Kind::Field) continue;
    outcome_.shown.push_back(
        {Shown::Kind::Field, window_.Text(FindPart(kFields, shown.field)->id), shown.field, {}});
  }
  return std::move(outcome_);
}

}  // namespace

Outcome RunScenario(const ScenarioContext& context, const Scenario& scenario) {
  const ScenarioSetup setup(context, scenario);
  return Visit(context, scenario).Make();
}

}  // namespace tarvik::lab
