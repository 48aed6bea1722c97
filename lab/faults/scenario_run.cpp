// Performs a scenario's steps on the real window. Message boxes are recorded with the number of lines that
// the list had at that moment, so that lines and boxes end up in the order in which a technician saw them.

#include "lab/faults/scenario_run.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "lab/pc/main_window.h"
#include "lab/pc/program.h"
#include "lab/pc/window_parts.h"

namespace tarvik::lab {
namespace {

using Lines = std::vector<std::string>;

constexpr milliseconds kRunTimeOut = kUnblocked;

BoxButton ButtonOf(const std::string& answer) {
  if (answer == "Cancel") return BoxButton::Cancel;
  if (answer == "Yes") return BoxButton::Yes;
  return answer == "No" ? BoxButton::No : BoxButton::Ok;
}

/// The sentence with every measured time replaced by N, so that it can be compared. A time-out is not
/// measured.
std::string WithoutTimesOfAnswer(std::string sentence) {
  for (const std::string_view before : {"slowest ", " after "}) {
    const size_t at = sentence.find(before);
    if (at == std::string::npos) continue;
    const size_t begin = at + before.size();
    const size_t end = std::min(sentence.find_first_not_of("0123456789.", begin), sentence.size());
    if (end > begin) sentence.replace(begin, end - begin, "N");
  }
  return sentence;
}

/// A technician at the PC.
class Technician {
 public:
  Technician(const ScenarioContext& context, const Scenario& scenario)
      : scenario_(scenario),
        program_(context.pc, scenario.general ? context.generalProgram : context.program,
                 scenario.CommandLine()) {
    window_ = WaitForMainWindow(program_, Listening());
  }

  Outcome PerformSteps();

 private:
  struct FakeBox {
    size_t position = 0;  ///< number of the run's lines before it
    Shown box;
  };

  Listener Listening();
  void RecordBox(const BoxUnderTest& box);
  void FollowRunAtStart();
  void Click(const WindowPart& button);
  void BringToFront(Page page) const;
  void Record(const Lines& list, bool ofLadder);
  void RecordInOrder(const Lines& lines);
  void RecordAnswer();

  const Scenario& scenario_;
  ProgramUnderTest program_;
  std::optional<WindowUnderTest> window_;
  Lines listBefore_;            ///< the list when the current run began
  std::vector<FakeBox> boxes_;  ///< of the current run
  size_t earlierBoxes_ = 0;     ///< of the runs before it
  Outcome outcome_;
};

Listener Technician::Listening() {
  Listener listener;
  listener.onBox = [this](const BoxUnderTest& box) { RecordBox(box); };
  listener.answer = [this](const BoxUnderTest&) { return ButtonOf(boxes_.back().box.answer); };
  return listener;
}

void Technician::RecordBox(const BoxUnderTest& box) {
  const size_t position = window_ ? LinesAfter(listBefore_, window_->Lines(ID_lstResult)).size() : 0;
  size_t index = earlierBoxes_ + boxes_.size();
  std::string answer = "OK";
  for (const Shown& shown : scenario_.shown)
    if (shown.kind == Shown::Kind::Box && index-- == 0) answer = shown.answer;
  boxes_.push_back({position, {Shown::Kind::Box, box.text, {}, answer}});
}

void Technician::Record(const Lines& list, bool ofLadder) {
  const Lines lines = WithoutTimes(LinesAfter(listBefore_, list));
  if (ofLadder) outcome_.highestBegun = HighestBegun(lines);
  RecordInOrder(lines);
}

void Technician::RecordInOrder(const Lines& lines) {
  size_t next = 0;
  for (size_t i = 0; i <= lines.size(); ++i) {
    // When the list was cleared after a box, its position may lie beyond the end.
    while (next < boxes_.size() && (boxes_[next].position <= i || i == lines.size()))
      outcome_.shown.push_back(boxes_[next++].box);
    if (i < lines.size()) outcome_.shown.push_back({Shown::Kind::Line, lines[i], {}, {}});
  }
  earlierBoxes_ += boxes_.size();
  boxes_.clear();
}

void Technician::FollowRunAtStart() {
  RecordInOrder({});  // the boxes of the start-up
  Record(FollowRun(program_, *window_, kRunTimeOut, Listening()), true);
}

void Technician::BringToFront(Page page) const {
  int index = static_cast<int>(page);
  // The family's edition hides the two pages before the last.
  if (!scenario_.general && page == Page::Ftp) index -= 2;
  window_->SelectTab(ID_tabMode, index);
}

void Technician::Click(const WindowPart& button) {
  BringToFront(button.page);
  const bool ofLadder = button.id == ID_cmdAllTest || button.id == ID_cmdAllFtpTest;
  // These clear the list first; lines equal to those of the run before are then their own.
  const bool clears = ofLadder || button.id == ID_cmdPing;
  listBefore_ = clears ? Lines{} : window_->Lines(ID_lstResult);
  Record(ClickAndFollow(program_, *window_, button.id, kRunTimeOut, Listening()), ofLadder);
}

void Technician::RecordAnswer() {
  const std::string sentence = WithoutTimesOfAnswer(window_->Text(ID_lblAnswer));
  outcome_.shown.push_back({Shown::Kind::Sentence, sentence.empty() ? "none" : sentence, {}, {}});
  std::string marks;
  for (const auto& field : window_->StatusFields(ID_sbrRungs))
    marks += (marks.empty() ? "" : ", ") + field.text;
  outcome_.shown.push_back({Shown::Kind::Marks, marks, {}, {}});
}

Outcome Technician::PerformSteps() {
  if (scenario_.HasTarget()) FollowRunAtStart();
  for (size_t i = 1; i < scenario_.steps.size(); ++i) {
    const Step& step = scenario_.steps[i];
    if (step.verb == "types") {
      window_->SetText(FindPart(kFields, step.what)->id, step.text);
    } else if (step.verb == "ticks") {
      const WindowPart& part = *FindPart(kCheckBoxes, step.what);
      BringToFront(part.page);
      window_->Click(part.id);
      if (!WaitUntil(kSoon, [&] { return window_->Checked(part.id); }))
        throw LabError("The check box \"" + step.what + "\" cannot be ticked");
    } else {
      Click(*FindPart(kButtons, step.what));
    }
  }
  RecordInOrder({});
  for (const Shown& shown : scenario_.shown) {
    if (shown.kind != Shown::Kind::Field) continue;
    outcome_.shown.push_back({Shown::Kind::Field, window_->Text(FindText(shown.field)->id), shown.field, {}});
  }
  RecordAnswer();
  return std::move(outcome_);
}

}  // namespace

Outcome RunScenario(const ScenarioContext& context, const Scenario& scenario) {
  const ScenarioSetup setup(context, scenario);
  return Technician(context, scenario).PerformSteps();
}

}  // namespace tarvik::lab
