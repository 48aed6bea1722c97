#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/system.h"

namespace tarvik {

/// Reads the texts of one language file by number.
class Resource {
 public:
  Resource(Files& files, System& system, CodePage& codePage)
      : files_(files), system_(system), codePage_(codePage) {}

  /// Selects `commonDataFolder\Language\<resName>_<language>.ini` or, if that is missing, the English file
  /// (1033). False when both are missing; the object stays usable and LoadString returns numbers in brackets.
  bool Initialize(int32_t language, const std::wstring& commonDataFolder, const std::wstring& resName);

  /// The string; "(id)" when the file has none. The two characters "\n" in the file become a line break. Each
  /// id is read from the file once.
  std::wstring LoadString(int32_t id);

  /// Like LoadString, but nothing when the file does not contain the string.
  std::optional<std::wstring> FindString(int32_t id);

  /// Clears the cache and deselects the file; Initialize may be called again.
  void Terminate();

  /// The locale id in use: the requested one, or 1033 after the fallback.
  int32_t pLanguage() const { return language_; }

  /// The last error. LoadString and FindString clear it first. Not empty after Initialize fell back to
  /// English.
  const std::wstring& pErrorText() const { return errorText_; }

  /// Dormant: never written or read.
  bool pUsingOldResource = false;

 private:
  std::wstring PathFor(int32_t language) const;
  std::wstring ReadString(int32_t id);

  /// A cached string as the file has it, or its number in brackets.
  struct clsRc {
    int32_t id;
    std::wstring text;
    bool inFile;
  };
  const clsRc& LookUp(int32_t id);

  Files& files_;
  System& system_;
  CodePage& codePage_;
  int32_t language_ = 0;
  std::wstring commonDataFolder_;
  std::wstring resName_;
  std::wstring path_;
  std::wstring errorText_;
  std::map<std::wstring, clsRc> cache_;
};

}  // namespace tarvik
