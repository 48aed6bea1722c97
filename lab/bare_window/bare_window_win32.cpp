// A window of the main window's size with nothing in it. What the program costs beyond it is the program's
// own.
#include <windows.h>

namespace {

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wide, LPARAM large) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wide, large);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int show) {
  WNDCLASSW description{};
  description.lpfnWndProc = WindowProcedure;
  description.hInstance = instance;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  description.lpszClassName = L"BareWindow";
  RegisterClassW(&description);
  HWND window = CreateWindowExW(0, L"BareWindow", L"Bare window", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                CW_USEDEFAULT, 520, 480, nullptr, nullptr, instance, nullptr);
  ShowWindow(window, show);
  UpdateWindow(window);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
