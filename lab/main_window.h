#pragma once

#include <functional>
#include <string>
#include <vector>

#include "lab/program.h"

namespace tarvik::lab {

/// What a caller wants to hear of a program while it waits for it.
struct Listener {
  /// A line that the result list has got.
  std::function<void(const std::string&)> onLine;
  /// A message box, which is then answered with its OK. Without this function a box is an error.
  std::function<void(const BoxUnderTest&)> onBox;
};

/// The main window, as soon as it is visible. Throws LabError when it does not come in time, and on a
/// message box that nobody listens to.
WindowUnderTest WaitForMainWindow(ProgramUnderTest& program, const Listener& listener = {});

/// A run is active: the button that began it shows that it stops it now.
bool RunIsActive(const WindowUnderTest& mainWindow);

/// Follows the run that the program began at its start, or that a click on a button has just begun, to its
/// end. The lines that the list holds then. Throws LabError when the run takes longer.
std::vector<std::string> FollowRun(ProgramUnderTest& program, const WindowUnderTest& mainWindow,
                                   milliseconds timeOut, const Listener& listener = {});

/// The lines with every measured time written as "time=Nms", so that they can be compared.
std::vector<std::string> WithoutTimes(std::vector<std::string> lines);

}  // namespace tarvik::lab
