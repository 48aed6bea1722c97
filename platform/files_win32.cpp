#include "platform/files_win32.h"

#include "platform/handle_win32.h"

namespace tarvik {

bool Win32Files::Exists(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

std::optional<std::string> Win32Files::Read(const std::wstring& path) {
  const OwnedHandle file(::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                       nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!Noted(static_cast<bool>(file))) return std::nullopt;
  std::string bytes;
  char block[4096];
  DWORD got = 0;
  while (::ReadFile(file.Get(), block, sizeof block, &got, nullptr)) {
    if (got == 0) return bytes;
    bytes.append(block, got);
  }
  Noted(false);
  return std::nullopt;
}

bool Win32Files::Write(const std::wstring& path, std::string_view bytes) {
  const OwnedHandle file(
      ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  return file && ::WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
         written == bytes.size();
}

bool Win32Files::Delete(const std::wstring& path) { return ::DeleteFileW(path.c_str()) != 0; }

bool Win32Files::Copy(const std::wstring& from, const std::wstring& to) {
  return Noted(::CopyFileW(from.c_str(), to.c_str(), TRUE) != 0);
}

bool Win32Files::Append(const std::wstring& path, std::string_view bytes) {
  const OwnedHandle file(::CreateFileW(path.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ, nullptr,
                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  return Noted(file &&
               ::WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
               written == bytes.size());
}

std::optional<uint32_t> Win32Files::Attributes(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (!Noted(attributes != INVALID_FILE_ATTRIBUTES)) return std::nullopt;
  return attributes;
}

bool Win32Files::SetAttributes(const std::wstring& path, uint32_t attributes) {
  return Noted(::SetFileAttributesW(path.c_str(), attributes) != 0);
}

bool Win32Files::Noted(bool done) {
  lastError_ = done ? 0 : ::GetLastError();
  return done;
}

}  // namespace tarvik
