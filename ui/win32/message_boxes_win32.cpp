#include "ui/win32/message_boxes_win32.h"

#include "ui/win32/box_keys_win32.h"
#include "ui/win32/form_win32.h"

namespace tarvik::ui {
namespace {

UINT StyleOf(report::BoxIcon icon) {
  switch (icon) {
    case report::BoxIcon::Exclamation:
      return MB_ICONEXCLAMATION;
    case report::BoxIcon::Critical:
      return MB_ICONERROR;
    default:
      return 0;
  }
}

}  // namespace

OtherFormsDisabled::OtherFormsDisabled(HWND owner) noexcept : owner_(owner) {
  EnumThreadWindows(GetCurrentThreadId(), &Disable, reinterpret_cast<LPARAM>(this));
}

OtherFormsDisabled::~OtherFormsDisabled() {
  for (HWND window : disabled_)
    if (Win32Form* form = Win32Form::Of(window)) form->SetEnabled(true);
}

BOOL CALLBACK OtherFormsDisabled::Disable(HWND window, LPARAM parameter) noexcept {
  auto& self = *reinterpret_cast<OtherFormsDisabled*>(parameter);
  Win32Form* form = Win32Form::Of(window);
  if (form == nullptr || window == self.owner_ || !form->Enabled() || self.count_ == self.disabled_.size())
    return TRUE;
  form->SetEnabled(false);
  self.disabled_.at(self.count_++) = window;
  return TRUE;
}

int ShowModalBox(HWND owner, const wchar_t* text, const wchar_t* title, UINT style) noexcept {
  const BoxKeys keys(Win32Form::Of(owner), text);
  if (!IsWindowVisible(owner)) owner = nullptr;
  const OtherFormsDisabled others(owner);
  return MessageBoxW(owner, text, title, style);
}

int Win32MessageBoxes::Box(const std::wstring& text, const std::wstring& title, UINT style) {
  return ShowModalBox(owner_.Window(), text.c_str(), title.empty() ? report::kProgramTitle : title.c_str(),
                      style);
}

void Win32MessageBoxes::Show(const std::wstring& text, report::BoxIcon icon, const std::wstring& title) {
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
