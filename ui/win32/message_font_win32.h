#pragma once

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include "platform/windows_win32.h"
#include "ui/control.h"

namespace tarvik::ui {

/// The scaling of a window as Windows 10 reports it. On older systems all windows have the same.
class Scaling {
 public:
  Scaling();

  /// Dots per inch of the monitor that the window is on.
  int DpiOf(HWND window) const;
  /// The system's message font at that scaling.
  LOGFONTW MessageFont(int dpi) const;
  /// GetSystemMetrics at that scaling.
  int Metric(int index, int dpi) const;
  /// Leaves the scaling of a dialog and of a control on it to the program, where Windows would also scale
  /// them.
  void KeepDialogUnscaled(HWND dialog) const;
  void KeepControlUnscaled(HWND control) const;

 private:
  using GetDpiForWindowFunction = UINT WINAPI(HWND);
  using SystemParametersInfoForDpiFunction = BOOL WINAPI(UINT, UINT, PVOID, UINT, UINT);
  using GetSystemMetricsForDpiFunction = int WINAPI(int, UINT);
  /// Window, mask of the behaviours to set, their values.
  using SetDpiChangeBehaviorFunction = BOOL WINAPI(HWND, int, int);

  GetDpiForWindowFunction* getDpiForWindow_;
  SystemParametersInfoForDpiFunction* systemParametersInfoForDpi_;
  GetSystemMetricsForDpiFunction* getSystemMetricsForDpi_;
  SetDpiChangeBehaviorFunction* setDialogDpiChangeBehavior_;
  SetDpiChangeBehaviorFunction* setDialogControlDpiChangeBehavior_;
};

/// True when the system has the face as an outline font.
bool IsOutlineFace(const wchar_t* face);

/// A font and the sizes of texts in it, in pixels.
class MeasuredFont {
 public:
  explicit MeasuredFont(const LOGFONTW& description);
  ~MeasuredFont();
  MeasuredFont(const MeasuredFont&) = delete;
  MeasuredFont& operator=(const MeasuredFont&) = delete;

  /// The font with another face, of the same size and weight.
  std::unique_ptr<MeasuredFont> InFace(const wchar_t* face) const;
  /// The font a fifth larger.
  std::unique_ptr<MeasuredFont> Larger() const;

  HFONT Handle() const { return font_; }
  bool Matches(const LOGFONTW& description) const;
  /// The font's size: the height of its letters, with accents and descenders.
  int LetterHeight() const { return std::max(1, std::abs(static_cast<int>(description_.lfHeight))); }
  /// The height of one line.
  int LineHeight() const { return lineHeight_; }
  /// The size of a caption, which may have several lines. The "&" of its mnemonic has no width.
  Size MeasureCaption(const std::wstring& caption) const;
  /// The width of a text in a field, where "&" is an ordinary character.
  int TextWidth(const std::wstring& text) const;
  /// The same with tab stops every `stop` dialog units, which are quarters of the average letter width.
  int TabbedTextWidth(const std::wstring& text, int stop) const;

 private:
  LOGFONTW description_;
  HFONT font_;
  HDC dc_;
  HGDIOBJ replaced_;
  int lineHeight_ = 0;
};

}  // namespace tarvik::ui
