#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarvik {

/// Operations on single files. Paths are full paths.
class Files {
 public:
  /// FILE_ATTRIBUTE_READONLY
  static constexpr uint32_t kReadOnly = 1;

  virtual ~Files() = default;

  /// True when the path exists and is not a directory.
  virtual bool Exists(const std::wstring& path) = 0;

  /// The bytes of the whole file; nothing when it cannot be read.
  virtual std::optional<std::string> Read(const std::wstring& path) = 0;

  /// Creates or overwrites the file. False when it cannot be written.
  virtual bool Write(const std::wstring& path, std::string_view bytes) = 0;

  /// Creates the file and returns when the drive has it. False when a file or directory of that name exists,
  /// or the file cannot be written; then none is left.
  virtual bool WriteNew(const std::wstring& path, std::string_view bytes) = 0;

  /// Deletes the file. False when it cannot be deleted.
  virtual bool Delete(const std::wstring& path) = 0;

  /// Renames the file; one with the new name is replaced, unless it is read-only. False when that fails; both
  /// files are then kept.
  virtual bool Replace(const std::wstring& from, const std::wstring& to) = 0;

  /// Copies the file with its attributes. False when it cannot be copied, or `to` exists.
  virtual bool Copy(const std::wstring& from, const std::wstring& to) = 0;

  /// Appends the bytes to an existing file. False when it does not exist or cannot be written.
  virtual bool Append(const std::wstring& path, std::string_view bytes) = 0;

  /// The FILE_ATTRIBUTE_... bits; nothing when they cannot be read.
  virtual std::optional<uint32_t> Attributes(const std::wstring& path) = 0;

  /// Sets the FILE_ATTRIBUTE_... bits. False when they cannot be set.
  virtual bool SetAttributes(const std::wstring& path, uint32_t attributes) = 0;

  /// True when the path is a directory on a drive of this PC, so that opening it does not wait for a network.
  virtual bool IsLocalFolder(const std::wstring& path) = 0;

  /// The Windows error of the latest Read, Write, WriteNew, Replace, Copy, Append, Attributes or
  /// SetAttributes; 0 when it succeeded. The other calls leave it unchanged.
  virtual uint32_t LastError() const = 0;
};

/// The files of this PC (kernel32).
std::unique_ptr<Files> MakeFiles();

}  // namespace tarvik
