// Waiting for the main window and for its runs. A run has no event that the driver could wait for: its begin
// and end are read from captions, the list, the window's enabled state and the pointer.

#include "lab/pc/main_window.h"

#include <algorithm>
#include <optional>
#include <regex>

#include "app/control_ids.h"
#include "lab/pc/window_parts.h"

namespace tarvik::lab {
namespace {

using Lines = std::vector<std::string>;

constexpr std::chrono::seconds kStartTimeOut(60);

/// True when there was one.
bool AnswerBoxes(ProgramUnderTest& program, const Listener& listener) {
  bool answered = false;
  for (; program.HasBox(); answered = true) {
    const BoxUnderTest box = program.WaitForBox();
    if (!listener.onBox) throw LabError("Unexpected message box: " + box.title + ": " + box.text);
    listener.onBox(box);
    program.Answer(box, listener.answer ? listener.answer(box) : BoxButton::Ok);
  }
  return answered;
}

/// `before`: the list before the click that started the run; nothing for a run at start-up.
bool HasBegun(const std::optional<Lines>& before, const Lines& lines) {
  // Until the run clears the list, it shows the start-up report.
  if (!before) return lines.empty() || !lines.front().starts_with("szDescription:");
  // A test that has only written its title may not have disabled the window yet and would look finished.
  const bool onlyTitle =
      !lines.empty() && (lines.back().ends_with(" test...") || lines.back().ends_with(" test...."));
  return lines != *before && !onlyTitle;
}

bool AtRest(ProgramUnderTest& program, const WindowUnderTest& window) {
  return !RunIsActive(window) && window.Enabled(0) && !program.HasBox() &&
         window.CurrentPointer() != WindowUnderTest::Pointer::Hourglass;
}

/// The driver's first question for the pointer calls into the program, which takes as long as a library
/// blocks it; the answer to later ones needs no call.
void LearnPointers(const WindowUnderTest& window) { window.CurrentPointer(); }

Lines Follow(ProgramUnderTest& program, const WindowUnderTest& window, const std::optional<Lines>& before,
             milliseconds timeOut, const Listener& listener) {
  Lines known;
  const auto reportNewLines = [&] {
    const auto reported = static_cast<std::ptrdiff_t>(known.size());
    const bool extends = window.ReadNewLines(ID_lstResult, known);
    if (listener.onLine)
      std::for_each(known.begin() + (extends ? reported : 0), known.end(), listener.onLine);
  };
  bool begun = false;
  const bool ended = WaitUntil(timeOut, [&] {
    if (AnswerBoxes(program, listener) && before) begun = true;
    try {
      begun = begun || RunIsActive(window) || HasBegun(before, window.Lines(ID_lstResult));
      if (!begun) return false;
      const bool ends = AtRest(program, window);
      reportNewLines();
      // A list that was cleared and filled again can have the same line in the same place.
      if (ends) known = window.Lines(ID_lstResult);
      return ends;
    } catch (const LabError&) {
      if (!program.Runs()) throw;
      return false;  // a library call blocks the window
    }
  });
  if (!ended) throw LabError(begun ? "The run does not end" : "The run does not begin");
  return known;
}

}  // namespace

WindowUnderTest WaitForMainWindow(ProgramUnderTest& program, const Listener& listener) {
  const bool visible = WaitUntil(kStartTimeOut, [&] {
    AnswerBoxes(program, listener);
    program.RequireRunning();
    return program.HasWindow(kMainWindowClass);
  });
  if (!visible) throw LabError("The main window does not appear");
  WindowUnderTest window = program.WaitForWindow(kMainWindowClass);
  // Pages other than the front one are created after the window appears. The driver waits for this control,
  // the last one of the last page.
  window.Enabled(ID_cmdAllFtpTest);
  return window;
}

bool RunIsActive(const WindowUnderTest& mainWindow) {
  const std::string caption = mainWindow.Text(ID_cmdPing);
  return caption == "&Stop" || caption == "停止(&S)";
}

std::vector<std::string> FollowRun(ProgramUnderTest& program, const WindowUnderTest& mainWindow,
                                   milliseconds timeOut, const Listener& listener) {
  LearnPointers(mainWindow);
  return Follow(program, mainWindow, std::nullopt, timeOut, listener);
}

std::vector<std::string> ClickAndFollow(ProgramUnderTest& program, const WindowUnderTest& mainWindow,
                                        int button, milliseconds timeOut, const Listener& listener) {
  LearnPointers(mainWindow);
  const Lines before = mainWindow.Lines(ID_lstResult);
  mainWindow.Click(button);
  return Follow(program, mainWindow, before, timeOut, listener);
}

std::vector<std::string> WithoutTimes(std::vector<std::string> lines) {
  const std::regex time("time=[0-9]+ms");
  for (std::string& line : lines) line = std::regex_replace(line, time, "time=Nms");
  return lines;
}

std::vector<std::string> LinesAfter(const std::vector<std::string>& before, std::vector<std::string> lines) {
  if (lines.size() >= before.size() && std::equal(before.begin(), before.end(), lines.begin()))
    lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(before.size()));
  return lines;
}

}  // namespace tarvik::lab
