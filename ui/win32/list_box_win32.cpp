#include <algorithm>
#include <utility>

#include "platform/runtime_error.h"
#include "ui/win32/common_controls_win32.h"
#include "ui/win32/controls_win32.h"
#include "ui/win32/form_win32.h"

// Win32ListBox of controls_win32.h.

namespace tarvik::ui {
namespace {

/// In dialog units: 11 letters of average width. The system's default of 8 is too narrow for captions of
/// eight letters with capitals among them, so the values after the tab would not line up.
constexpr UINT kTabStopUnits = 44;

}  // namespace

Win32ListBox::Win32ListBox(Win32Form& form, int page, int id, const std::wstring& toolTip)
    : UncaptionedControl(form, page, id,
                         {L"ListBox",
                          LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS | WS_VSCROLL | WS_HSCROLL |
                              WS_TABSTOP | WS_GROUP,
                          WS_EX_CLIENTEDGE}),
      toolTip_(toolTip) {}

void Win32ListBox::OnPointerOver() { toolTip_.OnPointerOver(form_.Window(), Window()); }

void Win32ListBox::UseFixedPitch(bool japanese) {
  const wchar_t* const face = japanese ? L"MS Gothic" : L"Consolas";
  face_ = IsOutlineFace(face) ? face : nullptr;
  ApplyFont();
}

void Win32ListBox::ApplyFont() {
  // The old font must outlive its use by the control.
  const std::unique_ptr<MeasuredFont> old = std::move(fixedPitch_);
  if (face_ != nullptr) fixedPitch_ = form_.Font().InFace(face_);
  SetFont(Font());
  UINT stop = kTabStopUnits;
  Send(LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&stop));
}

const MeasuredFont& Win32ListBox::Font() const {
  return fixedPitch_ != nullptr ? *fixedPitch_ : form_.Font();
}

Size Win32ListBox::SizeFor(const std::wstring& caption) const {
  return {Font().TabbedTextWidth(caption, kTabStopUnits) + form_.Scaled(12) + form_.Metric(SM_CXVSCROLL),
          Font().LineHeight() + form_.Scaled(6) + form_.Metric(SM_CYHSCROLL)};
}

int Win32ListBox::Count() const { return static_cast<int>(std::max<LRESULT>(0, Send(LB_GETCOUNT))); }

std::wstring Win32ListBox::Item(int index) const {
  const LRESULT length = Send(LB_GETTEXTLEN, static_cast<WPARAM>(index));
  if (index < 0 || length < 0) return {};
  std::wstring text(static_cast<size_t>(length), L'\0');
  Send(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  return text;
}

void Win32ListBox::AddItem(const std::wstring& text) {
  if (Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())) < 0)
    throw RuntimeError(L"A line could not be added to the list.");
}

void Win32ListBox::Clear() { Send(LB_RESETCONTENT); }

void Win32ListBox::Select(int index) {
  // LB_SETCURSEL may leave the line partly hidden, so scroll first.
  const LRESULT lineHeight = std::max<LRESULT>(1, Send(LB_GETITEMHEIGHT));
  RECT client{};
  GetClientRect(Window(), &client);
  const LRESULT whole = std::max<LRESULT>(1, client.bottom / lineHeight);
  if (index >= Send(LB_GETTOPINDEX) + whole) Send(LB_SETTOPINDEX, static_cast<WPARAM>(index - whole + 1));
  // For -1, which clears the selection, LB_SETCURSEL returns LB_ERR on success too.
  if (Send(LB_SETCURSEL, static_cast<WPARAM>(index)) < 0 && index != -1)
    throw RuntimeError(L"The list has no such line.");
}

int Win32ListBox::SelectedIndex() const { return static_cast<int>(Send(LB_GETCURSEL)); }

int Win32ListBox::ClientWidth() const {
  RECT client{};
  GetClientRect(Window(), &client);
  return static_cast<int>(client.right);
}

void Win32ListBox::SetHorizontalExtent(int pixels) {
  if (Send(LB_GETHORIZONTALEXTENT) == pixels) return;
  Send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(pixels));
  // The scroll bar that may now appear must not cover the selected line.
  if (SelectedIndex() >= 0) Select(SelectedIndex());
}

void Win32ListBox::SetRedraw(bool redraw) {
  Send(WM_SETREDRAW, redraw);
  if (redraw) RedrawWindow(Window(), nullptr, nullptr, RDW_ERASE | RDW_FRAME | RDW_INVALIDATE);
}

void Win32ListBox::OnCommand(WORD notification) {
  if (notification == LBN_DBLCLK) Raise(onDoubleClick);
  if (notification == LBN_SELCHANGE) Raise(onSelect);
}

void Win32ListBox::SelectAt(POINT place) {
  ScreenToClient(Window(), &place);
  RECT client{};
  GetClientRect(Window(), &client);
  // Not LB_ITEMFROMPOINT, whose answer has only 16 bits for the line.
  const LRESULT line = Send(LB_GETTOPINDEX) + place.y / std::max<LRESULT>(1, Send(LB_GETITEMHEIGHT));
  if (!PtInRect(&client, place) || line >= Send(LB_GETCOUNT)) return;
  Send(LB_SETCURSEL, static_cast<WPARAM>(line));
  Raise(onSelect);
}

POINT Win32ListBox::PlaceForMenu() const {
  RECT client{};
  GetClientRect(Window(), &client);
  RECT line{};
  const bool selected =
      Send(LB_GETITEMRECT, static_cast<WPARAM>(SelectedIndex()), reinterpret_cast<LPARAM>(&line)) >= 0;
  POINT place{0, selected && SelectedIndex() >= 0 && line.bottom > 0 && line.bottom <= client.bottom
                     ? line.bottom
                     : 0};
  ClientToScreen(Window(), &place);
  return place;
}

}  // namespace tarvik::ui
