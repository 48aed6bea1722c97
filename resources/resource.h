#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/system.h"

namespace tarvik {

/// The texts of one language file, by number.
class Resource {
 public:
  Resource(Files& files, System& system, CodePage& codePage)
      : files_(files), system_(system), codePage_(codePage) {}

  /// Looks for the language file of the locale id, then for the English one (1033). True when one was
  /// found. Without a file the object stays usable: LoadString gives numbers in brackets.
  bool Initialize(int32_t language, const std::wstring& commonDataFolder, const std::wstring& resName);

  /// The text of the string; "(id)" when the file has none. The two characters "\n" of the file come back
  /// as a real line break. Each number is looked up in the file once.
  std::wstring LoadString(int32_t id);

  /// As LoadString, but nothing when the file has no such text.
  std::optional<std::wstring> FindString(int32_t id);

  /// Releases the cache and the file; the object can be initialised again.
  void Terminate();

  /// The language id in use: the one asked for, or 1033 after the fallback.
  int32_t pLanguage() const { return language_; }

  /// The last error of Initialize or LoadString; empty after a LoadString that found its text.
  const std::wstring& pErrorText() const { return errorText_; }

  /// Dormant: stored but never read. Kept for callers written for older releases.
  bool pUsingOldResource = false;

 private:
  std::wstring PathFor(int32_t language) const;
  std::wstring ReadString(int32_t id);

  /// One string as the file has it, or its number in brackets.
  struct clsRc {
    int32_t id;
    std::wstring text;
    bool inFile;
  };
  const clsRc& Look(int32_t id);

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
