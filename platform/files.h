#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvik {

/// The few things that are asked of single files. Paths are full paths.
class Files {
 public:
  virtual ~Files() = default;

  /// True when a directory query finds an ordinary file at the path.
  virtual bool Exists(const std::wstring& path) = 0;

  /// The whole file as bytes; nothing when it cannot be read.
  virtual std::optional<std::string> Read(const std::wstring& path) = 0;

  /// Writes the file anew. False when it cannot be written.
  virtual bool Write(const std::wstring& path, std::string_view bytes) = 0;

  /// Deletes the file. False when it cannot be deleted.
  virtual bool Delete(const std::wstring& path) = 0;
};

}  // namespace tarvik
