#pragma once

#include "platform/clipboard.h"
#include "platform/windows_win32.h"

namespace tarvik {

/// The clipboard of user32, opened for `owner`.
class Win32Clipboard final : public Clipboard {
 public:
  explicit Win32Clipboard(HWND owner) : owner_(owner) {}
  void SetText(const std::wstring& text) override;
  std::wstring GetText() override;

 private:
  HWND owner_;
};

}  // namespace tarvik
