#pragma once

#include "platform/files.h"

namespace tarvik {

/// Files through kernel32.
class Win32Files final : public Files {
 public:
  bool Exists(const std::wstring& path) override;
  std::optional<std::string> Read(const std::wstring& path) override;
  bool Write(const std::wstring& path, std::string_view bytes) override;
  bool Delete(const std::wstring& path) override;
  bool Copy(const std::wstring& from, const std::wstring& to) override;
  bool Append(const std::wstring& path, std::string_view bytes) override;
  std::optional<uint32_t> Attributes(const std::wstring& path) override;
  bool SetAttributes(const std::wstring& path, uint32_t attributes) override;
  uint32_t LastError() const override { return lastError_; }

 private:
  /// Keeps the code of a failure before anything else can overwrite it.
  bool Noted(bool done);

  uint32_t lastError_ = 0;
};

}  // namespace tarvik
