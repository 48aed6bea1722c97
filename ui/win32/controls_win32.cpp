#include "ui/win32/controls_win32.h"

#include <algorithm>

#include "ui/win32/common_controls_win32.h"
#include "ui/win32/form_win32.h"

namespace tarvik::ui {
namespace {

// Sizes at 96 dots per inch, as the guidelines for Windows have them.
constexpr int kButtonWidth = 75;
constexpr int kButtonHeight = 23;
constexpr int kButtonPadding = 10;  ///< left and right of the caption each
constexpr int kCheckMark = 13;
constexpr int kCheckGap = 6;  ///< between the mark and the caption

}  // namespace

Win32Label::Win32Label(Win32Form& form, int page, int id)
    : CaptionedControl(form, page, id, {L"Static", SS_LEFTNOWORDWRAP | SS_NOTIFY | WS_GROUP}) {}

Size Win32Label::SizeFor(const std::wstring& caption) const {
  const Size text = form_.Font().MeasureCaption(caption);
  // Slanting last letters reach beyond the measured width.
  return {text.width + form_.Scaled(2), std::max(text.height, form_.LineHeight())};
}

void Win32Label::OnCommand(WORD notification) {
  if (notification == STN_CLICKED) Raise(onClick);
}

void Win32Label::OnPointerOver() { toolTip_.OnPointerOver(form_.Window(), Window()); }

void Win32Label::OnMnemonic(wchar_t) { form_.FocusOnFieldOf(*this); }

LRESULT Win32Label::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = CallOriginal(message, wParam, lParam);
  if (message == WM_LBUTTONDOWN) Raise(onMouseDown, kLeftButton, HeldShiftStates());
  if (message == WM_RBUTTONDOWN) Raise(onMouseDown, kRightButton, HeldShiftStates());
  return result;
}

Win32Button::Win32Button(Win32Form& form, int page, int id, bool startsGroup)
    : CaptionedControl(
          form, page, id,
          {L"Button", BS_PUSHBUTTON | BS_NOTIFY | WS_TABSTOP | (startsGroup ? DWORD{WS_GROUP} : 0)}) {}

Size Win32Button::SizeFor(const std::wstring& caption) const {
  const Size text = form_.Font().MeasureCaption(caption);
  return {std::max(form_.Scaled(kButtonWidth), text.width + 2 * form_.Scaled(kButtonPadding)),
          std::max(form_.Scaled(kButtonHeight), text.height + form_.Scaled(8))};
}

void Win32Button::OnCommand(WORD notification) {
  switch (notification) {
    // Once for a double click: its second press comes as BN_DBLCLK, and must not stop what the first started.
    case BN_CLICKED:
      Raise(onClick);
      break;
    // The button with the focus is the one that Enter presses, and looks like it.
    case BN_SETFOCUS:
      Send(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
      break;
    case BN_KILLFOCUS:
      Send(BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
      break;
  }
}

void Win32Button::OnMnemonic(wchar_t) {
  TakeFocus();
  // Not BM_CLICK: the button ignores it while the handler of an earlier one still runs.
  OnCommand(BN_CLICKED);
}

Win32CheckBox::Win32CheckBox(Win32Form& form, int page, int id)
    : CaptionedControl(form, page, id, {L"Button", BS_AUTOCHECKBOX | WS_TABSTOP | WS_GROUP}) {}

Size Win32CheckBox::SizeFor(const std::wstring& caption) const {
  const Size text = form_.Font().MeasureCaption(caption);
  return {form_.Scaled(kCheckMark) + form_.Scaled(kCheckGap) + text.width + form_.Scaled(2),
          std::max(form_.Scaled(kCheckMark) + form_.Scaled(4), text.height + form_.Scaled(2))};
}

void Win32CheckBox::OnMade() {
  if (checked_) Send(BM_SETCHECK, BST_CHECKED);
}

bool Win32CheckBox::Checked() const { return IsMade() ? Send(BM_GETCHECK) == BST_CHECKED : checked_; }

void Win32CheckBox::SetChecked(bool checked) {
  if (checked == Checked()) return;
  checked_ = checked;
  if (IsMade()) Send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED);
  if (onClick) onClick();
}

void Win32CheckBox::OnCommand(WORD notification) {
  if (notification == BN_CLICKED) Raise(onClick);
}

void Win32CheckBox::OnMnemonic(wchar_t) {
  TakeFocus();
  Send(BM_SETCHECK, Checked() ? BST_UNCHECKED : BST_CHECKED);
  Raise(onClick);
}

}  // namespace tarvik::ui
