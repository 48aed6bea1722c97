#include <utility>

#include "ui/win32/common_controls_win32.h"
#include "ui/win32/form_win32.h"

// The form's window procedure: closing, the end of the session, scaling, fonts and colours. Keys are handled
// earlier, in message_filter_win32.cpp; menus in form_menus_win32.cpp.

namespace tarvik::ui {
namespace {

constexpr UINT kLayOutAgain = WM_APP;

}  // namespace

LRESULT CALLBACK Win32Form::WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    auto* form = static_cast<Win32Form*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
    form->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(form));
  }
  auto* form = reinterpret_cast<Win32Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (form == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  const LRESULT result = form->OnMessage(message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    form->window_ = nullptr;
  }
  return result;
}

LRESULT Win32Form::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  // Ignore messages that arrive during destruction.
  if (unloaded_ && message != WM_DESTROY) return DefWindowProcW(window_, message, wParam, lParam);
  switch (message) {
    case WM_COMMAND:
      OnCommand(wParam, lParam);
      return 0;
    case WM_NOTIFY: {
      const auto& notification = *reinterpret_cast<const NMHDR*>(lParam);
      if (ControlWindow* control = ControlWithId(static_cast<int>(notification.idFrom)))
        control->OnNotify(notification);
      return 0;
    }
    case WM_TIMER:
      OnTimer(wParam);
      return 0;
    case WM_CONTEXTMENU:
      if (OnContextMenu(reinterpret_cast<HWND>(wParam), lParam)) return 0;
      break;
    case WM_INITMENUPOPUP:
      if (onUpdateCommands && HIWORD(lParam) == FALSE) RunHandler(*this, onUpdateCommands);
      break;
    case WM_SIZE:
      if (layoutDue_ && wParam != SIZE_MINIMIZED) UpdateLayout();
      if (onResize) RunHandler(*this, onResize);
      // Activating a window while it is still minimised does not give it the focus.
      if (wParam != SIZE_MINIMIZED && GetActiveWindow() == window_ && !IsChild(window_, GetFocus()))
        RestoreFocus();
      return 0;
    case WM_GETMINMAXINFO:
      SetMinTrackSize(*reinterpret_cast<MINMAXINFO*>(lParam));
      return 0;
    case WM_SETCURSOR:
      if (ControlWindow* control = ControlOf(reinterpret_cast<HWND>(wParam))) control->OnPointerOver();
      if (ShowHourglassCursor()) return TRUE;
      break;
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE && IsChild(window_, GetFocus())) lastFocus_ = GetFocus();
      if (LOWORD(wParam) != WA_INACTIVE && taskbarButton_.State() == TaskbarState::Failed)
        SetTaskbarState(TaskbarState::None);
      if (LOWORD(wParam) != WA_INACTIVE && onActivate) RunHandler(*this, onActivate);
      break;
    case WM_SETFOCUS:
      RestoreFocus();
      return 0;
    case WM_DPICHANGED:
      OnDpiChanged(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return 0;
    case kLayOutAgain:
      // The controls may no longer have the fonts and places that they remember.
      for (const auto& control : controls_) control->ApplyFont();
      UpdateLayout();
      return 0;
    case WM_SETTINGCHANGE:
    case WM_DISPLAYCHANGE:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      OnAppearanceChanged(message, wParam, lParam);
      break;
    case WM_CLOSE:
      OnClose();
      return 0;
    case WM_QUERYENDSESSION:
      return SessionMayEnd();
    case WM_ENDSESSION:
      if (wParam == FALSE) ShutdownBlockReasonDestroy(window_);
      if (wParam != FALSE && onEndSession) RunHandler(*this, onEndSession);
      return 0;
    case WM_DESTROY:
      OnDestroy();
      return 0;
  }
  if (taskbarButton_.IsCreatedMessage(message)) taskbarButton_.OnCreated(window_, com_);
  return DefWindowProcW(window_, message, wParam, lParam);
}

void Win32Form::SetMinTrackSize(MINMAXINFO& info) const {
  info.ptMinTrackSize.x = minimumSize_.width;
  info.ptMinTrackSize.y = minimumSize_.height;
}

bool Win32Form::ShowHourglassCursor() const {
  if (pointer_ != Pointer::Hourglass) return false;
  SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  return true;
}

// Closing

bool Win32Form::UserMayClose(const std::function<bool()>& question) noexcept {
  bool agrees = false;
  RunHandler(*this, [&] { agrees = Agrees(question); });
  return agrees;
}

bool Win32Form::SessionMayEnd() noexcept {
  // Even while disabled: an unanswered message box must not keep the PC from shutting down.
  const bool agrees = UserMayClose(onQueryEndSession);
  if (agrees)
    ShutdownBlockReasonDestroy(window_);
  else
    ShutdownBlockReasonCreate(window_, shutdownBlockReason.c_str());
  return agrees;
}

void Win32Form::OnClose() noexcept {
  // A disabled window is waiting for a message box or a running test. Its close button does not work, but the
  // taskbar can still send WM_CLOSE.
  if (Enabled() && UserMayClose(onQueryClose)) DestroyWindow(window_);
}

void Win32Form::Unload() noexcept {
  if (std::exchange(unloaded_, true)) return;
  if (onUnload) RunHandler(*this, onUnload);
}

void Win32Form::OnDestroy() noexcept {
  Unload();
  // Win32Menu owns the menu bar, which the window would destroy as well.
  SetMenu(window_, nullptr);
  if (role_ == FormRole::Main) PostQuitMessage(0);
}

// Scaling, font and colours

bool Win32Form::ApplyMessageFont() noexcept {
  const LOGFONTW wanted = scaling_.MessageFont(dpi_);
  if (font_ != nullptr && font_->Matches(wanted)) return false;
  // The old font must outlive its use by the controls.
  const std::unique_ptr<MeasuredFont> old = std::exchange(font_, std::make_unique<MeasuredFont>(wanted));
  for (const auto& control : controls_) control->ApplyFont();
  return true;
}

void Win32Form::OnDpiChanged(int dpi, const RECT& suggested) noexcept {
  dpi_ = dpi;
  ApplyMessageFont();
  SetIcons();
  // Measured at the old scaling; the layout sets the new one.
  minimumSize_ = {};
  // The rectangle suggested for a minimised window is that of its icon.
  if (!Minimised())
    SetWindowPos(window_, nullptr, static_cast<int>(suggested.left), static_cast<int>(suggested.top),
                 static_cast<int>(suggested.right - suggested.left),
                 static_cast<int>(suggested.bottom - suggested.top), SWP_NOZORDER | SWP_NOACTIVATE);
  UpdateLayout();
  // Windows may rescale the pages' controls after this message; the program's layout comes last.
  PostMessageW(window_, kLayOutAgain, 0, 0);
}

void Win32Form::OnAppearanceChanged(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_SYSCOLORCHANGE) {
    // Windows sends it to top-level windows only, which must forward it to the common controls.
    for (const auto& control : controls_)
      if (control->Window() != nullptr) SendMessageW(control->Window(), message, wParam, lParam);
  }
  const bool newFont = message == WM_SETTINGCHANGE && ApplyMessageFont();
  const bool newWorkArea = message == WM_SETTINGCHANGE && wParam == SPI_SETWORKAREA;
  if (newFont || newWorkArea || message != WM_SETTINGCHANGE) UpdateLayout();
}

void Win32Form::UpdateLayout() noexcept {
  layoutDue_ = Minimised();
  if (layoutDue_) return;
  if (onScalingChanged) RunHandler(*this, onScalingChanged);
  // When a control is moved, Windows copies its old pixels, which are wrong if it also looks different now.
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

}  // namespace tarvik::ui
