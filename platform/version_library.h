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

/// The calls of version.dll. They return 0 on failure. Paths are wide, because the ANSI code page cannot
/// represent every path.
class VersionLibrary {
 public:
  virtual ~VersionLibrary() = default;

  /// The size in bytes of the file's version information; 0 when it cannot be read or does not exist. Pass
  /// `handle`, which Windows ignores, on to GetFileVersionInfoW.
  virtual uint32_t GetFileVersionInfoSizeW(const wchar_t* fileName, uint32_t& handle) = 0;

  /// Copies at most `length` bytes of the version information to `data`.
  virtual int32_t GetFileVersionInfoW(const wchar_t* fileName, uint32_t handle, uint32_t length,
                                      void* data) = 0;

  /// Sets `value` to the sub-block's address inside `block`, a copy of version information, and `length` to
  /// the sub-block's size. "\" is the root, a FixedFileInfo.
  virtual int32_t VerQueryValueW(const void* block, const wchar_t* subBlock, const void*& value,
                                 uint32_t& length) = 0;
};

/// The version.dll of this PC, loaded by the first call.
std::unique_ptr<VersionLibrary> MakeVersionLibrary();

}  // namespace tarvik
