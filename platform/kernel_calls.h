#pragma once

#include <cstdint>
#include <memory>

namespace tarvik {

/// The kernel32 calls that find files and format error messages. Paths are wide, because the ANSI code page
/// cannot represent every folder's name; all other strings are in the ANSI code page.
class KernelCalls {
 public:
  /// A loaded library; 0 is invalid.
  using Module = std::intptr_t;

  static constexpr uint32_t kLoadAsDataFile = 2;          ///< LOAD_LIBRARY_AS_DATAFILE
  static constexpr uint32_t kMessageFromModule = 0x0800;  ///< FORMAT_MESSAGE_FROM_HMODULE
  static constexpr uint32_t kMessageFromSystem = 0x1000;  ///< FORMAT_MESSAGE_FROM_SYSTEM

  virtual ~KernelCalls() = default;

  /// Looks for the file on the standard search path, without the current folder, and copies its full path,
  /// NUL-terminated, to `buffer`. Returns the path's length without the NUL, the required size with the NUL
  /// when `size` is too small, or 0 when the file is not found.
  virtual uint32_t SearchPathW(const wchar_t* fileName, wchar_t* buffer, uint32_t size) = 0;

  /// Loads one of Windows' own libraries, given by its bare name. Returns 0 when it cannot be loaded.
  virtual Module LoadLibraryExA(const char* fileName, uint32_t flags) = 0;

  /// Returns 0 on failure.
  virtual int32_t FreeLibrary(Module module) = 0;

  /// Formats a message without insert arguments. Returns the number of bytes copied to `buffer`, without the
  /// NUL, or 0 when there is no such message.
  virtual uint32_t FormatMessageA(uint32_t flags, Module module, uint32_t messageId, uint32_t languageId,
                                  char* buffer, uint32_t size) = 0;

  /// The error of this thread's latest failed call.
  virtual uint32_t GetLastError() = 0;
};

/// The calls of this PC's kernel32.
std::unique_ptr<KernelCalls> MakeKernelCalls();

}  // namespace tarvik
