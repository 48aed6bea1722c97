// The faults that the saboteur can plant. Each replaces calls that the program imports.

#include <string>

#include "lab/windows_check/saboteur/saboteur_win32.h"

namespace tarvik::check {
namespace {

HMODULE(WINAPI* loadLibraryEx)(LPCWSTR, HANDLE, DWORD) = nullptr;
UINT(WINAPI* setErrorMode)(UINT) = nullptr;
void(__cdecl* endProgram)(int) = nullptr;

/// Prefers a library in the current folder.
HMODULE WINAPI LoadPlanted(LPCWSTR name, HANDLE file, DWORD flags) {
  wchar_t folder[MAX_PATH] = {};
  ::GetCurrentDirectoryW(MAX_PATH, folder);
  const HMODULE planted = ::LoadLibraryW((std::wstring(folder) + L"\\" + name).c_str());
  return planted != nullptr ? planted : loadLibraryEx(name, file, flags);
}

/// Prefers a library beside the program.
HMODULE WINAPI LoadFromOwnFolder(LPCWSTR name, HANDLE file, DWORD flags) {
  wchar_t path[MAX_PATH] = {};
  ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  std::wstring beside = path;
  beside = beside.substr(0, beside.rfind(L'\\') + 1) + name;
  const HMODULE planted = ::LoadLibraryW(beside.c_str());
  return planted != nullptr ? planted : loadLibraryEx(name, file, flags);
}

UINT WINAPI ShowBox(UINT mode) {
  ::MessageBoxW(nullptr, L"A planted message.", L"Tarvik", MB_OK);
  return setErrorMode(mode);
}

void __cdecl EndWithError(int) { endProgram(3); }

void __cdecl NeverEnd(int) { ::Sleep(INFINITE); }

}  // namespace

const Fault kFaults[] = {
    {"load_from_current_folder", [] { ReplaceImport("LoadLibraryExW", LoadPlanted, &loadLibraryEx); }},
    {"load_from_own_folder", [] { ReplaceImport("LoadLibraryExW", LoadFromOwnFolder, &loadLibraryEx); }},
    {"message_at_start", [] { ReplaceImport("SetErrorMode", ShowBox, &setErrorMode); }},
    {"never_ends", [] { ReplaceImport("exit", NeverEnd, &endProgram); }},
    {"wrong_exit_code", [] { ReplaceImport("exit", EndWithError, &endProgram); }},
    {nullptr, nullptr},
};

}  // namespace tarvik::check
