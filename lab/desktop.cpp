#include "lab/desktop.h"

#include <filesystem>

namespace tarvik::lab {
namespace {

bool WindowManagerRuns(const std::string& display) {
  return Run({"xprop", "-display", display, "-root", "_NET_SUPPORTING_WM_CHECK"}).output.find("window id") !=
         std::string::npos;
}

}  // namespace

Desktop Desktop::Unseen() {
  Desktop desktop;
  // Left to itself, Xvfb picks a number that is free in its own network namespace and takes the socket's file
  // from the screen that has it in another one: that one's programs would come here, and end with this
  // screen. Only programs of this machine may connect.
  static int count = 0;
  const int number = 10 * OwnProcessId() + count++ % 10;
  desktop.display_ = ":" + std::to_string(number);
  desktop.server_ = std::make_unique<Process>(
      std::vector<std::string>{"Xvfb", desktop.display_, "-displayfd", "1", "-screen", "0", "1280x1024x24",
                               "-nolisten", "tcp", "-noreset"},
      Process::Options());
  desktop.server_->ReadLine(std::chrono::seconds(60));  // it is ready
  Process::Options options;
  options.environment["DISPLAY"] = desktop.display_;
  desktop.windowManager_ =
      std::make_unique<Process>(std::vector<std::string>{"openbox", "--sm-disable"}, options);
  if (!WaitUntil(std::chrono::seconds(30), [&desktop] { return WindowManagerRuns(desktop.display_); })) {
    throw LabError("The window manager does not start");
  }
  return desktop;
}

std::optional<Desktop> Desktop::OfTheUser() {
  const std::string display = EnvironmentValue("DISPLAY");
  if (display.empty() || display.front() != ':') return std::nullopt;
  const std::string number = display.substr(1, display.find('.') - 1);
  if (!std::filesystem::exists("/tmp/.X11-unix/X" + number)) return std::nullopt;
  Desktop desktop;
  desktop.display_ = display;
  return desktop;
}

void Desktop::Screenshot(const std::string& path, const std::optional<ScreenRect>& part) const {
  std::vector<std::string> arguments = {"import", "-silent", "-window", "root"};
  if (part) {
    // Shadows and borders of a window manager lie outside; what is off the screen cannot be shown.
    const ScreenRect& rect = *part;
    arguments.push_back("-crop");
    arguments.push_back(std::to_string(rect.width) + "x" + std::to_string(rect.height) + "+" +
                        std::to_string(std::max(rect.left, 0)) + "+" + std::to_string(std::max(rect.top, 0)));
    arguments.push_back("+repage");
  }
  arguments.push_back(path);
  Process::Options options;
  options.environment["DISPLAY"] = display_;
  RunOrThrow(arguments, options);
}

}  // namespace tarvik::lab
