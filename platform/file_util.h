#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/kernel_calls.h"
#include "platform/version_library.h"

namespace tarvik {

/// Finds files on the search path and reads their versions. The error of a failed call is kept until
/// the next call.
class FileUtil {
 public:
  FileUtil(KernelCalls& kernel, VersionLibrary& version) : kernel_(kernel), version_(version) {}

  /// The full path of the file on the standard search path; nothing when it is not found.
  std::optional<std::wstring> mSearchPath(const std::wstring& fileName);

  /// The four numbers of the file's version, joined by "."; nothing when it has none.
  std::optional<std::wstring> mGetFileVersionInfoString(const std::wstring& path);

  // Dormant: no caller reports why a file or its version was not found. Kept for a caller that does.

  /// The method with its arguments, a line break, and the step that failed; empty after success.
  const std::wstring& pErrorMessage() const { return errorMessage_; }

  /// Windows error code of that step: ERROR_INVALID_DATA (13) when its result was not plausible, 0 after
  /// success.
  uint32_t pErrorCode() const { return errorCode_; }

 private:
  void Begin(const wchar_t* method, const std::wstring& argument);
  std::nullopt_t Fail(const wchar_t* step, uint32_t code);

  KernelCalls& kernel_;
  VersionLibrary& version_;
  std::wstring call_;
  std::wstring errorMessage_;
  uint32_t errorCode_ = 0;
};

/// The version in the root of a version resource, as "1.2.3.4"; nothing when the bytes are too few or lack
/// its signature.
std::optional<std::wstring> FixedFileVersion(std::span<const std::byte> root);

}  // namespace tarvik
