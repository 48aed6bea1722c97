#include "lab/pc/desktop.h"

#include <filesystem>

namespace tarvik::lab {

Desktop Desktop::Invisible() {
  Desktop desktop;
  // Xvfb itself would pick a display number that is free in its own network namespace, and take over the
  // socket file of a display with that number in another one.
  static int count = 0;
  const int number = 10 * OwnProcessId() + count++ % 10;
  desktop.display_ = ":" + std::to_string(number);
  desktop.server_ = std::make_unique<Process>(
      std::vector<std::string>{"Xvfb", desktop.display_, "-displayfd", "1", "-screen", "0",
                               std::string(kSize) + "x24", "-nolisten", "tcp", "-noreset"},
      Process::Options());
  desktop.server_->ReadLine(std::chrono::seconds(60));  // the display number, once it is ready
  return desktop;
}

std::optional<Desktop> Desktop::OfUser() {
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
    // The window may start off the screen.
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
