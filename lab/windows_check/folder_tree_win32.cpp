#include "lab/windows_check/folder_tree_win32.h"

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

std::wstring Unlimited(const std::wstring& path) {
  const bool hasDrive = path.size() > 2 && path[1] == L':' && path[2] == L'\\';
  return hasDrive ? L"\\\\?\\" + path : path;
}

bool PathExists(const std::wstring& path) {
  return GetFileAttributesW(Unlimited(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

void ForEachEntry(const std::wstring& folder,
                  const std::function<void(const std::wstring& name, bool isFolder)>& visit) {
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileW(Unlimited(folder + L"\\*").c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    const std::wstring name = entry.cFileName;
    if (name != L"." && name != L"..") visit(name, (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
  } while (FindNextFileW(search, &entry));
  FindClose(search);
}

void CopyFolder(const std::wstring& from, const std::wstring& to) {
  CreateDirectoryW(Unlimited(to).c_str(), nullptr);
  ForEachEntry(from, [&](const std::wstring& name, bool isFolder) {
    const std::wstring source = from + L"\\" + name;
    const std::wstring target = to + L"\\" + name;
    if (isFolder) {
      CopyFolder(source, target);
    } else if (!CopyFileW(Unlimited(source).c_str(), Unlimited(target).c_str(), FALSE)) {
      const DWORD error = GetLastError();
      throw CheckError("cannot copy " + ToUtf8(source) + ": error " + std::to_string(error));
    }
  });
}

void DeleteFolder(const std::wstring& folder) {
  ForEachEntry(folder, [&folder](const std::wstring& name, bool isFolder) {
    const std::wstring path = folder + L"\\" + name;
    if (isFolder) {
      DeleteFolder(path);
    } else {
      SetFileAttributesW(Unlimited(path).c_str(), FILE_ATTRIBUTE_NORMAL);
      DeleteFileW(Unlimited(path).c_str());
    }
  });
  RemoveDirectoryW(Unlimited(folder).c_str());
}

}  // namespace tarvik::check
