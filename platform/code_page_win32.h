#pragma once

#include "platform/code_page.h"

namespace tarvik {

/// The code pages of kernel32.
class Win32CodePage final : public CodePage {
 public:
  std::string ToAnsi(std::wstring_view text) override;
  std::string ToOem(std::wstring_view text) override;
  std::wstring FromAnsi(std::string_view bytes) override;
  std::wstring FromLanguage(std::string_view bytes, int32_t language) override;
};

}  // namespace tarvik
