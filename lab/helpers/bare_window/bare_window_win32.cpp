// The reference for the product's start-up time and memory: an empty window of the main window's size. With
// any argument it has controls of the same kinds and number as the main window when it opens, created with
// plain Windows calls. The comparison separates the cost of the controls from that of the product's own code.
#include <windows.h>

#include <commctrl.h>

namespace {

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wparam, lparam);
}

void Add(HWND parent, const wchar_t* windowClass, DWORD style, int x, int y, int width, int height) {
  CreateWindowExW(0, windowClass, L"Caption", WS_CHILD | WS_VISIBLE | style, x, y, width, height, parent,
                  nullptr, GetModuleHandleW(nullptr), nullptr);
}

void AddControls(HWND window) {
  const HMODULE library = LoadLibraryW(L"comctl32.dll");
  const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_STANDARD_CLASSES | ICC_TAB_CLASSES};
  using Initialize = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
  const auto initialize =
      reinterpret_cast<Initialize>(reinterpret_cast<void*>(GetProcAddress(library, "InitCommonControlsEx")));
  if (initialize != nullptr) initialize(&wanted);
  Add(window, L"Static", 0, 10, 10, 140, 16);
  Add(window, L"ComboBox", CBS_DROPDOWN | WS_TABSTOP, 160, 8, 340, 200);
  Add(window, WC_TABCONTROLW, WS_TABSTOP, 10, 40, 490, 80);
  Add(window, L"Static", 0, 20, 80, 60, 16);
  Add(window, L"Edit", WS_BORDER | WS_TABSTOP, 90, 76, 80, 22);
  Add(window, L"Button", WS_TABSTOP, 330, 76, 75, 23);
  Add(window, L"Button", WS_TABSTOP, 410, 76, 75, 23);
  Add(window, L"Static", 0, 10, 130, 60, 16);
  Add(window, L"ListBox", WS_VSCROLL | WS_BORDER | WS_TABSTOP, 10, 150, 490, 200);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR commandLine, int show) {
  WNDCLASSW description{};
  description.lpfnWndProc = WindowProcedure;
  description.hInstance = instance;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  description.lpszClassName = L"BareWindow";
  RegisterClassW(&description);
  HWND window = CreateWindowExW(0, L"BareWindow", L"Bare window", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                CW_USEDEFAULT, 520, 480, nullptr, nullptr, instance, nullptr);
  if (*commandLine != L'\0') AddControls(window);
  ShowWindow(window, show);
  UpdateWindow(window);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
