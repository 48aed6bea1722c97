#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "app/control_ids.h"
#include "lab/windows_check/report.h"
#include "platform/windows_win32.h"

namespace tarvik::check {

/// A step of the check failed; the text says which and why. A section that throws becomes the failed item
/// "SECTION.section", and the other sections still run.
class CheckError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A program cannot be started, because a policy or virus scanner of this PC blocks it.
class BlockedError : public CheckError {
 public:
  using CheckError::CheckError;
};

/// Throws BlockedError or CheckError: "WHAT cannot be started: error N".
[[noreturn]] void ThrowStartError(const std::string& what, DWORD error);

/// Windows ends the process when this check ends, however that happens.
void EndWithThisCheck(HANDLE process);

std::string ToUtf8(const std::wstring& text);
std::wstring FromUtf8(const std::string& text);

/// Ends the check early: every wait throws CheckError from now on.
void Cancel();
bool IsCancelled();

/// Polls until the condition holds, less often the longer it takes; false after the time-out. Throws
/// CheckError once the user has cancelled.
bool WaitUntil(int timeOutMs, const std::function<bool()>& condition);

/// What every section receives. Paths are absolute, without a trailing backslash.
struct Kit {
  Report& report;
  std::wstring folder;   ///< temporary, deleted at the end; a section may add files and subfolders
  std::wstring product;  ///< the family edition's Tarvik.exe, with its folder Language
  std::wstring general;  ///< the general edition's Tarvik.exe, with its folder Language
  std::wstring bench;    ///< folder with the stand-in libraries, practice_controller.exe and K7Server.exe
  std::wstring driver;   ///< window_driver.exe
  /// No questions, no windows of the check itself. Sections may leave out what only waits, where they say so.
  bool unattended = false;
  /// False on a PC with the maker's software: the product then loads that in place of the bench's libraries.
  bool usesBench = true;
  /// Shows what is being done, in plain English.
  std::function<void(const std::string&)> progress;
  /// Asks the user to do something, such as to pull the cable; true = done, false = skipped, unattended or
  /// no answer after two minutes.
  std::function<bool(const std::string&)> ask;
};

/// The window driver (lab/helpers/window_driver) as a child process. Its commands are those of the
/// laboratory: see the comments there, and lab/pc/program.cpp for their arguments and answers.
class Driver {
 public:
  using Fields = std::vector<std::string>;

  explicit Driver(const Kit& kit);
  Driver(const Driver&) = delete;
  Driver& operator=(const Driver&) = delete;
  ~Driver();

  /// Sends a command with its arguments: texts (UTF-8), numbers and window handles. Returns the fields of the
  /// answer. Throws CheckError with the driver's message when the command fails, and after 90 seconds
  /// without an answer; the driver is then ended.
  template <typename... Arguments>
  Fields Ask(const std::string& command, const Arguments&... arguments) {
    return AskFields({command, Field(arguments)...});
  }
  Fields AskFields(const Fields& command);

 private:
  static std::string Field(const std::string& text) { return text; }
  static std::string Field(const wchar_t* text) { return ToUtf8(text); }
  static std::string Field(const std::wstring& text) { return ToUtf8(text); }
  static std::string Field(HWND window) { return std::to_string(reinterpret_cast<intptr_t>(window)); }
  template <typename Number,
            typename = std::enable_if_t<std::is_arithmetic_v<Number> || std::is_enum_v<Number>>>
  static std::string Field(Number number) {
    return std::to_string(static_cast<int64_t>(number));
  }
  bool ReadLine(std::string& line);

  HANDLE process_ = nullptr;
  HANDLE input_ = nullptr;   ///< write end of the driver's standard input
  HANDLE output_ = nullptr;  ///< read end of its standard output
  std::string buffer_;
};

enum class Edition { Family, General };

/// How RunningProduct starts the product.
struct StartOptions {
  Edition edition = Edition::Family;
  std::wstring arguments = {};      ///< raw text after the program's name
  std::wstring currentFolder = {};  ///< empty = the program's folder
  bool withBench = true;            ///< the bench's libraries are on the program's PATH
  std::wstring program = {};        ///< another program file instead of the edition's; empty = none
  std::map<std::wstring, std::wstring> environment = {};  ///< additional variables
};

/// The product, started for one section. Destruction ends it by the id with which it was started.
class RunningProduct {
 public:
  using Fields = Driver::Fields;

  /// Returns after the process was created. Throws CheckError when it cannot be started.
  RunningProduct(const Kit& kit, Driver& driver, const StartOptions& options = {});
  RunningProduct(const RunningProduct&) = delete;
  RunningProduct& operator=(const RunningProduct&) = delete;
  ~RunningProduct();

  DWORD Id() const { return id_; }
  HANDLE Process() const { return process_; }
  bool Runs() const;

  /// Waits for the main window and the controls of all its pages, answering message boxes with OK. Throws
  /// CheckError after a minute and when the program ends.
  HWND WaitForMainWindow();
  /// The message boxes that this object has answered: "title: text".
  const std::vector<std::string>& Boxes() const { return boxes_; }

  /// A command of the driver on the main window: Ask("text", ID_lblResult), Ask("click", ID_cmdPing, "").
  template <typename... Arguments>
  Fields Ask(const std::string& command, const Arguments&... arguments) {
    return driver_.Ask(command, window_, arguments...);
  }
  /// The control of the main window with this id; null if absent.
  HWND Control(int id) const;
  /// Clicks the tab with this index among the visible ones, and waits until it is selected.
  void SelectPage(int index);
  std::vector<std::string> Lines() { return Ask("lines", ID_lstResult); }
  /// True while a run is active: its button then reads "Stop".
  bool RunIsActive();
  /// Follows the run that the program starts by itself (a target on the command line) until the window is at
  /// rest, answering message boxes with OK. Returns the result list. Throws CheckError when it takes longer.
  std::vector<std::string> FollowRun(int timeOutMs);
  /// Clicks the button and follows the run that it starts.
  std::vector<std::string> ClickAndFollow(int button, int timeOutMs);
  /// Does what the close button does and waits for the end. Returns the exit code; throws CheckError when the
  /// program does not end within 15 seconds.
  DWORD Close();
  void Kill();

 private:
  bool AnswerBoxes();
  std::vector<std::string> Follow(const std::vector<std::string>* before, int timeOutMs);

  Driver& driver_;
  DWORD id_ = 0;
  HANDLE process_ = nullptr;
  HWND window_ = nullptr;
  mutable std::map<int, HWND> controls_;  ///< those found so far
  std::vector<std::string> boxes_;
};

/// The pixels of a window, top row first, 0x00RRGGBB.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<uint32_t> pixels;

  uint32_t At(int x, int y) const { return pixels.at(static_cast<size_t>(y * width + x)); }
};

/// What the window shows, frame included, whether or not it is covered (PrintWindow). Without an answer of
/// the window: no pixels, or under Wine a copy of the screen. Throws CheckError when the window has no area.
Picture CaptureWindow(HWND window);
/// The bytes of a PNG file; empty for a picture without pixels.
std::string EncodePng(const Picture& picture);

// The sections. Each is in a file named after it: CheckLooks in looks_win32.cpp.
void CheckGround(Kit& kit);
void CheckStart(Kit& kit);
void CheckLooks(Kit& kit);
void CheckHands(Kit& kit);
void CheckBlocking(Kit& kit);
void CheckRights(Kit& kit);
void CheckNetwork(Kit& kit);
void CheckFtp(Kit& kit);

}  // namespace tarvik::check

// Planted faults, for tests/windows/windows_check_test.cpp: the unattended check takes the product from a
// folder, so a test gives it a spoiled copy. There are two kinds, and neither touches the product's sources:
// 1. Changed bytes, such as the subsystem version in the header, or the name of an imported call replaced by
//    that of a harmless one with the same arguments.
// 2. A saboteur: in the copy, the imported library's name "ADVAPI32.dll" is replaced by "Saboteur.dll", a
//    library next to the copy (lab/windows_check/saboteur/). It forwards to the real library. Before the
//    program's first instruction it plants the faults that the file Saboteur.txt next to it names, mostly by
//    replacing a call in the program's import table. A new fault is an entry of kFaults there and a row in
//    the test.
