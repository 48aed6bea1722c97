#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/windows_win32.h"

namespace tarvik::lab {

/// A command that cannot be carried out; the text is the answer's second field.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

std::string ToUtf8(const std::wstring& text);
std::wstring FromUtf8(const std::string& text);

/// The fields of one command after its name. Each reader throws CommandError when the field is not there
/// or is not of its kind.
class Arguments {
 public:
  explicit Arguments(std::vector<std::string> fields) : fields_(std::move(fields)) {}

  std::wstring Text(size_t index) const;
  int64_t Number(size_t index) const;
  /// A window that exists, by the handle that an earlier answer gave.
  HWND Window(size_t index) const;
  /// The control with the id at `index` + 1 anywhere below the window at `index`; id 0 = the window itself.
  HWND Control(size_t index) const;

 private:
  const std::string& Field(size_t index) const;
  std::vector<std::string> fields_;
};

using Fields = std::vector<std::string>;
using Command = std::function<Fields(const Arguments&)>;

/// Makes a command known under its name.
void AddCommand(const char* name, Command command);

void AddProcessCommands();
void AddWindowCommands();
void AddListCommands();
void AddInputCommands();
void AddMenuCommands();
void AddSystemCommands();

/// Polls every `step` milliseconds until the condition holds; throws CommandError("timed out: " + what)
/// when it does not within `timeOut` milliseconds.
void WaitFor(int64_t timeOut, const std::string& what, const std::function<bool()>& condition,
             DWORD step = 5);

/// SendMessage that gives up when the window does not answer (CommandError).
LRESULT Ask(HWND window, UINT message, WPARAM wparam = 0, LPARAM lparam = 0);

std::wstring TextOf(HWND window);
std::wstring ClassOf(HWND window);
std::string NumberText(int64_t number);
std::string HandleText(HWND window);
DWORD ProcessOf(HWND window);

/// A visible top-level window of the process with that class; null when there is none.
HWND FindTopLevel(DWORD process, const std::wstring& windowClass);

/// Brings the top-level window that holds `window` to the foreground, so that keys go there.
void BringToForeground(HWND window);

/// The milliseconds since an arbitrary moment, with their fraction.
double PreciseMilliseconds();
std::string MillisecondsText(double milliseconds);

/// Posts a press and a release of the left mouse button at a point of the control's client area.
void PostClick(HWND control, POINT point);
POINT CentreOf(HWND control);

}  // namespace tarvik::lab
