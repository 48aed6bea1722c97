#pragma once

#include <memory>
#include <optional>
#include <string>

#include "lab/host/process.h"

namespace tarvik::lab {

/// A rectangle on the screen, in pixels.
struct ScreenRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

/// An X display.
class Desktop {
 public:
  /// Width and height of an invisible display, in pixels.
  static constexpr char kSize[] = "1280x1024";

  /// Starts an invisible display (Xvfb) without a window manager. It ends on destruction. Throws LabError.
  static Desktop Invisible();

  /// The display that DISPLAY names; nothing when it is unset or remote. Programs in other network namespaces
  /// reach a local display through its socket file.
  static std::optional<Desktop> OfUser();

  /// True for a display that this object started.
  bool IsInvisible() const { return server_ != nullptr; }

  /// The value for DISPLAY, such as ":1".
  const std::string& Display() const { return display_; }

  /// Writes the screen, or one part of it, to a PNG file. Throws LabError.
  void Screenshot(const std::string& path, const std::optional<ScreenRect>& part = std::nullopt) const;

 private:
  Desktop() = default;

  std::string display_;
  std::unique_ptr<Process> server_;
};

}  // namespace tarvik::lab
