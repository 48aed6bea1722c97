// Faults towards the system: calls that block, rights, files, the clipboard, the end of the session and
// handles that are left.

#include <string>

#include "app/control_ids.h"
#include "lab/windows_check/saboteur/saboteur_win32.h"

namespace tarvik::check {
namespace {

constexpr DWORD kHangMs = 5000;

decltype(&PeekMessageW) peekInRun = nullptr;
decltype(&GetMessageW) getWhenIdle = nullptr;
decltype(&CreateFileW) createFileAnsi = nullptr;
decltype(&CreateFileW) createFileShort = nullptr;
decltype(&CreateFileW) createFileWithinLimit = nullptr;
decltype(&GetFileAttributesW) attributesWithinLimit = nullptr;
decltype(&OpenClipboard) openClipboard = nullptr;
decltype(&CreateWindowExW) createMainWindow = nullptr;
decltype(&SetWindowTextW) setWindowText = nullptr;
WNDPROC sessionProcedure = nullptr;
UINT sessionMessage = 0;
LRESULT sessionAnswer = FALSE;

// Blocked calls

BOOL CALLBACK FindMainWindow(HWND window, LPARAM parameter) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (process != GetCurrentProcessId() || !IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<HWND*>(parameter) = window;
  return FALSE;
}

/// Does what Windows does with a program that hangs, and Wine does not.
DWORD WINAPI ShowGhosts(LPVOID) {
  WNDCLASSW ghost{};
  ghost.lpfnWndProc = DefWindowProcW;
  ghost.lpszClassName = L"Ghost";
  RegisterClassW(&ghost);
  // Once in 39 runs, the program showed no window when this thread looked for windows while it started.
  constexpr DWORD kStartMs = 1000;
  Sleep(kStartMs);
  for (;;) {
    HWND window = nullptr;
    EnumWindows(FindMainWindow, reinterpret_cast<LPARAM>(&window));
    DWORD_PTR result = 0;
    if (window == nullptr || SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kHangMs, &result) != 0) {
      Sleep(100);
      continue;
    }
    RECT box{};
    GetWindowRect(window, &box);
    const HWND shown = CreateWindowExW(WS_EX_NOACTIVATE, L"Ghost", L"(Not Responding)", WS_POPUP | WS_VISIBLE,
                                       static_cast<int>(box.left), static_cast<int>(box.top), 100, 100,
                                       nullptr, nullptr, nullptr, nullptr);
    SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, 60000, &result);
    DestroyWindow(shown);
  }
}

void WINAPI LeaveGhosting() { CreateThread(nullptr, 0, ShowGhosts, nullptr, 0, nullptr); }

BOOL WINAPI PeekWithoutClicks(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
  const BOOL result = peekInRun(message, window, first, last, remove);
  if (result && message->message == WM_LBUTTONDOWN) message->message = WM_NULL;
  return result;
}

/// The click on Get CNC Info that arrived during a run.
MSG lateClick{};

BOOL WINAPI PeekAndKeepClick(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
  const BOOL result = peekInRun(message, window, first, last, remove);
  const bool click = result && (message->message == WM_LBUTTONDOWN || message->message == WM_LBUTTONUP);
  if (!click || GetDlgCtrlID(message->hwnd) != ID_cmdGetInfo) return result;
  lateClick = *message;
  message->message = WM_NULL;
  return result;
}

/// Somewhat later, so that the end of the first run can be seen.
void CALLBACK RepeatClick(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  PostMessageW(lateClick.hwnd, WM_LBUTTONDOWN, MK_LBUTTON, lateClick.lParam);
  PostMessageW(lateClick.hwnd, WM_LBUTTONUP, 0, lateClick.lParam);
}

BOOL WINAPI GetAndRepeatClick(LPMSG message, HWND window, UINT first, UINT last) {
  constexpr UINT kDelayMs = 500;
  static bool repeated = false;
  if (lateClick.hwnd != nullptr && !repeated) {
    repeated = true;
    SetTimer(nullptr, 0, kDelayMs, RepeatClick);
  }
  return getWhenIdle(message, window, first, last);
}

void RepeatClicks() {
  ReplaceImport("PeekMessageW", PeekAndKeepClick, &peekInRun);
  ReplaceImport("GetMessageW", GetAndRepeatClick, &getWhenIdle);
}

// Rights and folders

void EndUnlessAdministrator() {
  BYTE administrators[SECURITY_MAX_SID_SIZE];
  DWORD size = sizeof administrators;
  BOOL isMember = FALSE;
  CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, administrators, &size);
  CheckTokenMembership(nullptr, administrators, &isMember);
  if (!isMember) TerminateProcess(GetCurrentProcess(), 5);
}

HANDLE NoSuchFile() {
  SetLastError(ERROR_FILE_NOT_FOUND);
  return INVALID_HANDLE_VALUE;
}

HANDLE WINAPI OpenAnsi(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                       DWORD creation, DWORD flags, HANDLE source) {
  BOOL lossy = FALSE;
  WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, path, -1, nullptr, 0, nullptr, &lossy);
  return lossy ? NoSuchFile() : createFileAnsi(path, access, share, security, creation, flags, source);
}

HANDLE WINAPI OpenShort(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                        DWORD creation, DWORD flags, HANDLE source) {
  if (lstrlenW(path) > 240) return NoSuchFile();
  return createFileShort(path, access, share, security, creation, flags, source);
}

/// As on Windows; Wine accepts longer paths.
bool IsTooLong(LPCWSTR path) {
  return lstrlenW(path) >= MAX_PATH && std::wstring(path).rfind(L"\\\\?\\", 0) != 0;
}

HANDLE WINAPI OpenWithinLimit(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                              DWORD creation, DWORD flags, HANDLE source) {
  if (IsTooLong(path)) return NoSuchFile();
  return createFileWithinLimit(path, access, share, security, creation, flags, source);
}

DWORD WINAPI AttributesWithinLimit(LPCWSTR path) {
  if (!IsTooLong(path)) return attributesWithinLimit(path);
  SetLastError(ERROR_FILE_NOT_FOUND);
  return INVALID_FILE_ATTRIBUTES;
}

std::wstring OwnFolder() {
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::wstring program = path;
  return program.substr(0, program.rfind(L'\\'));
}

void WriteLog() {
  const HANDLE file = CreateFileW((OwnFolder() + L"\\Tarvik.log").c_str(), GENERIC_WRITE, 0, nullptr,
                                  CREATE_ALWAYS, 0, nullptr);
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
}

// The clipboard

BOOL WINAPI NeverOpen(HWND) {
  SetLastError(ERROR_ACCESS_DENIED);
  return FALSE;
}

BOOL WINAPI OpenAtOnceOrNever(HWND window) {
  static bool failed = false;
  if (!failed && openClipboard(window)) return TRUE;
  failed = true;
  return NeverOpen(window);
}

BOOL WINAPI PretendToOpen(HWND window) {
  openClipboard(window);
  return TRUE;
}

// The end of the session

LRESULT CALLBACK AnswerSession(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == sessionMessage) return sessionAnswer;
  return CallWindowProcW(sessionProcedure, window, message, wParam, lParam);
}

HWND WINAPI CreateDeaf(DWORD extendedStyle, LPCWSTR windowClass, LPCWSTR text, DWORD style, int x, int y,
                       int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID data) {
  const HWND window = createMainWindow(extendedStyle, windowClass, text, style, x, y, width, height, parent,
                                       menu, instance, data);
  if (parent == nullptr && sessionProcedure == nullptr)
    sessionProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(AnswerSession)));
  return window;
}

void AnswerAlways(UINT message, LRESULT answer) {
  sessionMessage = message;
  sessionAnswer = answer;
  ReplaceImport("CreateWindowExW", CreateDeaf, &createMainWindow);
}

// Handles

BOOL WINAPI LeakWithText(HWND window, LPCWSTR text) {
  if (GetDlgCtrlID(window) == ID_cmdPing) CreateEventW(nullptr, FALSE, FALSE, nullptr);
  return setWindowText(window, text);
}

}  // namespace

const Fault kSystemFaults[] = {
    {"ghost",
     [] {
       decltype(&DisableProcessWindowsGhosting) disable = nullptr;
       ReplaceImport("DisableProcessWindowsGhosting", LeaveGhosting, &disable);
     }},
    {"deaf_during_runs", [] { ReplaceImport("PeekMessageW", PeekWithoutClicks, &peekInRun); }},
    {"late_clicks", RepeatClicks},
    {"needs_administrator", EndUnlessAdministrator},
    {"ansi_paths", [] { ReplaceImport("CreateFileW", OpenAnsi, &createFileAnsi); }},
    {"short_paths", [] { ReplaceImport("CreateFileW", OpenShort, &createFileShort); }},
    {"path_limit",
     [] {
       ReplaceImport("CreateFileW", OpenWithinLimit, &createFileWithinLimit);
       ReplaceImport("GetFileAttributesW", AttributesWithinLimit, &attributesWithinLimit);
     }},
    {"leaves_log", WriteLog},
    {"never_copies", [] { ReplaceImport("OpenClipboard", NeverOpen, &openClipboard); }},
    {"impatient_clipboard", [] { ReplaceImport("OpenClipboard", OpenAtOnceOrNever, &openClipboard); }},
    {"pretended_clipboard", [] { ReplaceImport("OpenClipboard", PretendToOpen, &openClipboard); }},
    {"always_agrees_to_end", [] { AnswerAlways(WM_QUERYENDSESSION, TRUE); }},
    {"never_agrees_to_end", [] { AnswerAlways(WM_QUERYENDSESSION, FALSE); }},
    {"ignores_end", [] { AnswerAlways(WM_ENDSESSION, 0); }},
    {"leaks_handles", [] { ReplaceImport("SetWindowTextW", LeakWithText, &setWindowText); }},
    {nullptr, nullptr},
};

}  // namespace tarvik::check
