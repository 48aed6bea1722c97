#include "lab/windows_check/unpacking_win32.h"

#include <string_view>

#include "lab/windows_check/folder_tree_win32.h"

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

/// Not in the short form, whose part of the user's name could not be masked.
std::wstring LongForm(const std::wstring& path) {
  std::wstring longPath(32767, L'\0');
  longPath.resize(::GetLongPathNameW(path.c_str(), longPath.data(), static_cast<DWORD>(longPath.size())));
  return longPath.empty() ? path : longPath;
}

/// With a backslash at the end.
std::wstring UsersTemporaryFolder() {
  std::wstring path(MAX_PATH + 1, L'\0');
  path.resize(::GetTempPathW(static_cast<DWORD>(path.size()), path.data()));
  return LongForm(path);
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  path_ = UsersTemporaryFolder() + L"WindowsCheck-" + std::to_wstring(::GetCurrentProcessId());
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

bool IsTemporary(const std::wstring& folder) {
  const std::wstring temporary = UsersTemporaryFolder();
  return ::lstrcmpiW(LongForm(folder + L"\\").substr(0, temporary.size()).c_str(), temporary.c_str()) == 0;
}

}  // namespace tarvik::check
