#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "platform/windows_win32.h"
#include "report/message_boxes.h"

namespace tarvik::ui {

class Win32Form;

/// Disables every enabled form of this thread except the owner, which the modal window of Windows disables.
/// The destructor enables them after that window has closed, when the owner is active again, so that none of
/// them becomes active in its place.
class OtherFormsDisabled {
 public:
  explicit OtherFormsDisabled(HWND owner) noexcept;
  ~OtherFormsDisabled();
  OtherFormsDisabled(const OtherFormsDisabled&) = delete;
  OtherFormsDisabled& operator=(const OtherFormsDisabled&) = delete;

 private:
  static BOOL CALLBACK Disable(HWND window, LPARAM parameter) noexcept;

  HWND owner_;
  /// Room for more forms than the program has. No allocation: a box may report a lack of memory.
  std::array<HWND, 8> disabled_{};
  size_t count_ = 0;
};

/// MessageBoxW, owned by the window unless that is null or hidden. Until the user answers, every form of this
/// thread is disabled, except those that onBoxHelp of the owner's form enables. Returns the id of the button,
/// such as IDYES.
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
