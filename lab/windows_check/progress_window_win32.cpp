#include "lab/windows_check/progress_window_win32.h"

// After windows.h.
#include <commctrl.h>

namespace tarvik::check {
namespace {

constexpr int kDoneButton = 1;
constexpr int kSkipButton = 2;
constexpr int kQuestionTimeOutMs = 120000;
constexpr UINT kEndMessage = WM_APP;
constexpr SIZE kClientSize = {420, 150};  // at 100 percent

void ShowOrHide(HWND control, bool visible) { ::ShowWindowAsync(control, visible ? SW_SHOWNA : SW_HIDE); }

}  // namespace

ProgressWindow::ProgressWindow() {
  const HINSTANCE program = ::GetModuleHandleW(nullptr);
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_PROGRESS_CLASS};
  ::InitCommonControlsEx(&controls);
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.lpfnWndProc = Handle;
  description.hInstance = program;
  description.hIcon = ::LoadIconW(program, MAKEINTRESOURCEW(1));
  description.hCursor = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  description.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
  description.lpszClassName = L"WindowsCheckProgress";
  ::RegisterClassExW(&description);

  const HDC screen = ::GetDC(nullptr);
  dpi_ = ::GetDeviceCaps(screen, LOGPIXELSY);
  ::ReleaseDC(nullptr, screen);
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  font_ = ::CreateFontIndirectW(&metrics.lfMessageFont);

  constexpr DWORD kStyle = WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
  RECT outer = {0, 0, Scaled(kClientSize.cx), Scaled(kClientSize.cy)};
  ::AdjustWindowRectEx(&outer, kStyle, FALSE, WS_EX_TOPMOST);
  RECT work{};
  ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  const auto width = static_cast<int>(outer.right - outer.left);
  const auto height = static_cast<int>(outer.bottom - outer.top);
  window_ = ::CreateWindowExW(WS_EX_TOPMOST, description.lpszClassName, L"Windows check", kStyle,
                              static_cast<int>(work.right) - width, static_cast<int>(work.bottom) - height,
                              width, height, nullptr, nullptr, program, nullptr);
  if (window_ == nullptr) throw CheckError("the progress window cannot be created");
  ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  text_ = AddChild(L"Static", L"", WS_VISIBLE, 0, {12, 12, 396, 72});
  bar_ = AddChild(PROGRESS_CLASSW, L"", WS_VISIBLE, 0, {12, 88, 396, 14});
  done_ = AddChild(L"Button", L"Done", WS_TABSTOP, kDoneButton, {232, 114, 84, 26});
  skip_ = AddChild(L"Button", L"Skip", WS_TABSTOP, kSkipButton, {324, 114, 84, 26});
  answered_ = ::CreateEventW(nullptr, FALSE, FALSE, nullptr);
  // Active, because only the foreground process can give the product and the driver the foreground.
  ::ShowWindow(window_, SW_SHOWNORMAL);
}

ProgressWindow::~ProgressWindow() {
  ::DestroyWindow(window_);
  ::DeleteObject(font_);
  ::CloseHandle(answered_);
}

/// `place`: left, top, width and height at 100 percent.
HWND ProgressWindow::AddChild(const wchar_t* windowClass, const wchar_t* text, DWORD style, int id,
                              RECT place) {
  const HWND child = ::CreateWindowExW(0, windowClass, text, WS_CHILD | style, Scaled(place.left),
                                       Scaled(place.top), Scaled(place.right), Scaled(place.bottom), window_,
                                       reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  ::SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
  return child;
}

void ProgressWindow::Run() {
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (::IsDialogMessageW(window_, &message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

void ProgressWindow::End() { ::PostMessageW(window_, kEndMessage, 0, 0); }

void ProgressWindow::Show(const std::string& text, int done, int total) {
  ::SetWindowTextW(text_, FromUtf8(text).c_str());
  ::SendMessageW(bar_, PBM_SETRANGE32, 0, total);
  ::SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(done), 0);
}

bool ProgressWindow::Ask(const std::string& question) {
  answer_ = false;
  ::ResetEvent(answered_);
  ::SetWindowTextW(text_, FromUtf8(question).c_str());
  ShowOrHide(done_, true);
  ShowOrHide(skip_, true);
  WaitUntil(kQuestionTimeOutMs, [this] { return ::WaitForSingleObject(answered_, 0) == WAIT_OBJECT_0; });
  ShowOrHide(done_, false);
  ShowOrHide(skip_, false);
  return answer_;
}

LRESULT CALLBACK ProgressWindow::Handle(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  auto* const self = reinterpret_cast<ProgressWindow*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
  switch (message) {
    case WM_CLOSE:
      ::SetWindowTextW(self->text_, L"Ending the check ...");
      Cancel();
      return 0;
    case WM_COMMAND:
      self->answer_ = LOWORD(wparam) == kDoneButton;
      ::SetEvent(self->answered_);
      return 0;
    case kEndMessage:
      ::PostQuitMessage(0);
      return 0;
    default:
      return ::DefWindowProcW(window, message, wparam, lparam);
  }
}

}  // namespace tarvik::check
