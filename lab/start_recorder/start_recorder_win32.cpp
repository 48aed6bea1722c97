// Under whatever name it is started: adds a line with its command line and the way in which its window is to
// come up to the file that TARVIK_LAB_STARTS names, and ends.

#include <string>

#include "platform/windows_win32.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int show) {
  wchar_t path[MAX_PATH] = {};
  if (GetEnvironmentVariableW(L"TARVIK_LAB_STARTS", path, MAX_PATH) == 0) return 1;
  const HANDLE file = CreateFileW(path, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  const std::wstring line = GetCommandLineW() + std::wstring(L" show=") + std::to_wstring(show) + L"\n";
  char bytes[1024] = {};
  const int length = WideCharToMultiByte(CP_UTF8, 0, line.data(), static_cast<int>(line.size()), bytes,
                                         sizeof bytes, nullptr, nullptr);
  DWORD written = 0;
  WriteFile(file, bytes, static_cast<DWORD>(length), &written, nullptr);
  CloseHandle(file);
  return 0;
}
