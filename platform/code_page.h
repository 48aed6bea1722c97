#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvik {

/// Conversions between UTF-16 and the PC's code pages. On Japanese Windows the ANSI (system) code page is
/// 932, in which a full-width character has two bytes.
class CodePage {
 public:
  virtual ~CodePage() = default;

  /// Text for an ANSI call (WideCharToMultiByte with CP_ACP). Characters that the code page lacks are
  /// replaced.
  virtual std::string ToAnsi(std::wstring_view text) = 0;

  /// Text for a batch file, which the command interpreter reads in the OEM code page (CP_OEMCP).
  virtual std::string ToOem(std::wstring_view text) = 0;

  /// Text that an ANSI call returned (MultiByteToWideChar with CP_ACP).
  virtual std::wstring FromAnsi(std::string_view bytes) = 0;

  /// Text of a language file, which is written in the ANSI code page of that language, whatever the PC's
  /// code page is. `language` is a locale id; if Windows knows no code page for it, the PC's is used.
  virtual std::wstring FromLanguage(std::string_view bytes, int32_t language) = 0;

  /// The length of the text in bytes of the ANSI code page.
  size_t AnsiLength(std::wstring_view text) { return ToAnsi(text).size(); }
};

/// The code pages of this PC (kernel32).
std::unique_ptr<CodePage> MakeCodePage();

}  // namespace tarvik
