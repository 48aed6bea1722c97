#include "lab/windows_check/unpacking_win32.h"

#include <string_view>

namespace tarvik::check {
namespace {

// CMakeLists.txt numbers the resources: the list of paths, one per line, then the files in its order.
constexpr WORD kPathsResource = 100;
constexpr WORD kFirstFileResource = 101;

std::string_view CarriedResource(WORD number) {
  const HRSRC found = ::FindResourceW(nullptr, MAKEINTRESOURCEW(number), RT_RCDATA);
  if (found == nullptr) throw CheckError("a file is missing inside the program");
  const HGLOBAL loaded = ::LoadResource(nullptr, found);
  return {static_cast<const char*>(::LockResource(loaded)), ::SizeofResource(nullptr, found)};
}

/// Calls `visit` with each entry of the folder.
template <typename Visit>
void ForEachEntry(const std::wstring& folder, Visit visit) {
  WIN32_FIND_DATAW entry{};
  const HANDLE search = ::FindFirstFileW((folder + L"\\*").c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    const std::wstring name = entry.cFileName;
    if (name != L"." && name != L"..") visit(name, (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
  } while (::FindNextFileW(search, &entry));
  ::FindClose(search);
}

void DeleteFolder(const std::wstring& folder) {
  ForEachEntry(folder, [&folder](const std::wstring& name, bool isFolder) {
    const std::wstring path = folder + L"\\" + name;
    if (isFolder) {
      DeleteFolder(path);
    } else {
      ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
      ::DeleteFileW(path.c_str());
    }
  });
  ::RemoveDirectoryW(folder.c_str());
}

bool PathExists(const std::wstring& path) {
  return ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::wstring path(MAX_PATH + 1, L'\0');
  path.resize(::GetTempPathW(static_cast<DWORD>(path.size()), path.data()));
  // Not the short form, whose part of the user's name could not be masked.
  std::wstring longPath(32767, L'\0');
  const DWORD length = ::GetLongPathNameW(path.c_str(), longPath.data(), static_cast<DWORD>(longPath.size()));
  longPath.resize(length);
  path_ = (length == 0 ? path : longPath) + L"WindowsCheck-" + std::to_wstring(::GetCurrentProcessId());
  if (!::CreateDirectoryW(path_.c_str(), nullptr))
    throw CheckError("no temporary folder: error " + std::to_string(::GetLastError()));
}

TemporaryFolder::~TemporaryFolder() {
  // An ended program's file, or one that a virus scanner still reads, cannot be deleted at once.
  constexpr int kTries = 50;
  for (int left = kTries; left > 0 && PathExists(path_); --left) {
    DeleteFolder(path_);
    if (PathExists(path_)) ::Sleep(100);
  }
}

void UnpackEverything(const std::wstring& folder) {
  std::string_view paths = CarriedResource(kPathsResource);
  for (WORD number = kFirstFileResource; !paths.empty(); ++number) {
    const size_t end = paths.find('\n');
    std::wstring path = folder + L"\\" + FromUtf8(std::string(paths.substr(0, end)));
    paths.remove_prefix(end == std::string_view::npos ? paths.size() : end + 1);
    for (size_t slash = folder.size() + 1; (slash = path.find(L'/', slash)) != std::wstring::npos; ++slash) {
      path[slash] = L'\\';
      ::CreateDirectoryW(path.substr(0, slash).c_str(), nullptr);
    }
    WriteBytes(path, std::string(CarriedResource(number)));
  }
}

void CopyFolder(const std::wstring& from, const std::wstring& to) {
  ::CreateDirectoryW(to.c_str(), nullptr);
  ForEachEntry(from, [&](const std::wstring& name, bool isFolder) {
    const std::wstring source = from + L"\\" + name;
    const std::wstring target = to + L"\\" + name;
    if (isFolder) {
      CopyFolder(source, target);
    } else if (!::CopyFileW(source.c_str(), target.c_str(), FALSE)) {
      throw CheckError("cannot copy " + ToUtf8(source) + ": error " + std::to_string(::GetLastError()));
    }
  });
}

void WriteBytes(const std::wstring& path, const std::string& bytes) {
  const HANDLE file =
      ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  const DWORD error = ::GetLastError();
  if (file == INVALID_HANDLE_VALUE)
    throw CheckError("cannot write " + ToUtf8(path) + ": error " + std::to_string(error));
  DWORD written = 0;
  const BOOL good = ::WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  ::CloseHandle(file);
  if (!good || written != bytes.size())
    throw CheckError("cannot write " + ToUtf8(path) + ": the disk is full");
}

std::wstring OwnFolder() {
  std::wstring path(32767, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.rfind(L'\\'));
}

}  // namespace tarvik::check
