#include "platform/version_library_win32.h"

#include <winver.h>

namespace tarvik {

static_assert(sizeof(FixedFileInfo) == sizeof(VS_FIXEDFILEINFO));

bool Win32VersionLibrary::Load() {
  if (query_ != nullptr) return true;
  if (library_.Load(L"version.dll")) {
    size_ = library_.Find<SizeFunction>("GetFileVersionInfoSizeW");
    info_ = library_.Find<InfoFunction>("GetFileVersionInfoW");
    query_ = library_.Find<QueryFunction>("VerQueryValueW");
    if (size_ != nullptr && info_ != nullptr && query_ != nullptr) return true;
    query_ = nullptr;
  }
  ::SetLastError(ERROR_MOD_NOT_FOUND);
  return false;
}

uint32_t Win32VersionLibrary::GetFileVersionInfoSizeW(const wchar_t* fileName, uint32_t& handle) {
  if (!Load()) return 0;
  DWORD ignored = 0;
  const DWORD size = size_(fileName, &ignored);
  handle = ignored;
  return size;
}

int32_t Win32VersionLibrary::GetFileVersionInfoW(const wchar_t* fileName, uint32_t handle, uint32_t length,
                                                 void* data) {
  return Load() ? info_(fileName, handle, length, data) : FALSE;
}

int32_t Win32VersionLibrary::VerQueryValueW(const void* block, const wchar_t* subBlock, const void*& value,
                                            uint32_t& length) {
  if (!Load()) return FALSE;
  void* found = nullptr;
  UINT bytes = 0;
  const BOOL result = query_(block, subBlock, &found, &bytes);
  value = found;
  length = bytes;
  return result;
}

}  // namespace tarvik
