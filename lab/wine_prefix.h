#pragma once

#include <string>

#include "lab/leavings.h"
#include "lab/process.h"

namespace tarvik::lab {

/// Which Windows a program finds.
enum class WindowsLanguage { English, Japanese };

/// A Windows of its own: a Wine prefix that is fit for 32- and 64-bit programs. One is made per language and
/// kept in the cache folder; every object is a cheap copy of it. The prefix belongs to the network
/// namespace in which its first program starts, so a prefix serves one namespace. Its end ends every
/// Windows program in it.
class WinePrefix {
 public:
  enum class Hive { User, System };

  /// `dpi`: dots per inch of its screen; 96 = 100 percent. Throws LabError.
  WinePrefix(const std::string& cacheFolder, WindowsLanguage language, int dpi);
  WinePrefix(const WinePrefix&) = delete;
  WinePrefix& operator=(const WinePrefix&) = delete;
  ~WinePrefix();

  const std::string& Folder() const { return folder_; }

  /// What a program in this Windows needs in its environment, beside DISPLAY.
  Environment Variables() const;

  /// Adds a value to the registry; only while no program has started yet. The value is written as the
  /// registry's text files have it: "\"text\"" or "dword:00000060". The key's parts stand between "\".
  void SetRegistryValue(Hive hive, const std::string& key, const std::string& name, const std::string& value);

  /// Ends every Windows program in it, and the server that writes the registry.
  void EndPrograms();

 private:
  TempDirectory work_;
  std::string folder_;
  WindowsLanguage language_;
};

/// The path of a file of this machine as a Windows program sees it.
std::string WindowsPath(const std::string& path);

}  // namespace tarvik::lab
