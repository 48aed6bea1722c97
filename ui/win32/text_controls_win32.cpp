#include <algorithm>
#include <utility>

#include "platform/runtime_error.h"
#include "ui/win32/common_controls_win32.h"
#include "ui/win32/controls_win32.h"
#include "ui/win32/form_win32.h"

// Win32TextBox and Win32ComboBox of controls_win32.h.

namespace tarvik::ui {
namespace {

constexpr wchar_t kCtrlA = 1;
constexpr wchar_t kCtrlBackspace = 0x7F;
constexpr wchar_t kBackspace = 8;
constexpr wchar_t kBlackCircle = 0x25CF;  ///< the password character of Windows itself
constexpr int kVisibleItems = 10;
constexpr int kFieldPadding = 4;  ///< total above and below the text, in pixels at 96 dots per inch

/// False for control characters, such as those of the clipboard keys, which the control handles itself.
bool IsTyped(WPARAM letter) { return letter >= L' ' || letter == kBackspace; }

/// An edit field draws its text at the top, so any extra height would show below the text.
int FieldHeight(const Win32Form& form) {
  return form.LineHeight() + 2 * form.Metric(SM_CYEDGE) + form.Scaled(kFieldPadding);
}

/// Calls the program's filter for a typed letter, which it may replace. False when it discarded the letter.
bool PassesFilter(Win32Form& form, const KeyPress& filter, WPARAM& letter) noexcept {
  if (!filter || !IsTyped(letter)) return true;
  auto keyAscii = static_cast<int16_t>(letter);
  RunHandler(form, [&] { filter(keyAscii); });
  letter = static_cast<uint16_t>(keyAscii);
  return keyAscii != 0;
}

/// Ctrl+Backspace, which an edit window itself would take for the character U+007F: deletes the selection, or
/// else the letters and digits before the caret with what separates them from it. In a password everything
/// before it.
void DeleteWordBeforeCaret(HWND edit, bool password) {
  DWORD start = 0;
  DWORD end = 0;
  SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  if (start == end) {
    std::wstring text(static_cast<size_t>(GetWindowTextLengthW(edit)), L'\0');
    text.resize(static_cast<size_t>(GetWindowTextW(edit, text.data(), static_cast<int>(text.size()) + 1)));
    start = std::min(start, static_cast<DWORD>(text.size()));
    const auto skip = [&](bool words) {
      while (start > 0 && (IsCharAlphaNumericW(text[start - 1]) != FALSE) == words) --start;
    };
    skip(false);
    skip(true);
    if (password) start = 0;
    SendMessageW(edit, EM_SETSEL, start, static_cast<LPARAM>(end));
  }
  SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
}

bool IsSpace(wchar_t letter) {
  return letter == L' ' || letter == L'\t' || letter == L'\u00A0' || letter == L'\u3000';
}

/// The first line of the text, which is what an edit window pastes, without the spaces around it.
std::wstring TrimmedLine(const std::wstring& text) {
  size_t end = std::min(text.find_first_of(L"\r\n"), text.size());
  size_t start = 0;
  while (start < end && IsSpace(text[start])) ++start;
  while (start < end && IsSpace(text[end - 1])) --end;
  return text.substr(start, end - start);
}

/// The text on the clipboard; empty if it has no text or another program holds the clipboard.
std::wstring ClipboardText(HWND window) {
  std::wstring text;
  if (!OpenClipboard(window)) return text;
  HANDLE data = GetClipboardData(CF_UNICODETEXT);
  if (const auto* letters = data == nullptr ? nullptr : static_cast<const wchar_t*>(GlobalLock(data))) {
    const size_t capacity = GlobalSize(data) / sizeof *letters;
    text.assign(letters, std::find(letters, letters + capacity, L'\0'));
    GlobalUnlock(data);
  }
  CloseClipboard();
  return text;
}

}  // namespace

Win32TextBox::Win32TextBox(Win32Form& form, int page, int id, TextBoxStyle style)
    : UncaptionedControl(form, page, id,
                         {L"Edit",
                          ES_AUTOHSCROLL | WS_TABSTOP | WS_GROUP |
                              (style == TextBoxStyle::Password ? DWORD{ES_PASSWORD} : 0),
                          WS_EX_CLIENTEDGE}),
      masked_(style == TextBoxStyle::Password),
      takesInputMethod_(style == TextBoxStyle::Plain) {}

void Win32TextBox::OnCreated() {
  Send(EM_SETLIMITTEXT, 0);
  if (masked_ != PasswordMask()) SetPasswordMask(masked_);
  if (!takesInputMethod_) form_.RemoveInputMethod(Window());
  Subclass(Window());
}

Size Win32TextBox::SizeFor(const std::wstring& caption) const {
  // Includes space for the caret after the last letter.
  return {form_.Font().TextWidth(caption) + form_.Scaled(16), FieldHeight(form_)};
}

void Win32TextBox::SetPasswordMask(bool masked) {
  masked_ = masked;
  if (!IsCreated()) return;
  Send(EM_SETPASSWORDCHAR, masked ? kBlackCircle : 0);
  InvalidateRect(Window(), nullptr, TRUE);
}

bool Win32TextBox::PasswordMask() const { return IsCreated() ? Send(EM_GETPASSWORDCHAR) != 0 : masked_; }

void Win32TextBox::SetSelection(int start, int length) {
  if (IsCreated()) Send(EM_SETSEL, static_cast<WPARAM>(start), static_cast<LPARAM>(start) + length);
}

void Win32TextBox::OnCommand(WORD notification) {
  if (notification == EN_SETFOCUS) Raise(onGotFocus);
}

bool Win32TextBox::Validate() {
  bool agrees = true;
  if (onValidate) RunHandler(form_, [&] { agrees = onValidate(); });
  return agrees;
}

void Win32TextBox::OnButtonDown(int16_t button, UINT message, WPARAM wParam, LPARAM lParam) {
  // A click that gives the box the focus must not undo the selection that onGotFocus makes.
  if (onGotFocus && button == kLeftButton && GetFocus() != Window())
    TakeFocus();
  else
    CallOriginal(message, wParam, lParam);
  Raise(onMouseDown, button, HeldShiftStates());
}

LRESULT Win32TextBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CHAR:
      if (wParam == kCtrlA) {
        SetSelection(0, -1);
        return 0;
      }
      if (wParam == kCtrlBackspace) {
        RunHandler(form_, [this] { DeleteWordBeforeCaret(Window(), PasswordMask()); });
        return 0;
      }
      if (!PassesFilter(form_, onKeyPress, wParam)) return 0;
      break;
    case WM_LBUTTONDOWN:
      OnButtonDown(kLeftButton, message, wParam, lParam);
      return 0;
    case WM_RBUTTONDOWN:
      OnButtonDown(kRightButton, message, wParam, lParam);
      return 0;
  }
  return CallOriginal(message, wParam, lParam);
}

Win32ComboBox::Win32ComboBox(Win32Form& form, int page, int id, ComboBoxStyle style)
    : UncaptionedControl(
          form, page, id,
          {L"ComboBox", (style == ComboBoxStyle::Editable ? DWORD{CBS_DROPDOWN | CBS_AUTOHSCROLL}
                                                          : DWORD{CBS_DROPDOWNLIST}) |
                            WS_VSCROLL | WS_TABSTOP | WS_GROUP}) {}

void Win32ComboBox::OnCreated() {
  Send(CB_SETMINVISIBLE, kVisibleItems);
  if ((Style() & CBS_DROPDOWNLIST) == CBS_DROPDOWNLIST) return;
  Send(CB_LIMITTEXT, 0);
  COMBOBOXINFO parts{};
  parts.cbSize = sizeof parts;
  if (!GetComboBoxInfo(Window(), &parts) || parts.hwndItem == nullptr)
    ThrowLastError(L"A control could not be created.");
  form_.RemoveInputMethod(parts.hwndItem);
  Subclass(parts.hwndItem);
}

Size Win32ComboBox::SizeFor(const std::wstring& caption) const {
  return {form_.Font().TextWidth(caption) + form_.Scaled(16) + form_.Metric(SM_CXVSCROLL), Place().height};
}

void Win32ComboBox::SetBounds(const Rect& bounds) {
  // The window's height includes that of the drop-down list.
  Rect whole = bounds;
  whole.height += kVisibleItems * static_cast<int>(Send(CB_GETITEMHEIGHT, 0)) + form_.Scaled(2);
  Move(whole);
}

int Win32ComboBox::Count() const { return static_cast<int>(std::max<LRESULT>(0, Send(CB_GETCOUNT))); }

std::wstring Win32ComboBox::Item(int index) const {
  const LRESULT length = Send(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
  if (index < 0 || length < 0) return {};
  std::wstring text(static_cast<size_t>(length), L'\0');
  Send(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  return text;
}

void Win32ComboBox::InsertItem(int index, const std::wstring& text) {
  if (index < 0 || index > Count() ||
      Send(CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.c_str())) < 0)
    throw RuntimeError(L"An item could not be added to the drop-down list.");
}

void Win32ComboBox::Clear() { Send(CB_RESETCONTENT); }

void Win32ComboBox::Select(int index) {
  if (index < 0 || Send(CB_SETCURSEL, static_cast<WPARAM>(index)) < 0)
    throw RuntimeError(L"The drop-down list has no such item.");
}

void Win32ComboBox::OnCommand(WORD notification) {
  // Windows reports a selection before it copies the item to the field. In the open list it is not final: Esc
  // takes it back, which Windows reports by closing the list only.
  if (notification == CBN_SELCHANGE && Send(CB_GETDROPPEDSTATE) == FALSE)
    Raise(onChange, Item(SelectedIndex()));
  if (notification == CBN_EDITCHANGE || notification == CBN_CLOSEUP) Raise(onChange, Text());
}

void Win32ComboBox::AcceptListEntry() {
  // Typing clears the selection; then the field keeps its text.
  const LRESULT index = Send(CB_GETCURSEL);
  Send(CB_SHOWDROPDOWN, FALSE);
  if (index < 0) return;
  Send(CB_SETCURSEL, static_cast<WPARAM>(index));
  Raise(onChange, Text());
}

void Win32ComboBox::Paste() {
  const std::wstring text = TrimmedLine(ClipboardText(SubclassedWindow()));
  if (text.empty())
    CallOriginal(WM_PASTE, 0, 0);
  else
    SendMessageW(SubclassedWindow(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

LRESULT Win32ComboBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      decimalKeyDown_ = wParam == VK_DECIMAL;
      // The open list handles keys itself, but Enter accepts its entry and then also raises onKeyDown.
      if (IsListOpen() && wParam == VK_RETURN) AcceptListEntry();
      if (!IsListOpen()) Raise(onKeyDown, static_cast<int16_t>(wParam), HeldShiftStates());
      break;
    case WM_CHAR:
      if (wParam == kCtrlA) {
        Send(CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
        return 0;
      }
      if (wParam == kCtrlBackspace) {
        RunHandler(form_, [this] { DeleteWordBeforeCaret(SubclassedWindow(), false); });
        return 0;
      }
      // On many keyboard layouts the key types a comma, with which no address can be entered.
      if (std::exchange(decimalKeyDown_, false)) wParam = L'.';
      if (!PassesFilter(form_, onKeyPress, wParam)) return 0;
      break;
    case WM_PASTE:
      RunHandler(form_, [this] { Paste(); });
      return 0;
  }
  return CallOriginal(message, wParam, lParam);
}

}  // namespace tarvik::ui
