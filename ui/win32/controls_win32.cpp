#include "ui/win32/controls_win32.h"

#include <algorithm>

#include "ui/win32/common_controls_win32.h"
#include "ui/win32/form_win32.h"

// Labels, buttons and check boxes.

namespace tarvik::ui {
namespace {

// In pixels at 96 dots per inch, from the Windows design guidelines.
constexpr int kMinButtonWidth = 75;
constexpr int kMinButtonHeight = 23;
constexpr int kButtonPadding = 10;  ///< on each side of the caption
constexpr int kCheckMark = 13;
constexpr int kCheckGap = 6;  ///< between the mark and the caption

}  // namespace

Win32Label::Win32Label(Win32Form& form, int page, int id, LabelKind kind)
    : CaptionedControl(
          form, page, id,
          {L"Static", (kind == LabelKind::LiveRegion ? DWORD{SS_LEFT | SS_ENDELLIPSIS | SS_NOPREFIX}
                                                     : DWORD{SS_LEFTNOWORDWRAP}) |
                          SS_NOTIFY | WS_GROUP}),
      kind_(kind) {}

void Win32Label::SetCaption(const std::wstring& caption) {
  if (kind_ == LabelKind::Caption) return CaptionedControl::SetCaption(caption);
  if (caption == Caption()) return;
  CaptionedControl::SetCaption(caption);
  Annotations::LiveRegionChanged(Window());
}

bool Win32Label::HasMnemonic(wchar_t letter) const {
  return kind_ == LabelKind::Caption && CaptionedControl::HasMnemonic(letter);
}

void Win32Label::Annotate() {
  if (kind_ == LabelKind::LiveRegion) form_.ScreenReaders().MakeLiveRegion(Window());
}

Size Win32Label::SizeFor(const std::wstring& caption) const {
  const Size text = form_.Font().MeasureCaption(caption);
  // The last letter of a slanted font extends beyond the measured width.
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
  return {std::max(form_.Scaled(kMinButtonWidth), text.width + 2 * form_.Scaled(kButtonPadding)),
          std::max(form_.Scaled(kMinButtonHeight), text.height + form_.Scaled(8))};
}

void Win32Button::OnCommand(WORD notification) {
  switch (notification) {
    // The second press of a double click arrives as BN_DBLCLK and is ignored: it must not stop the run that
    // the first one started.
    case BN_CLICKED:
      Raise(onClick);
      break;
    // Enter presses the button that has the focus, so that one is drawn as the default button.
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
  // Not BM_CLICK, which a button ignores while the handler of an earlier click still runs.
  OnCommand(BN_CLICKED);
}

Win32CheckBox::Win32CheckBox(Win32Form& form, int page, int id)
    : CaptionedControl(form, page, id, {L"Button", BS_AUTOCHECKBOX | WS_TABSTOP | WS_GROUP}) {}

Size Win32CheckBox::SizeFor(const std::wstring& caption) const {
  const Size text = form_.Font().MeasureCaption(caption);
  return {form_.Scaled(kCheckMark) + form_.Scaled(kCheckGap) + text.width + form_.Scaled(2),
          std::max(form_.Scaled(kCheckMark) + form_.Scaled(4), text.height + form_.Scaled(2))};
}

void Win32CheckBox::OnCreated() {
  if (checked_) Send(BM_SETCHECK, BST_CHECKED);
}

bool Win32CheckBox::Checked() const { return IsCreated() ? Send(BM_GETCHECK) == BST_CHECKED : checked_; }

void Win32CheckBox::SetChecked(bool checked) {
  if (checked == Checked()) return;
  checked_ = checked;
  if (IsCreated()) Send(BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED);
  Raise(onClick);
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
