#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvik {

/// The system's single-byte ("ANSI") code page; Japanese Windows has two bytes for a full-width character.
class CodePage {
 public:
  virtual ~CodePage() = default;

  /// WideCharToMultiByte(CP_ACP): the text as the single-byte calls take it.
  virtual std::string ToAnsi(std::wstring_view text) = 0;

  /// WideCharToMultiByte(CP_OEMCP): the text as the command interpreter reads it in a batch file.
  virtual std::string ToOem(std::wstring_view text) = 0;

  /// MultiByteToWideChar(CP_ACP): bytes that a single-byte call returned.
  virtual std::wstring FromAnsi(std::string_view bytes) = 0;

  /// MultiByteToWideChar with the code page that belongs to the locale id `language`: the bytes of a
  /// language file, which is written in its own language's code page whatever the PC's is.
  virtual std::wstring FromLanguage(std::string_view bytes, int32_t language) = 0;

  /// Length of the text in bytes of the system's code page.
  size_t AnsiLength(std::wstring_view text) { return ToAnsi(text).size(); }
};

/// The code pages of kernel32.
std::unique_ptr<CodePage> MakeCodePage();

}  // namespace tarvik
