#pragma once

#include <cstdint>
#include <string>

namespace tarvik::check {

/// What the header of a 32-bit program file says.
struct ProgramHeader {
  uint32_t subsystemVersion = 0;  ///< major version in the upper half
  uint32_t systemVersion = 0;
  uint32_t characteristics = 0;  ///< IMAGE_DLLCHARACTERISTICS_...
};

/// Throws CheckError when the file is not a 32-bit program.
ProgramHeader ReadProgramHeader(const std::wstring& path);

/// The manifest inside a program file; empty when it has none.
std::string ReadManifest(const std::wstring& path);

}  // namespace tarvik::check
