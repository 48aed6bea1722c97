#pragma once

#include <optional>
#include <string>

#include "lab/pc/program.h"

namespace tarvik::lab {

// Pictures of windows that are the same on every Debian 12: fixed fonts, no blinking caret, no mouse pointer.

/// A PC for pictures. PrepareForPictures must follow, with the same language.
WindowsPc::Options PictureOptions(WindowsPc::Options options, WindowsLanguage language, int dpi);
/// Starts the driver, so call it before the first program and after any changes of the registry.
void PrepareForPictures(WindowsPc& pc, WindowsLanguage language);

/// Brings the window into the foreground at the screen's corner and the focus to a control without a caret.
void PoseForPicture(const WindowUnderTest& window, int focus);

/// Writes the part of the screen to a PNG file once it no longer changes, with at most 32 colours. Throws
/// LabError.
void TakePicture(const WindowsPc& pc, const std::string& path, const ScreenRect& part);

/// How many pixels of two PNG files differ visibly; nothing when their sizes differ. Writes a picture with
/// these pixels in red to `difference`. Throws LabError.
std::optional<int> DifferentPixels(const std::string& picture, const std::string& expected,
                                   const std::string& difference);

}  // namespace tarvik::lab
