// Without a list of folders SearchPathW also searches the current folder; its safe mode only moves that
// folder to the end. A file planted there must not be found, so the other standard folders are listed here,
// in the standard order.

#include "platform/search_path_win32.h"

#include <algorithm>
#include <string_view>

namespace tarvik {
namespace {

std::wstring PathVariable() {
  std::wstring value(MAX_PATH, L'\0');
  DWORD length = 0;
  while ((length = ::GetEnvironmentVariableW(L"PATH", value.data(), static_cast<DWORD>(value.size()))) >
         value.size())
    value.resize(length);
  value.resize(length);
  return value;
}

/// False for a folder that depends on the current one, such as "." or "C:tools".
bool IsAbsolute(std::wstring_view folder) {
  if (folder.starts_with(L'"')) folder.remove_prefix(1);
  return folder.starts_with(L"\\\\") || folder.substr(0, 3).ends_with(L":\\") ||
         folder.substr(0, 3).ends_with(L":/");
}

std::wstring StandardFolders() {
  std::wstring folders = ProgramFolder();
  wchar_t folder[MAX_PATH] = {};
  if (::GetSystemDirectoryW(folder, MAX_PATH) < MAX_PATH) folders.append(L";").append(folder);
  if (::GetWindowsDirectoryW(folder, MAX_PATH) < MAX_PATH)
    folders.append(L";").append(folder).append(L"\\system;").append(folder);
  const std::wstring path = PathVariable();
  for (size_t begin = 0; begin < path.size();) {
    const size_t end = std::min(path.find(L';', begin), path.size());
    const std::wstring_view entry = std::wstring_view(path).substr(begin, end - begin);
    if (IsAbsolute(entry)) folders.append(L";").append(entry);
    begin = end + 1;
  }
  return folders;
}

}  // namespace

std::wstring ProgramFolder() {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = 0;
  while ((length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) ==
         path.size())
    path.resize(2 * path.size());
  path.resize(length);
  return path.substr(0, path.rfind(L'\\'));
}

DWORD SearchStandardFolders(const wchar_t* fileName, wchar_t* buffer, DWORD size) {
  return ::SearchPathW(StandardFolders().c_str(), fileName, nullptr, size, buffer, nullptr);
}

}  // namespace tarvik
