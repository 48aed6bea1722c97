#pragma once

#include <cstdint>
#include <memory>

namespace tarvik {

/// The calls of kernel32 that find files and put errors into words. Paths are wide: the system code page
/// cannot represent every folder's name. Other strings are in that code page.
class KernelCalls {
 public:
  /// A loaded library; 0 = none.
  using Module = std::intptr_t;

  static constexpr uint32_t kLoadAsDataFile = 2;          ///< LOAD_LIBRARY_AS_DATAFILE
  static constexpr uint32_t kMessageFromModule = 0x0800;  ///< FORMAT_MESSAGE_FROM_HMODULE
  static constexpr uint32_t kMessageFromSystem = 0x1000;  ///< FORMAT_MESSAGE_FROM_SYSTEM

  virtual ~KernelCalls() = default;

  /// Looks for the file on the standard search path and copies its full path, NUL-terminated, to `buffer`.
  /// The path's length; when `size` is too small the size that is needed; 0 when there is no such file.
  virtual uint32_t SearchPathW(const wchar_t* fileName, wchar_t* buffer, uint32_t size) = 0;

  /// A library of Windows itself; 0 when it cannot be loaded.
  virtual Module LoadLibraryExA(const char* fileName, uint32_t flags) = 0;

  /// 0 when it fails.
  virtual int32_t FreeLibrary(Module module) = 0;

  /// Without insert arguments. The number of characters copied to `buffer`; 0 when there is no such message.
  virtual uint32_t FormatMessageA(uint32_t flags, Module module, uint32_t messageId, uint32_t languageId,
                                  char* buffer, uint32_t size) = 0;

  /// Why the latest call of this thread failed.
  virtual uint32_t GetLastError() = 0;
};

/// The calls of this PC's kernel32.
std::unique_ptr<KernelCalls> MakeKernelCalls();

}  // namespace tarvik
