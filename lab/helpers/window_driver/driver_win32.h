#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/windows_win32.h"

namespace tarvik::lab {

/// A command that failed. The message becomes the second field of the answer.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

std::string ToUtf8(const std::wstring& text);
std::wstring FromUtf8(const std::string& text);

/// The arguments of one command. Every getter throws CommandError when the argument is missing or has the
/// wrong type.
class Arguments {
 public:
  explicit Arguments(std::vector<std::string> fields) : fields_(std::move(fields)) {}

  std::wstring Text(size_t index) const;
  int64_t Number(size_t index) const;
  /// An existing window, by the handle from an earlier answer.
  HWND Window(size_t index) const;
  /// The descendant of the window at `index` that has the id at `index` + 1; id 0 = the window itself. Waits
  /// up to 15 seconds for the control to be created.
  HWND Control(size_t index) const;

 private:
  const std::string& Field(size_t index) const;
  std::vector<std::string> fields_;
};

using Fields = std::vector<std::string>;
using Command = std::function<Fields(const Arguments&)>;

/// Registers a command.
void AddCommand(const char* name, Command command);

void AddProcessCommands();
void AddWindowCommands();
void AddListCommands();
void AddInputCommands();
void AddMenuCommands();
void AddStatusBarCommands();
void AddSystemCommands();

/// Polls until the condition holds, less often the longer it takes. Throws CommandError("timed out: " + what)
/// after `timeOutMs`.
void WaitFor(int64_t timeOutMs, const std::string& what, const std::function<bool()>& condition);

/// The same for measurements: polls every millisecond.
void WaitClosely(int64_t timeOutMs, const std::string& what, const std::function<bool()>& condition);

/// SendMessage with a time-out of a minute: a program on a busy machine can take long to answer. Throws
/// CommandError when the window does not respond.
LRESULT SendWithTimeOut(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0);

std::wstring TextOf(HWND window);
std::wstring ClassOf(HWND window);
std::string NumberText(int64_t number);
std::string HandleText(HWND window);
DWORD ProcessOf(HWND window);

/// The process's first visible top-level window of this class; null if absent.
HWND FindTopLevel(DWORD process, const std::wstring& windowClass);

/// Makes `window`'s top-level window, or the message box in front of it, the foreground window, so that it
/// receives typed keys.
void BringToForeground(HWND window);

/// Milliseconds of the performance counter, with fraction.
double PreciseMilliseconds();
std::string MillisecondsText(double milliseconds);

/// Posts a left click at a point of the control's client area.
void PostClick(HWND control, POINT point);
POINT CentreOf(HWND control);

}  // namespace tarvik::lab
