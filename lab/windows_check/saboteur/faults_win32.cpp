// The faults that the saboteur can plant. Each replaces calls that the program imports.

#include <string>

#include "lab/windows_check/saboteur/saboteur_win32.h"

namespace tarvik::check {
namespace {

HMODULE(WINAPI* loadLibraryEx)(LPCWSTR, HANDLE, DWORD) = nullptr;
DWORD(WINAPI* searchPath)(LPCWSTR, LPCWSTR, LPCWSTR, DWORD, LPWSTR, LPWSTR*) = nullptr;
UINT(WINAPI* setErrorMode)(UINT) = nullptr;
void(__cdecl* endProgram)(int) = nullptr;

/// Prefers a library beside the program.
HMODULE WINAPI LoadFromOwnFolder(LPCWSTR name, HANDLE file, DWORD flags) {
  wchar_t path[MAX_PATH] = {};
  ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  std::wstring beside = path;
  beside = beside.substr(0, beside.rfind(L'\\') + 1) + name;
  const HMODULE planted = ::LoadLibraryW(beside.c_str());
  return planted != nullptr ? planted : loadLibraryEx(name, file, flags);
}

/// Windows' own order, which includes the current folder.
DWORD WINAPI SearchEverywhere(LPCWSTR, LPCWSTR name, LPCWSTR extension, DWORD size, LPWSTR path,
                              LPWSTR* part) {
  return searchPath(nullptr, name, extension, size, path, part);
}

/// Makes this thread, which will create the windows, unaware of scaling.
void BeUnawareOfScaling() {
  using SetContext = HANDLE(WINAPI*)(HANDLE);
  const auto address = ::GetProcAddress(::GetModuleHandleW(L"user32.dll"), "SetThreadDpiAwarenessContext");
  reinterpret_cast<SetContext>(reinterpret_cast<void*>(address))(reinterpret_cast<HANDLE>(intptr_t{-1}));
}

UINT WINAPI ShowBox(UINT mode) {
  ::MessageBoxW(nullptr, L"A planted message.", L"Tarvik", MB_OK);
  return setErrorMode(mode);
}

void __cdecl EndWithError(int) { endProgram(3); }

void __cdecl NeverEnd(int) { ::Sleep(INFINITE); }

}  // namespace

const Fault kFaults[] = {
    {"unaware_of_scaling", BeUnawareOfScaling},
    {"search_current_folder", [] { ReplaceImport("SearchPathW", SearchEverywhere, &searchPath); }},
    {"load_from_own_folder", [] { ReplaceImport("LoadLibraryExW", LoadFromOwnFolder, &loadLibraryEx); }},
    {"message_at_start", [] { ReplaceImport("SetErrorMode", ShowBox, &setErrorMode); }},
    {"never_ends", [] { ReplaceImport("exit", NeverEnd, &endProgram); }},
    {"wrong_exit_code", [] { ReplaceImport("exit", EndWithError, &endProgram); }},
    {nullptr, nullptr},
};

}  // namespace tarvik::check
