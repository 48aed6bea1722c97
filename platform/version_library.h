#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tarvik {

/// VS_FIXEDFILEINFO, the root of a version resource.
struct FixedFileInfo {
  static constexpr uint32_t kSignature = 0xFEEF04BD;

  uint32_t signature = 0;
  uint32_t structureVersion = 0;
  uint32_t fileVersionHigh = 0;  ///< first and second number, 16 bits each
  uint32_t fileVersionLow = 0;   ///< third and fourth number
  uint32_t productVersionHigh = 0;
  uint32_t productVersionLow = 0;
  uint32_t fileFlagsMask = 0;
  uint32_t fileFlags = 0;
  uint32_t fileOs = 0;
  uint32_t fileType = 0;
  uint32_t fileSubtype = 0;
  uint32_t fileDateHigh = 0;
  uint32_t fileDateLow = 0;
};
static_assert(sizeof(FixedFileInfo) == 52);
static_assert(offsetof(FixedFileInfo, signature) == 0 && offsetof(FixedFileInfo, structureVersion) == 4);
static_assert(offsetof(FixedFileInfo, fileVersionHigh) == 8 && offsetof(FixedFileInfo, fileVersionLow) == 12);
static_assert(offsetof(FixedFileInfo, productVersionHigh) == 16 &&
              offsetof(FixedFileInfo, productVersionLow) == 20);
static_assert(offsetof(FixedFileInfo, fileFlagsMask) == 24 && offsetof(FixedFileInfo, fileFlags) == 28);
static_assert(offsetof(FixedFileInfo, fileOs) == 32 && offsetof(FixedFileInfo, fileType) == 36);
static_assert(offsetof(FixedFileInfo, fileSubtype) == 40 && offsetof(FixedFileInfo, fileDateHigh) == 44);
static_assert(offsetof(FixedFileInfo, fileDateLow) == 48);

/// version.dll. Results are 0 on failure. Paths are wide: the system code page cannot represent every one.
class VersionLibrary {
 public:
  virtual ~VersionLibrary() = default;

  /// The size in bytes of the file's version information; 0 when it has none.
  virtual uint32_t GetFileVersionInfoSizeW(const wchar_t* fileName, uint32_t& handle) = 0;

  /// Copies the version information to `data`, at most `length` bytes.
  virtual int32_t GetFileVersionInfoW(const wchar_t* fileName, uint32_t handle, uint32_t length,
                                      void* data) = 0;

  /// Points `value` to the sub-block inside `block`, which is version information, and tells its length.
  virtual int32_t VerQueryValueW(const void* block, const wchar_t* subBlock, const void*& value,
                                 uint32_t& length) = 0;
};

/// version.dll of this PC, loaded at the first call.
std::unique_ptr<VersionLibrary> MakeVersionLibrary();

}  // namespace tarvik
