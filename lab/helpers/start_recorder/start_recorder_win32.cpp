// Copied under the name of a program that the product starts. Appends its command line and the requested
// window state (nCmdShow) to the file named by TARVIK_LAB_STARTS, and exits.

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
