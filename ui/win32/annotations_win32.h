#pragma once

#include <string>

#include "ui/win32/com_win32.h"

struct IAccPropServices;

namespace tarvik::ui {

/// What screen readers learn about our windows beyond what Windows itself reports (dynamic annotation).
/// Where that is not available, every call does nothing.
class Annotations {
 public:
  Annotations();
  Annotations(const Annotations&) = delete;
  Annotations& operator=(const Annotations&) = delete;
  ~Annotations();

  /// Until it is called the other calls do nothing: loading the libraries would slow down the start.
  void Start(ComObjects& com);
  /// The name of a child of the window, counted from 1.
  void SetName(HWND window, int child, const std::wstring& name) const;
  /// Makes the window a polite live region: screen readers announce each LiveRegionChanged when they have
  /// finished what they are reading.
  void MakeLiveRegion(HWND window) const;
  static void LiveRegionChanged(HWND window);

 private:
  ComPointer<IAccPropServices> services_;
};

}  // namespace tarvik::ui
