#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lab/desktop.h"
#include "lab/process.h"
#include "lab/wine_prefix.h"

namespace tarvik::lab {

/// How long an answer may take that comes at once unless the machine is under load.
inline constexpr milliseconds kSoon = std::chrono::seconds(15);

/// A PC with Windows: a screen, a prefix, a network namespace, and the window driver that runs in them.
class WindowsPc {
 public:
  struct Options {
    std::string driver;            ///< path of window_driver.exe
    std::string cacheFolder;       ///< where prefixes are kept and copied to
    std::string programPath;       ///< a folder in which its programs find libraries
    std::string networkNamespace;  ///< empty = the machine's own network
    Environment environment;       ///< variables for its programs
    WindowsLanguage language = WindowsLanguage::English;
    int dpi = 96;
    bool onUsersScreen = false;  ///< where there is one
  };

  /// Throws LabError.
  explicit WindowsPc(const Options& options);
  ~WindowsPc();

  /// Still at rest: no program has started, so the registry can be prepared.
  WinePrefix& Prefix() { return *prefix_; }

  const Desktop& Screen() const { return desktop_; }

  /// Ends every Windows program and the driver, and starts the driver anew when it is needed again.
  void Restart();

  /// Sends one command to the driver: its name, then its arguments. The fields of the answer; LabError with
  /// the driver's words when it cannot carry it out. `timeOut` must be longer than the command's own.
  std::vector<std::string> Ask(const std::vector<std::string>& command, milliseconds timeOut = 2 * kSoon);

  std::optional<std::string> ClipboardText();
  void SetClipboardText(const std::string& text);

  /// Texts below HKEY_CURRENT_USER.
  std::optional<std::string> RegistryText(const std::string& key, const std::string& name);
  void SetRegistryText(const std::string& key, const std::string& name, const std::string& text);
  void DeleteRegistryKey(const std::string& key);

 private:
  void StartDriver();

  Options options_;
  Desktop desktop_;
  std::unique_ptr<WinePrefix> prefix_;
  std::unique_ptr<Process> driver_;
  int unanswered_ = 0;  ///< what the driver was asked and has not answered yet
};

}  // namespace tarvik::lab
