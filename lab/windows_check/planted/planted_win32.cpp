// Planted under the names of other libraries. A program may load and free a library between two looks at its
// modules, so this one creates the file "NAME.loaded" beside itself.

#include <string>

#include "platform/windows_win32.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
  if (reason != DLL_PROCESS_ATTACH) return TRUE;
  wchar_t path[MAX_PATH] = {};
  ::GetModuleFileNameW(library, path, MAX_PATH);
  const HANDLE trace = ::CreateFileW((std::wstring(path) + L".loaded").c_str(), GENERIC_WRITE, 0, nullptr,
                                     CREATE_ALWAYS, 0, nullptr);
  if (trace != INVALID_HANDLE_VALUE) ::CloseHandle(trace);
  return TRUE;
}
