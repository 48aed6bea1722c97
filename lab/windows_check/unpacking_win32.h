#pragma once

#include <string>

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

/// A new folder below the user's temporary folder. It and its contents are deleted on destruction.
class TemporaryFolder {
 public:
  /// Throws CheckError.
  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  const std::wstring& Path() const { return path_; }

 private:
  std::wstring path_;
};

/// Writes the files that the check carries inside itself (see CMakeLists.txt) to the folder. Throws
/// CheckError.
void UnpackEverything(const std::wstring& folder);

void WriteBytes(const std::wstring& path, const std::string& bytes);

/// The folder of this program.
std::wstring OwnFolder();

/// Whether the folder is below the user's temporary folder.
bool IsTemporary(const std::wstring& folder);

}  // namespace tarvik::check
