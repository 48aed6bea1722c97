#include "ui/win32/message_boxes_win32.h"

#include "ui/win32/event_boundary_win32.h"

namespace tarvik::ui {
namespace {

UINT StyleOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Exclamation:
      return MB_ICONEXCLAMATION;
    case BoxIcon::Critical:
      return MB_ICONERROR;
    default:
      return 0;
  }
}

}  // namespace

HWND Win32MessageBoxes::Owner() const {
  // The owner is what the system brings to front again behind a box.
  const Win32Form* active = Win32Form::Of(GetActiveWindow());
  if (active != nullptr && active->Visible()) return active->Window();
  return main_.Visible() ? main_.Window() : nullptr;
}

int Win32MessageBoxes::Box(const std::wstring& text, const std::wstring& title, UINT style) {
  return MessageBoxW(Owner(), text.c_str(), title.empty() ? kProgramTitle : title.c_str(), style);
}

void Win32MessageBoxes::Show(const std::wstring& text, BoxIcon icon, const std::wstring& title) {
  Box(text, title, MB_OK | StyleOf(icon));
}

void Win32MessageBoxes::ShowSystemModal(const std::wstring& text) {
  Box(text, {}, MB_SYSTEMMODAL | MB_ICONSTOP | MB_OK);
}

bool Win32MessageBoxes::AskYesNo(const std::wstring& text, bool defaultIsNo, const std::wstring& title) {
  const UINT defaultButton = defaultIsNo ? MB_DEFBUTTON2 : MB_DEFBUTTON1;
  return Box(text, title, MB_YESNO | MB_ICONEXCLAMATION | defaultButton) == IDYES;
}

}  // namespace tarvik::ui
