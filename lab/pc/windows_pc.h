#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lab/host/one_core.h"
#include "lab/host/process.h"
#include "lab/pc/desktop.h"
#include "lab/pc/wine_prefix.h"

namespace tarvik::lab {

/// Time-out for what takes milliseconds on an idle machine.
inline constexpr milliseconds kSoon = std::chrono::seconds(15);

/// Time-out for a command to the driver, and for a run. A library call can block the window, and with it the
/// driver: Wine's FTP library reads a listing byte by byte, which takes more than a minute for a thousand
/// lines on a loaded machine.
inline constexpr milliseconds kUnblocked = std::chrono::minutes(3);

/// A PC with Windows: a display, a Wine prefix, a network namespace, and the window driver that runs in them.
class WindowsPc {
 public:
  struct Options {
    std::string driver;            ///< path of window_driver.exe
    std::string cacheFolder;       ///< for prefixes and temporary directories
    std::string programPath;       ///< WINEPATH, where its programs find libraries; empty = none
    std::string networkNamespace;  ///< empty = this process'
    Environment environment;       ///< additional variables for its programs
    WindowsLanguage language = WindowsLanguage::English;
    int dpi = 96;
    bool onOneCore = false;      ///< see OneCore; includes whatever else this thread starts
    bool onUsersScreen = false;  ///< use the user's display when there is one
    bool themed = true;          ///< false: programs draw their controls without a theme
  };

  /// Creates display and prefix. The driver starts with the first command. Throws like WinePrefix.
  explicit WindowsPc(const Options& options);
  WindowsPc(const WindowsPc&) = delete;
  WindowsPc& operator=(const WindowsPc&) = delete;

  /// Call SetRegistryValue only before the first command.
  WinePrefix& Prefix() { return *prefix_; }

  const Desktop& Screen() const { return desktop_; }

  /// Ends all Windows programs, the driver included. The next command starts the driver again.
  void Restart();

  /// Sends a command to the driver: its name, then its arguments. Returns the fields of the answer. Throws
  /// LabError with the driver's message when the command fails, and on a time-out. `timeOut` must be longer
  /// than the one among the arguments.
  std::vector<std::string> Ask(const std::vector<std::string>& command, milliseconds timeOut = kUnblocked);

  /// Nothing when the clipboard holds no text.
  std::optional<std::string> ClipboardText();
  void SetClipboardText(const std::string& text);
  /// Makes another program keep the clipboard open for this time. Returns once it is open.
  void HoldClipboard(milliseconds duration);

  /// Moves the pointer into the screen's corner, away from the windows.
  void ParkPointer();

  /// Text values below HKEY_CURRENT_USER; nothing when there is no such value.
  std::optional<std::string> RegistryText(const std::string& key, const std::string& name);
  void SetRegistryText(const std::string& key, const std::string& name, const std::string& text);
  void DeleteRegistryKey(const std::string& key);

 private:
  void StartDriver();

  Options options_;
  std::unique_ptr<OneCore> core_;
  Desktop desktop_;
  std::unique_ptr<WinePrefix> prefix_;
  /// Declared after the prefix, so the driver ends before it, and kills the programs that it started.
  std::unique_ptr<Process> driver_;
  int unanswered_ = 0;  ///< number of commands that the driver has not answered yet
};

}  // namespace tarvik::lab
