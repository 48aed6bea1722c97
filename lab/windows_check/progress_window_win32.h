#pragma once

#include <string>

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

/// The check's own small window, in the lower right corner, above the others. All functions may be called
/// from the thread that runs the sections; the window belongs to the thread that calls Run.
class ProgressWindow {
 public:
  /// Throws CheckError.
  ProgressWindow();
  ProgressWindow(const ProgressWindow&) = delete;
  ProgressWindow& operator=(const ProgressWindow&) = delete;
  ~ProgressWindow();

  /// Handles messages until End. The window's close button cancels the check.
  void Run();
  void End();

  /// UTF-8. `done`: how many of `total` steps are finished.
  void Show(const std::string& text, int done, int total);
  /// Shows the question with the buttons "Done" and "Skip"; true = Done. False after two minutes.
  bool Ask(const std::string& question);

 private:
  static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  HWND AddChild(const wchar_t* windowClass, const wchar_t* text, DWORD style, int id, RECT place);
  int Scaled(int pixels) const { return ::MulDiv(pixels, dpi_, USER_DEFAULT_SCREEN_DPI); }

  HWND window_ = nullptr;
  HWND text_ = nullptr;
  HWND bar_ = nullptr;
  HWND done_ = nullptr;
  HWND skip_ = nullptr;
  HFONT font_ = nullptr;
  int dpi_ = USER_DEFAULT_SCREEN_DPI;
  HANDLE answered_ = nullptr;  ///< an event
  bool answer_ = false;
};

}  // namespace tarvik::check
