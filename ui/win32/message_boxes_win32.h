#pragma once

#include <string>

#include "platform/windows_win32.h"
#include "report/message_boxes.h"

namespace tarvik::ui {

class Win32Form;

/// MessageBoxW, owned by the window unless that is null or hidden. Until the user answers, every form of this
/// thread is disabled. Returns the id of the button, such as IDYES.
int ShowModalBox(HWND owner, const wchar_t* text, const wchar_t* title, UINT style) noexcept;

class Win32MessageBoxes final : public report::MessageBoxes {
 public:
  explicit Win32MessageBoxes(const Win32Form& owner) : owner_(owner) {}

  void Show(const std::wstring& text, report::BoxIcon icon, const std::wstring& title) override;
  void ShowSystemModal(const std::wstring& text) override;
  bool AskYesNo(const std::wstring& text, bool defaultIsNo, const std::wstring& title) override;

 private:
  int Box(const std::wstring& text, const std::wstring& title, UINT style);

  const Win32Form& owner_;
};

}  // namespace tarvik::ui
