#pragma once

#include <string>

#include "platform/windows_win32.h"
#include "ui/control.h"

namespace tarvik::ui {

/// What Windows 10 tells about the scaling of a window; older systems have one scaling for all.
class Scaling {
 public:
  Scaling();

  /// Dots per inch of the monitor that the window is on.
  int DpiOf(HWND window) const;
  /// The system's message font at that scaling.
  LOGFONTW MessageFont(int dpi) const;
  /// GetSystemMetrics at that scaling.
  int Metric(int index, int dpi) const;

 private:
  using GetDpiForWindowFunction = UINT WINAPI(HWND);
  using SystemParametersInfoForDpiFunction = BOOL WINAPI(UINT, UINT, PVOID, UINT, UINT);
  using GetSystemMetricsForDpiFunction = int WINAPI(int, UINT);

  GetDpiForWindowFunction* getDpiForWindow_;
  SystemParametersInfoForDpiFunction* systemParametersInfoForDpi_;
  GetSystemMetricsForDpiFunction* getSystemMetricsForDpi_;
};

/// A font and what texts measure in it.
class MeasuredFont {
 public:
  explicit MeasuredFont(const LOGFONTW& description);
  ~MeasuredFont();
  MeasuredFont(const MeasuredFont&) = delete;
  MeasuredFont& operator=(const MeasuredFont&) = delete;

  HFONT Handle() const { return font_; }
  bool Is(const LOGFONTW& description) const;
  /// The height of one line, in pixels.
  int LineHeight() const { return lineHeight_; }
  /// A caption's size; its lines are counted and the "&" of its mnemonic is not.
  Size MeasureCaption(const std::wstring& caption) const;
  /// The width of a text as a field shows it, every character of it.
  int TextWidth(const std::wstring& text) const;
  /// The same, with tabs that reach the next of the stops, which are `stop` dialog units apart: quarters of
  /// the letters' average width.
  int TabbedTextWidth(const std::wstring& text, int stop) const;

 private:
  LOGFONTW description_;
  HFONT font_;
  HDC dc_;
  HGDIOBJ replaced_;
  int lineHeight_ = 0;
};

}  // namespace tarvik::ui
