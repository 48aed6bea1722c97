#pragma once

#include <string>

#include "lab/host/leftovers.h"
#include "lab/host/process.h"

namespace tarvik::lab {

/// System language of a prefix, which decides the ANSI code page (1252 or 932).
enum class WindowsLanguage { English, Japanese };

/// A private Windows: a Wine prefix for 32- and 64-bit programs. It is a cheap copy of a master prefix, which
/// is created once per language and kept in the cache folder. No program may write to syswow64 and winsxs,
/// which prefixes share. A prefix belongs to the network namespace in which its first program starts.
/// Destruction kills its programs and deletes it.
class WinePrefix {
 public:
  enum class Hive { User, System };

  /// `dpi`: screen scaling; 96 = 100 percent. Throws LabError or std::filesystem::filesystem_error.
  WinePrefix(const std::string& cacheFolder, WindowsLanguage language, int dpi);
  WinePrefix(const WinePrefix&) = delete;
  WinePrefix& operator=(const WinePrefix&) = delete;
  ~WinePrefix();

  const std::string& Folder() const { return folder_; }

  /// The environment of programs in this prefix, without DISPLAY.
  Environment Variables() const;

  /// Adds a value to the registry. Call before the first program starts. `key`: path with "\"; `value`: in
  /// the notation of .reg files, "\"text\"" or "dword:00000060".
  void SetRegistryValue(Hive hive, const std::string& key, const std::string& name, const std::string& value);

  /// Replaces a program of Windows, such as "notepad.exe", for 32- and 64-bit programs.
  void ReplaceProgram(const std::string& name, const std::string& file);

  /// Ends its programs and its Wine server, which saves the registry.
  void EndPrograms();

 private:
  TempDirectory directory_;
  std::string folder_;
  WindowsLanguage language_;
};

/// Creates the master prefixes of all languages in the cache folder, those that are missing. Throws like
/// WinePrefix.
void CreateMasterPrefixes(const std::string& cacheFolder);

/// The path under which Windows programs see a file of this machine: on drive C: in a prefix, otherwise on
/// Z:.
std::string WindowsPath(const std::string& path);

/// The command of this machine that runs a Windows program. Debian's "wine" starts 64-bit programs through a
/// program of Windows, which can fail while Wine starts in a new prefix.
std::string WineFor(const std::string& program);

}  // namespace tarvik::lab
