#include "platform/files.h"

#include "platform/handle_win32.h"

namespace tarvik {
namespace {

/// Windows rejects paths of more than 260 characters without this prefix. A language file's path is longer
/// than the program's own.
std::wstring ForAnyLength(const std::wstring& path) {
  constexpr size_t kSafeLength = 248;
  if (path.size() < kSafeLength || path.rfind(L"\\\\?\\", 0) == 0) return path;
  std::wstring full(32768, L'\0');
  full.resize(::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  if (full.empty()) return path;
  return full.rfind(L"\\\\", 0) == 0 ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

class Win32Files final : public Files {
 public:
  bool Exists(const std::wstring& path) override {
    const DWORD attributes = ::GetFileAttributesW(ForAnyLength(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  }
  std::optional<std::string> Read(const std::wstring& path) override {
    const OwnedHandle file(::CreateFileW(ForAnyLength(path).c_str(), GENERIC_READ,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!KeepError(static_cast<bool>(file))) return std::nullopt;
    std::string bytes;
    char block[4096];
    DWORD got = 0;
    while (::ReadFile(file.Get(), block, sizeof block, &got, nullptr)) {
      if (got == 0) return bytes;
      bytes.append(block, got);
    }
    KeepError(false);
    return std::nullopt;
  }
  bool Write(const std::wstring& path, std::string_view bytes) override {
    const OwnedHandle file(::CreateFileW(ForAnyLength(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
    return WriteAll(file, bytes);
  }
  bool WriteNew(const std::wstring& path, std::string_view bytes) override {
    {
      const OwnedHandle file(::CreateFileW(ForAnyLength(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                           FILE_ATTRIBUTE_NORMAL, nullptr));
      // Windows may report a failing drive only when it empties its buffers.
      if (WriteAll(file, bytes) && KeepError(::FlushFileBuffers(file.Get()) != 0)) return true;
      if (!file) return false;
    }
    Delete(path);
    return false;
  }
  bool Delete(const std::wstring& path) override { return ::DeleteFileW(ForAnyLength(path).c_str()) != 0; }
  bool Replace(const std::wstring& from, const std::wstring& to) override {
    return KeepError(::MoveFileExW(ForAnyLength(from).c_str(), ForAnyLength(to).c_str(),
                                   MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0);
  }
  bool Copy(const std::wstring& from, const std::wstring& to) override {
    return KeepError(::CopyFileW(ForAnyLength(from).c_str(), ForAnyLength(to).c_str(), TRUE) != 0);
  }
  bool Append(const std::wstring& path, std::string_view bytes) override {
    const OwnedHandle file(::CreateFileW(ForAnyLength(path).c_str(), FILE_APPEND_DATA, FILE_SHARE_READ,
                                         nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    return KeepError(
        file && ::WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
        written == bytes.size());
  }
  std::optional<uint32_t> Attributes(const std::wstring& path) override {
    const DWORD attributes = ::GetFileAttributesW(ForAnyLength(path).c_str());
    if (!KeepError(attributes != INVALID_FILE_ATTRIBUTES)) return std::nullopt;
    return attributes;
  }
  bool SetAttributes(const std::wstring& path, uint32_t attributes) override {
    return KeepError(::SetFileAttributesW(ForAnyLength(path).c_str(), attributes) != 0);
  }
  bool IsLocalFolder(const std::wstring& path) override {
    // The type of a drive is known without asking its server.
    if (path.size() < 3 || path[1] != L':' || ::GetDriveTypeW(path.substr(0, 3).c_str()) == DRIVE_REMOTE)
      return false;
    const DWORD attributes = ::GetFileAttributesW(ForAnyLength(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  }
  uint32_t LastError() const override { return lastError_; }

 private:
  bool WriteAll(const OwnedHandle& file, std::string_view bytes) {
    DWORD written = 0;
    const bool done = KeepError(
        file && ::WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
    if (!done || written == bytes.size()) return done;
    lastError_ = ERROR_DISK_FULL;
    return false;
  }

  /// Saves the error before another call can overwrite it.
  bool KeepError(bool done) {
    lastError_ = done ? 0 : ::GetLastError();
    return done;
  }

  uint32_t lastError_ = 0;
};

}  // namespace

std::unique_ptr<Files> MakeFiles() { return std::make_unique<Win32Files>(); }

}  // namespace tarvik
