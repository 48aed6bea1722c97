#include "platform/version_library.h"

#include "platform/system_library_win32.h"

#include <winver.h>

namespace tarvik {
namespace {

static_assert(sizeof(FixedFileInfo) == sizeof(VS_FIXEDFILEINFO));

class Win32VersionLibrary final : public VersionLibrary {
 public:
  uint32_t GetFileVersionInfoSizeW(const wchar_t* fileName, uint32_t& handle) override {
    if (!Load()) return 0;
    DWORD ignored = 0;
    const DWORD size = size_(fileName, &ignored);
    handle = ignored;
    return size;
  }
  int32_t GetFileVersionInfoW(const wchar_t* fileName, uint32_t handle, uint32_t length,
                              void* data) override {
    return Load() ? info_(fileName, handle, length, data) : FALSE;
  }
  int32_t VerQueryValueW(const void* block, const wchar_t* subBlock, const void*& value,
                         uint32_t& length) override {
    if (!Load()) return FALSE;
    void* found = nullptr;
    UINT bytes = 0;
    const BOOL result = query_(block, subBlock, &found, &bytes);
    value = found;
    length = bytes;
    return result;
  }

 private:
  using SizeFunction = DWORD(WINAPI*)(LPCWSTR, LPDWORD);
  using InfoFunction = BOOL(WINAPI*)(LPCWSTR, DWORD, DWORD, LPVOID);
  using QueryFunction = BOOL(WINAPI*)(LPCVOID, LPCWSTR, LPVOID*, PUINT);

  /// On failure the last error is ERROR_MOD_NOT_FOUND.
  bool Load() {
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

  SystemLibrary library_;
  SizeFunction size_ = nullptr;
  InfoFunction info_ = nullptr;
  QueryFunction query_ = nullptr;
};

}  // namespace

std::unique_ptr<VersionLibrary> MakeVersionLibrary() { return std::make_unique<Win32VersionLibrary>(); }

}  // namespace tarvik
