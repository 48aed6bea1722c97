#pragma once

#include <string>

#include "ui/message_boxes.h"
#include "ui/win32/form_win32.h"

namespace tarvik::ui {

class Win32MessageBoxes final : public MessageBoxes {
 public:
  /// The boxes stand over the window that the user works in, or else over the main window while it is
  /// shown, and alone before.
  explicit Win32MessageBoxes(const Win32Form& main) : main_(main) {}

  void Show(const std::wstring& text, BoxIcon icon, const std::wstring& title) override;
  void ShowSystemModal(const std::wstring& text) override;
  bool AskYesNo(const std::wstring& text, bool defaultIsNo, const std::wstring& title) override;

 private:
  HWND Owner() const;
  int Box(const std::wstring& text, const std::wstring& title, UINT style);

  const Win32Form& main_;
};

}  // namespace tarvik::ui
