#pragma once

#include <memory>
#include <optional>
#include <string>

#include "lab/process.h"

namespace tarvik::lab {

/// A rectangle on the screen, in pixels.
struct ScreenRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

/// A screen with a window manager: without one, windows close late and the focus comes late.
class Desktop {
 public:
  /// A screen of 1280 x 1024 that nobody sees, with a display number of its own. Throws LabError.
  static Desktop Unseen();

  /// The screen that DISPLAY names, when it is one of this machine; nothing otherwise. Programs in another
  /// network namespace can reach it too.
  static std::optional<Desktop> OfTheUser();

  /// What DISPLAY has to be, such as ":1".
  const std::string& Display() const { return display_; }

  /// Writes the screen, or a part of it, into a PNG file. Throws LabError.
  void Screenshot(const std::string& path, const std::optional<ScreenRect>& part = std::nullopt) const;

 private:
  Desktop() = default;

  std::string display_;
  std::unique_ptr<Process> server_;
  std::unique_ptr<Process> windowManager_;
};

}  // namespace tarvik::lab
