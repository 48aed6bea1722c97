// Plants the faults that Saboteur.txt names, separated by spaces, in the program that loads this library.

#include "lab/windows_check/saboteur/saboteur_win32.h"

#include <cstring>
#include <string>

namespace tarvik::check {

void* ReplaceImport(const char* call, void* replacement) {
  auto* const base = reinterpret_cast<char*>(::GetModuleHandleW(nullptr));
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* const header = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const IMAGE_DATA_DIRECTORY& directory = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
  for (; library->Name != 0; ++library) {
    const auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
    auto* address = reinterpret_cast<void**>(base + library->FirstThunk);
    for (; names->u1.AddressOfData != 0; ++names, ++address) {
      if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
      const auto* const import =
          reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(import->Name), call) != 0) continue;
      DWORD protection = 0;
      ::VirtualProtect(address, sizeof(void*), PAGE_READWRITE, &protection);
      void* const original = *address;
      *address = replacement;
      ::VirtualProtect(address, sizeof(void*), protection, &protection);
      return original;
    }
  }
  return nullptr;
}

}  // namespace tarvik::check

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
  using namespace tarvik::check;
  if (reason != DLL_PROCESS_ATTACH) return TRUE;
  wchar_t path[MAX_PATH] = {};
  ::GetModuleFileNameW(library, path, MAX_PATH);
  std::wstring list = path;
  list.replace(list.rfind(L'.'), std::wstring::npos, L".txt");
  char text[1024] = {};
  DWORD size = 0;
  const HANDLE file =
      ::CreateFileW(list.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  ::ReadFile(file, text, sizeof text, &size, nullptr);
  ::CloseHandle(file);
  const std::string wanted = " " + std::string(text, size) + " ";
  for (const Fault* fault : {kFaults, kFtpFaults, kWindowFaults, kSystemFaults}) {
    for (; fault->name != nullptr; ++fault)
      if (wanted.find(std::string(" ") + fault->name + " ") != std::string::npos) fault->plant();
  }
  return TRUE;
}
