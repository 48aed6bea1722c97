#pragma once

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

/// A call of user32.dll that older versions of Windows lack; null when it is missing.
template <typename Function>
Function* FromUser32(const char* name) {
  return reinterpret_cast<Function*>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

/// Dots per inch of the window's scaling; those of the screen where Windows reports only these.
int DpiOfWindow(HWND window);

/// Checks that other scalings change the main window's places, and that the first one restores them all.
void CheckOtherScalings(Kit& kit);

}  // namespace tarvik::check
