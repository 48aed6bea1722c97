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
};

}  // namespace tarvik
