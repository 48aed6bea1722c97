#pragma once

#include "about/version_library.h"
#include "platform/system_library_win32.h"

namespace tarvik {

/// version.dll of this PC, loaded on first use.
class Win32VersionLibrary final : public VersionLibrary {
 public:
  uint32_t GetFileVersionInfoSizeA(const char* fileName, uint32_t& handle) override;
  int32_t GetFileVersionInfoA(const char* fileName, uint32_t handle, uint32_t length, void* data) override;
  int32_t VerQueryValueA(const void* block, const char* subBlock, const void*& value,
                         uint32_t& length) override;

 private:
  using SizeFunction = DWORD(WINAPI*)(LPCSTR, LPDWORD);
  using InfoFunction = BOOL(WINAPI*)(LPCSTR, DWORD, DWORD, LPVOID);
  using QueryFunction = BOOL(WINAPI*)(LPCVOID, LPCSTR, LPVOID*, PUINT);

  /// False, with the system's last error set, when this PC has no such library.
  bool Load();

  SystemLibrary library_;
  SizeFunction size_ = nullptr;
  InfoFunction info_ = nullptr;
  QueryFunction query_ = nullptr;
};

}  // namespace tarvik
