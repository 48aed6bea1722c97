#include "ui/win32/tab_strip_win32.h"

#include <algorithm>
#include <utility>

#include "platform/runtime_error.h"
#include "ui/win32/common_controls_win32.h"
#include "ui/win32/form_win32.h"

namespace tarvik::ui {
namespace {

/// ETDT_ENABLETAB: draws a panel with the themed background of tab pages.
constexpr DWORD kEnableTabTexture = 6;
constexpr int kInitialSizePixels = 4000;  ///< wider than any row of tabs
using EnableThemeDialogTextureFunction = HRESULT(WINAPI*)(HWND, DWORD);

/// Forwards the notifications of a panel's controls to the form.
INT_PTR CALLBACK PanelProcedure(HWND panel, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message != WM_COMMAND && message != WM_NOTIFY) return FALSE;
  SendMessageW(GetParent(panel), message, wParam, lParam);
  return TRUE;
}

}  // namespace

Win32TabStrip::Win32TabStrip(Win32Form& form, int page, int id, const std::vector<std::wstring>& captions)
    : UncaptionedControl(form, page, id, {WC_TABCONTROLW, WS_TABSTOP | WS_GROUP}) {
  for (const std::wstring& caption : captions) pages_.push_back({nullptr, caption});
  themes_.Load(L"uxtheme.dll");
  // A row that is too narrow for its tabs would get scroll buttons.
  PlaceAt({0, 0, kInitialSizePixels, kInitialSizePixels});
}

void Win32TabStrip::OnCreated() {
  for (int page = 0; page < PageCount(); ++page) InsertTab(page);
  Send(TCM_SETCURSEL, static_cast<WPARAM>(TabOf(front_)));
}

void Win32TabStrip::CreatePanel(int page) {
  // A template without controls: the header is followed by the empty names of the menu, class and title.
  // Windows expects it on a 4-byte boundary, although its declaration asks for 2 bytes only.
  struct alignas(4) {
    DLGTEMPLATE header;
    WORD names[3];
  } dialog{};
  static_assert(alignof(decltype(dialog)) == 4);
  dialog.header.style = WS_CHILD | WS_CLIPSIBLINGS | DS_CONTROL;
  dialog.header.dwExtendedStyle = WS_EX_CONTROLPARENT;
  HWND panel = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &dialog.header, form_.Window(),
                                          PanelProcedure, 0);
  if (panel == nullptr) ThrowLastError(L"A page could not be created.");
  At(page).panel = panel;
  form_.DpiScaling().KeepDialogUnscaled(panel);
  SetWindowTextW(panel, At(page).caption.c_str());
  EnableWindow(panel, IsEnabled());
  PlacePanel(panel);
  if (const auto enableTexture = themes_.Find<EnableThemeDialogTextureFunction>("EnableThemeDialogTexture"))
    enableTexture(panel, kEnableTabTexture);
}

void Win32TabStrip::PlacePanel(HWND panel) const {
  if (panel == nullptr) return;
  const Rect bounds = Place();
  const RECT area = PageArea(bounds.width, bounds.height);
  SetWindowPos(panel, Window(), bounds.x + static_cast<int>(area.left), bounds.y + static_cast<int>(area.top),
               static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top),
               SWP_NOACTIVATE);
}

const Win32TabStrip::Page& Win32TabStrip::At(int page) const {
  if (page < 0 || page >= PageCount()) throw RuntimeError(L"There is no such page.");
  return pages_[static_cast<size_t>(page)];
}

Win32TabStrip::Page& Win32TabStrip::At(int page) {
  return const_cast<Page&>(static_cast<const Win32TabStrip&>(*this).At(page));
}

int Win32TabStrip::TabOf(int page) const {
  return static_cast<int>(
      std::count_if(pages_.begin(), pages_.begin() + page, [](const Page& each) { return each.on; }));
}

int Win32TabStrip::PageOfTab(int tab) const {
  for (int page = 0; page < PageCount(); ++page)
    if (At(page).on && TabOf(page) == tab) return page;
  return kNone;
}

int Win32TabStrip::PageOfMnemonic(wchar_t letter) const {
  for (int page = 0; page < PageCount(); ++page)
    if (At(page).on && CaptionHasMnemonic(At(page).caption, letter)) return page;
  return kNone;
}

void Win32TabStrip::InsertTab(int page) {
  TCITEMW tab{};
  tab.mask = TCIF_TEXT;
  tab.pszText = At(page).caption.data();
  if (Send(TCM_INSERTITEMW, static_cast<WPARAM>(TabOf(page)), reinterpret_cast<LPARAM>(&tab)) < 0)
    ThrowLastError(L"A tab could not be added.");
}

void Win32TabStrip::SetPageCaption(int page, const std::wstring& caption) {
  if (caption == PageCaption(page)) return;
  std::wstring text = caption;
  TCITEMW tab{};
  tab.mask = TCIF_TEXT;
  tab.pszText = text.data();
  if (At(page).on && !Send(TCM_SETITEMW, static_cast<WPARAM>(TabOf(page)), reinterpret_cast<LPARAM>(&tab)))
    ThrowLastError(L"The caption of a tab could not be set.");
  if (At(page).panel != nullptr) SetWindowTextW(At(page).panel, text.c_str());  // for screen readers
  At(page).caption = std::move(text);
}

void Win32TabStrip::SetPageOn(int page, bool on) {
  if (At(page).on == on) return;
  if (on) {
    At(page).on = true;
    InsertTab(page);
    if (front_ == kNone) BringToFront(page);
  } else {
    Send(TCM_DELETEITEM, static_cast<WPARAM>(TabOf(page)));
    At(page).on = false;
    if (front_ == page) ReplaceFrontPage();
  }
}

void Win32TabStrip::ReplaceFrontPage() {
  const int next = PageOfTab(0);
  if (next != kNone)
    BringToFront(next);
  else
    Show(kNone);
}

void Win32TabStrip::BringToFront(int page) {
  if (!At(page).on) throw RuntimeError(L"The page is switched off.");
  if (page == front_) return;
  Show(page);
  Raise(onPageFront, page);
}

void Win32TabStrip::Show(int page) {
  HWND old = front_ == kNone ? nullptr : At(front_).panel;
  const bool hadFocus = old != nullptr && IsChild(old, GetFocus());
  front_ = page;
  if (page != kNone) {
    Send(TCM_SETCURSEL, static_cast<WPARAM>(TabOf(page)));
    form_.CreatePage(page);
    ShowFrontPanel();
    if (hadFocus) form_.FocusOnFirstOf(At(page).panel);
  }
  if (old != nullptr && (page == kNone || old != At(page).panel)) ShowWindow(old, SW_HIDE);
}

void Win32TabStrip::ShowFrontPanel() {
  if (front_ != kNone && At(front_).panel != nullptr && IsShown()) ShowWindow(At(front_).panel, SW_SHOWNA);
}

void Win32TabStrip::SwitchTo(int page) noexcept {
  RunHandler(form_, [&] {
    BringToFront(page);
    form_.FocusOnFirstOf(At(page).panel);
  });
}

void Win32TabStrip::CyclePages(bool backwards) noexcept {
  const int tabs = TabOf(PageCount());
  if (tabs == 0) return;
  const int tab = TabOf(front_) + (backwards ? tabs - 1 : 1);
  SwitchTo(PageOfTab(tab % tabs));
}

void Win32TabStrip::OnMnemonic(wchar_t letter) { SwitchTo(PageOfMnemonic(letter)); }

void Win32TabStrip::OnNotify(const NMHDR& notification) {
  if (notification.code != TCN_SELCHANGE) return;
  const int page = PageOfTab(static_cast<int>(Send(TCM_GETCURSEL)));
  if (page != kNone) RunHandler(form_, [&] { BringToFront(page); });
}

bool Win32TabStrip::AcceptsFocusAt(POINT place) const {
  TCHITTESTINFO test{};
  test.pt = place;
  return Send(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&test)) >= 0;
}

void Win32TabStrip::SetVisible(bool visible) {
  if (!visible && front_ != kNone) form_.MoveFocusFrom(At(front_).panel);
  ShowOrHide(visible);
  if (visible)
    ShowFrontPanel();
  else if (front_ != kNone && At(front_).panel != nullptr)
    ShowWindow(At(front_).panel, SW_HIDE);
}

void Win32TabStrip::SetEnabled(bool enabled) {
  if (!enabled && front_ != kNone) form_.MoveFocusFrom(At(front_).panel);
  EnableOrDisable(enabled);
  for (const Page& page : pages_)
    if (page.panel != nullptr) EnableWindow(page.panel, enabled);
}

RECT Win32TabStrip::PageArea(int width, int height) const {
  RECT area{0, 0, width, height};
  Send(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
  return area;
}

void Win32TabStrip::ApplyPlace() {
  const Rect bounds = Place();
  ControlWindow::ApplyPlace();
  const RECT area = PageArea(bounds.width, bounds.height);
  // The row is above the panels in the z-order. Cutting the page area out of its region makes them visible
  // and keeps the row from painting over them.
  HRGN frame = CreateRectRgn(0, 0, bounds.width, bounds.height);
  HRGN hole = CreateRectRgn(static_cast<int>(area.left), static_cast<int>(area.top),
                            static_cast<int>(area.right), static_cast<int>(area.bottom));
  CombineRgn(frame, frame, hole, RGN_DIFF);
  DeleteObject(hole);
  if (!SetWindowRgn(Window(), frame, TRUE)) DeleteObject(frame);
  for (const Page& page : pages_) PlacePanel(page.panel);
}

Size Win32TabStrip::FrameSize() const {
  const int size = form_.Scaled(1000);
  const RECT area = PageArea(size, size);
  return {size - static_cast<int>(area.right - area.left), size - static_cast<int>(area.bottom - area.top)};
}

Size Win32TabStrip::SizeFor(const std::wstring&) const {
  RECT first{};
  RECT last{};
  const int tabs = TabOf(PageCount());
  Send(TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&first));
  Send(TCM_GETITEMRECT, static_cast<WPARAM>(tabs - 1), reinterpret_cast<LPARAM>(&last));
  // The selected tab is drawn slightly wider than its item rectangle.
  int width = static_cast<int>(last.right - first.left) + form_.Scaled(8);
  for (const Page& page : pages_)
    if (!page.on)
      width += form_.Font().MeasureCaption(page.caption).width + form_.Scaled(2 * kTabPadding + 4);
  return {width, static_cast<int>(PageArea(width, 0).top)};
}

void Win32TabStrip::ApplyFont() {
  Send(TCM_SETPADDING, 0, MAKELPARAM(form_.Scaled(kTabPadding), form_.Scaled(3)));
  ControlWindow::ApplyFont();
}

}  // namespace tarvik::ui
