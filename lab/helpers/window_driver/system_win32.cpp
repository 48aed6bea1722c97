// Clipboard and registry.

#include <cstring>

#include "lab/helpers/window_driver/driver_win32.h"

namespace tarvik::lab {
namespace {

class OpenClipboardLock {
 public:
  explicit OpenClipboardLock(HWND owner = nullptr) {
    WaitFor(5000, "clipboard", [owner] { return OpenClipboard(owner) != FALSE; });
  }
  OpenClipboardLock(const OpenClipboardLock&) = delete;
  OpenClipboardLock& operator=(const OpenClipboardLock&) = delete;
  ~OpenClipboardLock() { CloseClipboard(); }
};

/// clipboard_get -> "1" and the text, or "0" when the clipboard has no text
Fields GetClipboard(const Arguments&) {
  const OpenClipboardLock clipboard;
  const HANDLE data = GetClipboardData(CF_UNICODETEXT);
  if (data == nullptr) return {"0", ""};
  const auto* text = static_cast<const wchar_t*>(GlobalLock(data));
  if (text == nullptr) return {"0", ""};
  const std::string answer = ToUtf8(text);
  GlobalUnlock(data);
  return {"1", answer};
}

/// clipboard_set <text>
Fields SetClipboard(const Arguments& arguments) {
  const std::wstring text = arguments.Text(0);
  const size_t size = (text.size() + 1) * sizeof(wchar_t);
  const OpenClipboardLock clipboard;
  EmptyClipboard();
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (memory == nullptr) throw CommandError("no memory");
  std::memcpy(GlobalLock(memory), text.c_str(), size);
  GlobalUnlock(memory);
  if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr) {
    GlobalFree(memory);
    throw CommandError("error " + NumberText(GetLastError()));
  }
  return {};
}

/// Signalled while the clipboard is held.
HANDLE HeldClipboard() {
  static const HANDLE held = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  return held;
}

DWORD WINAPI HoldOpenClipboard(LPVOID milliseconds) {
  // The clipboard is opened for a window: otherwise other windowless programs could open it as well.
  const HWND owner =
      CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  {
    const OpenClipboardLock clipboard(owner);
    SetEvent(HeldClipboard());
    Sleep(static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(milliseconds)));
    ResetEvent(HeldClipboard());
  }
  DestroyWindow(owner);
  return 0;
}

/// clipboard_hold <milliseconds>: keeps the clipboard open for this time, as another program might; returns
/// once it is open
Fields HoldClipboard(const Arguments& arguments) {
  const auto milliseconds = static_cast<ULONG_PTR>(arguments.Number(0));
  const HANDLE thread =
      CreateThread(nullptr, 0, HoldOpenClipboard, reinterpret_cast<LPVOID>(milliseconds), 0, nullptr);
  if (thread == nullptr) throw CommandError("error " + NumberText(GetLastError()));
  CloseHandle(thread);
  if (WaitForSingleObject(HeldClipboard(), 5000) != WAIT_OBJECT_0) throw CommandError("timed out: clipboard");
  return {};
}

/// registry_get <key below HKEY_CURRENT_USER> <name> -> "1" and the text, or "0" when the value does not
/// exist
Fields GetRegistry(const Arguments& arguments) {
  std::wstring text(4096, L'\0');
  auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  if (RegGetValueW(HKEY_CURRENT_USER, arguments.Text(0).c_str(), arguments.Text(1).c_str(), RRF_RT_REG_SZ,
                   nullptr, text.data(), &size) != ERROR_SUCCESS) {
    return {"0", ""};
  }
  return {"1", ToUtf8(text.c_str())};
}

/// registry_set <key below HKEY_CURRENT_USER> <name> <text>
Fields SetRegistry(const Arguments& arguments) {
  const std::wstring text = arguments.Text(2);
  const LSTATUS result =
      RegSetKeyValueW(HKEY_CURRENT_USER, arguments.Text(0).c_str(), arguments.Text(1).c_str(), REG_SZ,
                      text.c_str(), static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  if (result != ERROR_SUCCESS) throw CommandError("error " + NumberText(result));
  return {};
}

/// registry_delete <key below HKEY_CURRENT_USER>: deletes the key and its subkeys
Fields DeleteRegistry(const Arguments& arguments) {
  const LSTATUS result = RegDeleteTreeW(HKEY_CURRENT_USER, arguments.Text(0).c_str());
  if (result != ERROR_SUCCESS && result != ERROR_FILE_NOT_FOUND)
    throw CommandError("error " + NumberText(result));
  return {};
}

struct TopLevelWindows {
  DWORD process = 0;
  std::vector<HWND> found;
};

BOOL CALLBACK AppendTopLevel(HWND window, LPARAM parameter) {
  auto& windows = *reinterpret_cast<TopLevelWindows*>(parameter);
  if (ProcessOf(window) == windows.process) windows.found.push_back(window);
  return TRUE;
}

/// Every top-level window of the process, hidden ones too: Windows asks them all.
std::vector<HWND> TopLevelWindowsOf(const Arguments& arguments) {
  TopLevelWindows windows{static_cast<DWORD>(arguments.Number(0)), {}};
  EnumWindows(AppendTopLevel, reinterpret_cast<LPARAM>(&windows));
  return windows.found;
}

/// session_may_end <process> -> whether all of its windows agree
Fields SessionMayEnd(const Arguments& arguments) {
  for (HWND window : TopLevelWindowsOf(arguments))
    if (IsWindow(window) && SendWithTimeOut(window, WM_QUERYENDSESSION) == 0) return {"0"};
  return {"1"};
}

/// end_session <process>
Fields EndSession(const Arguments& arguments) {
  for (HWND window : TopLevelWindowsOf(arguments))
    if (IsWindow(window)) SendMessageTimeoutW(window, WM_ENDSESSION, TRUE, 0, SMTO_NORMAL, 15000, nullptr);
  return {};
}

}  // namespace

void AddSystemCommands() {
  AddCommand("session_may_end", SessionMayEnd);
  AddCommand("end_session", EndSession);
  AddCommand("clipboard_get", GetClipboard);
  AddCommand("clipboard_set", SetClipboard);
  AddCommand("clipboard_hold", HoldClipboard);
  AddCommand("registry_get", GetRegistry);
  AddCommand("registry_set", SetRegistry);
  AddCommand("registry_delete", DeleteRegistry);
}

}  // namespace tarvik::lab
