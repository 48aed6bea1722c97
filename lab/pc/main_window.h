#pragma once

#include <functional>
#include <string>
#include <vector>

#include "lab/pc/program.h"

namespace tarvik::lab {

/// Callbacks of the functions below.
struct Listener {
  /// A line added to the result list.
  std::function<void(const std::string&)> onLine;
  /// A message box, before it is answered. Without this function a message box is a LabError.
  std::function<void(const BoxUnderTest&)> onBox;
  /// Chooses the answer to a message box; OK without this function.
  std::function<BoxButton(const BoxUnderTest&)> answer;
};

/// Waits until the main window is visible and all its pages have their controls, answering message boxes
/// meanwhile. Throws LabError after a minute, when the program ends, and on a message box without
/// `listener.onBox`.
WindowUnderTest WaitForMainWindow(ProgramUnderTest& program, const Listener& listener = {});

/// True while a run is active: its buttons then read "Stop".
bool RunIsActive(const WindowUnderTest& mainWindow);

/// Follows the run that the program starts by itself (a target on the command line) or that is active, until
/// the window is at rest. Returns the result list. Throws LabError when the run takes longer, when the
/// program ends, and on a message box without `listener.onBox`.
std::vector<std::string> FollowRun(ProgramUnderTest& program, const WindowUnderTest& mainWindow,
                                   milliseconds timeOut, const Listener& listener = {});

/// Clicks the button and follows the run that it starts; see FollowRun.
std::vector<std::string> ClickAndFollow(ProgramUnderTest& program, const WindowUnderTest& mainWindow,
                                        int button, milliseconds timeOut, const Listener& listener = {});

/// The lines with every measured time replaced by "time=Nms", so that they can be compared.
std::vector<std::string> WithoutTimes(std::vector<std::string> lines);

/// The lines after `before`, which an earlier call read from the same list; all of them when the list has
/// been cleared since.
std::vector<std::string> LinesAfter(const std::vector<std::string>& before, std::vector<std::string> lines);

}  // namespace tarvik::lab
