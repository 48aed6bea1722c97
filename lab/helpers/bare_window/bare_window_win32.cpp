// The reference for the product's start-up time and memory: an empty window of the main window's size. With
// any argument it has a menu and controls of the same kinds, number and parts as the main window when it
// opens, created with plain Windows calls. The comparison separates the cost of the controls from that of the
// product's own code. Whoever adds a control to the main window adds it here too.
#include <windows.h>

#include <commctrl.h>

namespace {

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wparam, lparam);
}

HWND Add(HWND parent, const wchar_t* windowClass, DWORD style, int x, int y, int width, int height,
         DWORD extendedStyle = 0) {
  return CreateWindowExW(extendedStyle, windowClass, L"Caption", WS_CHILD | WS_VISIBLE | style, x, y, width,
                         height, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
}

/// A menu bar with one menu of seven commands.
HMENU MakeMenu() {
  HMENU commands = CreatePopupMenu();
  for (UINT_PTR id = 1; id <= 7; ++id) AppendMenuW(commands, MF_STRING, id, L"Command");
  HMENU bar = CreateMenu();
  AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(commands), L"Help");
  return bar;
}

void InitialiseCommonControls() {
  const HMODULE library = LoadLibraryW(L"comctl32.dll");
  const INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_STANDARD_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
  using Initialise = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
  const auto initialise =
      reinterpret_cast<Initialise>(reinterpret_cast<void*>(GetProcAddress(library, "InitCommonControlsEx")));
  if (initialise != nullptr) initialise(&wanted);
}

void AddTabs(HWND strip) {
  wchar_t caption[] = L"Caption";
  TCITEMW tab{};
  tab.mask = TCIF_TEXT;
  tab.pszText = caption;
  for (WPARAM page = 0; page < 3; ++page)
    SendMessageW(strip, TCM_INSERTITEMW, page, reinterpret_cast<LPARAM>(&tab));
}

void AddFields(HWND statusBar) {
  const int rights[] = {85, 170, 255, 340, 425, 510};
  SendMessageW(statusBar, SB_SETPARTS, ARRAYSIZE(rights), reinterpret_cast<LPARAM>(rights));
  for (WPARAM field = 0; field < ARRAYSIZE(rights); ++field)
    SendMessageW(statusBar, SB_SETTEXTW, field, reinterpret_cast<LPARAM>(L"Caption"));
}

void AddControls(HWND window) {
  InitialiseCommonControls();
  Add(window, L"Static", 0, 10, 10, 140, 16);
  Add(window, L"ComboBox", CBS_DROPDOWN | WS_TABSTOP, 160, 8, 340, 200);
  AddTabs(Add(window, WC_TABCONTROLW, WS_TABSTOP, 10, 40, 490, 80));
  Add(window, L"Static", 0, 20, 80, 60, 16);
  Add(window, L"Edit", WS_BORDER | WS_TABSTOP, 90, 76, 80, 22);
  Add(window, L"Button", WS_TABSTOP, 330, 76, 75, 23);
  Add(window, L"Button", WS_TABSTOP, 410, 76, 75, 23);
  Add(window, L"Static", 0, 10, 130, 60, 16);
  Add(window, L"Static", 0, 80, 130, 420, 16);
  HWND list =
      Add(window, L"ListBox", WS_VSCROLL | WS_HSCROLL | WS_TABSTOP, 10, 150, 490, 200, WS_EX_CLIENTEDGE);
  SendMessageW(list, LB_SETHORIZONTALEXTENT, 1500, 0);
  AddFields(Add(window, STATUSCLASSNAMEW, SBARS_SIZEGRIP, 0, 0, 0, 0));
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
  const bool withControls = *commandLine != L'\0';
  HWND window =
      CreateWindowExW(0, L"BareWindow", L"Bare window", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                      520, 480, nullptr, withControls ? MakeMenu() : nullptr, instance, nullptr);
  if (withControls) AddControls(window);
  ShowWindow(window, show);
  UpdateWindow(window);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return 0;
}
