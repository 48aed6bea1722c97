// Stand-in for an old system's ipconfig command. Prints the file named by TARVIK_LAB_IPCONFIG; without such a
// file it hangs for a minute.

#include <array>

#include "platform/windows_win32.h"

int main() {
  std::array<wchar_t, MAX_PATH> path{};
  GetEnvironmentVariableW(L"TARVIK_LAB_IPCONFIG", path.data(), static_cast<DWORD>(path.size()));
  const HANDLE file = CreateFileW(path.data(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    Sleep(60'000);
    return 1;
  }
  std::array<char, 4096> bytes{};
  DWORD count = 0;
  while (ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) && count > 0) {
    DWORD written = 0;
    if (!WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), count, &written, nullptr)) break;
  }
  CloseHandle(file);
  return 0;
}
