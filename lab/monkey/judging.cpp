// What must be true at any time. The monkey reads the state of the program from its windows, which may close,
// be blocked by a library call or get a message box between two questions.

#include <algorithm>

#include "app/control_ids.h"
#include "lab/monkey/monkey.h"
#include "lab/pc/main_window.h"

namespace tarvik::lab {
namespace {

constexpr int kMaxBoxesInARow = 30;

}  // namespace

void Monkey::CheckAlive() {
  if (!program_->Runs())
    throw Misbehaviour("The program has ended with exit code " + std::to_string(program_->WaitForEnd()));
  WaitForAnswer();
}

void Monkey::CheckExitCode() {
  const uint32_t code = program_->WaitForEnd();
  if (code != 0) throw Misbehaviour("The program has ended with exit code " + std::to_string(code));
}

void Monkey::WaitUntilIdle() {
  try {
    // A click posted before a message box appears must not be handled during the next one: a real mouse
    // cannot do that.
    if (program_->Runs()) window_->Settle(kMaxCallTime);
  } catch (const LabError&) {
    // A message box was opened or closed meanwhile.
  }
}

void Monkey::WaitForAnswer() {
  const bool answers = WaitUntil(kMaxCallTime, [this] {
    try {
      window_->Text(ID_cmdPing);
      return true;
    } catch (const LabError&) {
      if (!program_->Runs()) throw Misbehaviour("The program has ended between two actions");
      return false;
    }
  });
  if (!answers) throw Misbehaviour("The window hangs");
}

void Monkey::AnswerBoxes(bool yes) {
  for (int i = 0; program_->HasBox(); ++i) {
    if (i == kMaxBoxesInARow) throw Misbehaviour("Message boxes follow each other without end");
    AnswerBox(yes);
    // The next one may follow at once.
    WaitUntilIdle();
  }
}

void Monkey::AnswerBox(bool yes) {
  const BoxUnderTest box = program_->WaitForBox();
  ++boxes_;
  log_.push_back("  box: " + box.title + ": " + box.text);
  // A message box without an owner disables no window and can be covered by them.
  const std::string owner = WindowUnderTest(setup_.pc, box.handle).Owner();
  const auto windows = Windows();
  if (std::none_of(windows.begin(), windows.end(),
                   [&owner](const auto& each) { return each.second.Handle() == owner; }))
    throw Misbehaviour("No window of the program owns the message box");
  CheckAllDisabled();
  answeredOwners_.insert(owner);
  const bool asks = std::any_of(box.buttons.begin(), box.buttons.end(), [](const auto& button) {
    return button.first == static_cast<int>(BoxButton::Yes);
  });
  program_->Answer(box, !asks ? BoxButton::Ok : yes ? BoxButton::Yes : BoxButton::No);
}

std::vector<std::pair<std::string, WindowUnderTest>> Monkey::Windows() {
  std::vector<std::pair<std::string, WindowUnderTest>> windows;
  for (const char* const name : {kMainWindowClass, kPmcWindowClass, kAboutBoxClass})
    if (program_->HasWindow(name)) windows.emplace_back(name, program_->WaitForWindow(name));
  return windows;
}

void Monkey::CheckAllDisabled() {
  // A click that is posted while the program is about to open a box opens another one from within it; the
  // input of a real mouse is discarded then. Each of the two enables its owner when it is answered. The outer
  // one exists, hidden, until the inner one is closed.
  const std::vector<std::string> boxes = program_->Boxes();
  if (std::none_of(boxes.begin(), boxes.end(),
                   [this](const auto& box) { return seenBoxes_.contains(box); })) {
    seenBoxes_.clear();
    answeredOwners_.clear();
  }
  seenBoxes_.insert(boxes.begin(), boxes.end());
  for (const auto& [name, window] : Windows()) {
    if (answeredOwners_.contains(window.Handle())) continue;
    if (window.Enabled(0)) throw Misbehaviour(name + " is enabled while a message box is open");
  }
}

void Monkey::CheckNoneCloses() {
  const auto windows = Windows();
  for (const auto& [name, window] : windows) window.Close();
  WaitUntilIdle();
  for (const auto& [name, window] : windows)
    if (!program_->HasWindow(name)) throw Misbehaviour(name + " has closed while a message box was open");
}

bool Monkey::Enabled() const { return window_->Enabled(0); }

bool Monkey::IsActive() const { return RunIsActive(*window_) || window_->Text(ID_cmdK7Api) != k7ApiCaption_; }

bool Monkey::PmcReads() {
  return program_->HasWindow(kPmcWindowClass) &&
         !program_->WaitForWindow(kPmcWindowClass).Enabled(ID_cmdClose);
}

bool Monkey::AtRest() {
  // Not "is an arrow": over a field the idle pointer has another shape.
  return !program_->HasBox() && Enabled() && !IsActive() && !PmcReads() &&
         window_->CurrentPointer() != WindowUnderTest::Pointer::Hourglass;
}

}  // namespace tarvik::lab
