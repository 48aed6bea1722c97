#pragma once

#include <optional>
#include <string>

#include "platform/windows_win32.h"

namespace tarvik::check {

/// What is reported to a screen reader about a control.
struct Accessible {
  std::wstring name;
  int role = 0;  ///< ROLE_SYSTEM_..., as numbered by Windows
};

/// Asks Windows' accessibility library, oleacc.dll, as screen readers do. The library is loaded late: Windows
/// without it is described by nothing.
class AccessibleReader {
 public:
  AccessibleReader();
  AccessibleReader(const AccessibleReader&) = delete;
  AccessibleReader& operator=(const AccessibleReader&) = delete;
  ~AccessibleReader();

  /// Nothing when Windows has no description of the window.
  std::optional<Accessible> Read(HWND window) const;

 private:
  using ObjectFromWindow = HRESULT WINAPI(HWND, DWORD, const IID*, void**);

  HMODULE library_ = nullptr;
  ObjectFromWindow* objectFromWindow_ = nullptr;
};

}  // namespace tarvik::check
