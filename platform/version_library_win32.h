#pragma once

#include "platform/system_library_win32.h"
#include "platform/version_library.h"

namespace tarvik {

/// version.dll of this PC, loaded on first use.
class Win32VersionLibrary final : public VersionLibrary {
 public:
  uint32_t GetFileVersionInfoSizeW(const wchar_t* fileName, uint32_t& handle) override;
  int32_t GetFileVersionInfoW(const wchar_t* fileName, uint32_t handle, uint32_t length, void* data) override;
  int32_t VerQueryValueW(const void* block, const wchar_t* subBlock, const void*& value,
                         uint32_t& length) override;

 private:
  using SizeFunction = DWORD(WINAPI*)(LPCWSTR, LPDWORD);
  using InfoFunction = BOOL(WINAPI*)(LPCWSTR, DWORD, DWORD, LPVOID);
  using QueryFunction = BOOL(WINAPI*)(LPCVOID, LPCWSTR, LPVOID*, PUINT);

  /// False, with the system's last error set, when this PC has no such library.
  bool Load();

  SystemLibrary library_;
  SizeFunction size_ = nullptr;
  InfoFunction info_ = nullptr;
  QueryFunction query_ = nullptr;
};

}  // namespace tarvik
