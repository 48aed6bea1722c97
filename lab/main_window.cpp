#include "lab/main_window.h"

#include <optional>
#include <regex>

#include "app/control_ids.h"

namespace tarvik::lab {
namespace {

constexpr std::chrono::seconds kStart(60);

void AnswerBoxes(ProgramUnderTest& program, const Listener& listener) {
  while (program.HasBox()) {
    const BoxUnderTest box = program.WaitForBox();
    if (!listener.onBox) throw LabError("A message box: " + box.title + ": " + box.text);
    listener.onBox(box);
    program.Answer(box, BoxButton::Ok);
  }
}

/// Tells the lines that came since the last look. A list that was emptied meanwhile begins anew.
class LineReader {
 public:
  LineReader(const WindowUnderTest& window, const Listener& listener)
      : window_(window), listener_(listener) {}

  void Look() {
    std::vector<std::string> lines = window_.Lines(ID_lstResult);
    const bool grown =
        lines.size() >= known_.size() && std::equal(known_.begin(), known_.end(), lines.begin());
    if (listener_.onLine) {
      for (size_t i = grown ? known_.size() : 0; i < lines.size(); ++i) listener_.onLine(lines[i]);
    }
    known_ = std::move(lines);
  }

  const std::vector<std::string>& Lines() const { return known_; }

 private:
  const WindowUnderTest& window_;
  const Listener& listener_;
  std::vector<std::string> known_;
};

}  // namespace

WindowUnderTest WaitForMainWindow(ProgramUnderTest& program, const Listener& listener) {
  const bool visible = WaitUntil(kStart, [&] {
    AnswerBoxes(program, listener);
    program.RequireRunning();
    return program.HasWindow("Form1");
  });
  if (!visible) throw LabError("The main window does not come");
  WindowUnderTest window = program.WaitForWindow("Form1");
  // The pages behind the one in front come a moment after the window; this is the last control of the last.
  window.Enabled(ID_cmdAllFtpTest);
  return window;
}

bool RunIsActive(const WindowUnderTest& mainWindow) {
  const std::string caption = mainWindow.Text(ID_cmdPing);
  return caption == "&Stop" || caption == "停止(&S)";
}

std::vector<std::string> FollowRun(ProgramUnderTest& program, const WindowUnderTest& mainWindow,
                                   milliseconds timeOut, const Listener& listener) {
  // The list still shows the start-up's report until the run has begun.
  const auto begun = [&mainWindow] {
    const std::vector<std::string> lines = mainWindow.Lines(ID_lstResult);
    return RunIsActive(mainWindow) || lines.empty() || lines.front().rfind("szDescription:", 0) != 0;
  };
  LineReader reader(mainWindow, listener);
  bool hasBegun = false;
  const bool ended = WaitUntil(timeOut, [&] {
    AnswerBoxes(program, listener);
    hasBegun = hasBegun || begun();
    if (!hasBegun) return false;
    const bool active = RunIsActive(mainWindow);
    reader.Look();
    return !active;
  });
  if (!ended) throw LabError(hasBegun ? "The run does not end" : "The run does not begin");
  return reader.Lines();
}

std::vector<std::string> WithoutTimes(std::vector<std::string> lines) {
  const std::regex time("time=[0-9]+ms");
  for (std::string& line : lines) line = std::regex_replace(line, time, "time=Nms");
  return lines;
}

}  // namespace tarvik::lab
