// The driver's main loop: reads one command per line from standard input and writes one answer per line to
// standard output. lab/pc/driver_protocol.h describes the format; the other files of this folder add the
// commands.

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <map>
#include <utility>

#include "lab/helpers/window_driver/driver_win32.h"
#include "lab/helpers/window_driver/remote_win32.h"
#include "lab/pc/driver_protocol.h"
// After windows.h.
#include <iphlpapi.h>
// After iphlpapi.h.
#include <icmpapi.h>

namespace tarvik::lab {
namespace {

constexpr UINT kAnswerTimeOutMs = 60000;
constexpr int64_t kControlTimeOutMs = 15000;

/// Every question to a window costs processor time, which waiting tests take from the others. So the pauses
/// grow; beyond the shortest one, at most a tenth of the time waited is lost.
void Poll(int64_t timeOutMs, const std::string& what, const std::function<bool()>& condition,
          double shortestPauseMs, double longestPauseMs) {
  const double begin = PreciseMilliseconds();
  while (!condition()) {
    const double waited = PreciseMilliseconds() - begin;
    if (waited >= static_cast<double>(timeOutMs)) throw CommandError("timed out: " + what);
    Sleep(static_cast<DWORD>(std::clamp(waited / 10, shortestPauseMs, longestPauseMs)));
  }
}

std::map<std::string, Command>& Commands() {
  static std::map<std::string, Command> commands;
  return commands;
}

using ControlsById = std::map<int, HWND>;

BOOL CALLBACK AddControl(HWND control, LPARAM parameter) {
  reinterpret_cast<ControlsById*>(parameter)->try_emplace(GetDlgCtrlID(control), control);
  return TRUE;
}

/// The window's control with this id; null if absent. A search asks the window server about every control, so
/// all that it finds are remembered.
HWND FindControl(HWND window, int id) {
  static std::map<HWND, ControlsById> known;
  ControlsById& controls = known[window];
  const auto control = controls.find(id);
  if (control != controls.end() && GetDlgCtrlID(control->second) == id && IsChild(window, control->second))
    return control->second;
  controls.clear();
  EnumChildWindows(window, AddControl, reinterpret_cast<LPARAM>(&controls));
  const auto found = controls.find(id);
  return found == controls.end() ? nullptr : found->second;
}

Fields Answer(const std::string& line) {
  Fields fields = SplitFields(line);
  const std::string name = fields.front();
  fields.erase(fields.begin());
  try {
    const auto command = Commands().find(name);
    if (command == Commands().end()) throw CommandError("no such command: " + name);
    Fields answer = command->second(Arguments(std::move(fields)));
    answer.insert(answer.begin(), "ok");
    return answer;
  } catch (const std::exception& error) {
    return {"error", error.what()};
  }
}

/// Reads the next line. `buffer` keeps the bytes after it. False at the end of the input.
bool ReadLine(HANDLE input, std::string& buffer, std::string& line) {
  size_t end = 0;
  while ((end = buffer.find('\n')) == std::string::npos) {
    std::array<char, 4096> bytes;
    DWORD count = 0;
    if (!ReadFile(input, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr) || count == 0) {
      return false;
    }
    buffer.append(bytes.data(), count);
  }
  line = buffer.substr(0, end);
  buffer.erase(0, end + 1);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

/// Makes Windows report rectangles in physical pixels at any scaling. Loaded dynamically: old versions of
/// Windows do not export SetProcessDpiAwarenessContext.
void UsePhysicalPixels() {
  using SetAwareness = BOOL(WINAPI*)(HANDLE);
  const auto perMonitor = reinterpret_cast<HANDLE>(static_cast<intptr_t>(-4));
  const auto address = GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetProcessDpiAwarenessContext");
  if (address != nullptr) reinterpret_cast<SetAwareness>(reinterpret_cast<void*>(address))(perMonitor);
}

/// In a new prefix, Wine starts its network drivers together with the first program. A program that asks
/// for them a moment too early cannot send echoes. Waits for at most half a minute.
bool WinesNetworkStarts() {
  constexpr double kTimeOutMs = 30000;
  const double deadline = PreciseMilliseconds() + kTimeOutMs;
  while (PreciseMilliseconds() < deadline) {
    const HANDLE echoes = IcmpCreateFile();
    if (echoes != INVALID_HANDLE_VALUE) return IcmpCloseHandle(echoes) != FALSE;
    Sleep(5);
  }
  return false;
}

}  // namespace

void AddCommand(const char* name, Command command) { Commands()[name] = std::move(command); }

std::string ToUtf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  std::string bytes(text.size() * 3, '\0');
  const int count = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                        static_cast<int>(bytes.size()), nullptr, nullptr);
  bytes.resize(static_cast<size_t>(count));
  return bytes;
}

std::wstring FromUtf8(const std::string& text) {
  std::wstring wide(text.size(), L'\0');
  const int count = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                                        static_cast<int>(wide.size()));
  wide.resize(static_cast<size_t>(count));
  return wide;
}

const std::string& Arguments::Field(size_t index) const {
  if (index >= fields_.size())
    throw CommandError("argument " + NumberText(static_cast<int64_t>(index)) + " is missing");
  return fields_[index];
}

std::wstring Arguments::Text(size_t index) const { return FromUtf8(Field(index)); }

int64_t Arguments::Number(size_t index) const {
  const std::string& field = Field(index);
  int64_t number = 0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
  if (error != std::errc() || end != field.data() + field.size())
    throw CommandError("not a number: " + field);
  return number;
}

HWND Arguments::Window(size_t index) const {
  const HWND window = reinterpret_cast<HWND>(static_cast<intptr_t>(Number(index)));
  if (!IsWindow(window)) throw CommandError("no such window: " + Field(index));
  return window;
}

HWND Arguments::Control(size_t index) const {
  const HWND window = Window(index);
  const int id = static_cast<int>(Number(index + 1));
  if (id == 0) return window;
  HWND control = nullptr;
  // The controls of hidden pages are created shortly after the window appears.
  WaitFor(kControlTimeOutMs, "control " + NumberText(id),
          [&] { return (control = FindControl(window, id)) != nullptr; });
  return control;
}

void WaitFor(int64_t timeOutMs, const std::string& what, const std::function<bool()>& condition) {
  Poll(timeOutMs, what, condition, 5, 30);
}

void WaitClosely(int64_t timeOutMs, const std::string& what, const std::function<bool()>& condition) {
  Poll(timeOutMs, what, condition, 1, 1);
}

LRESULT SendWithTimeOut(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutW(window, message, wparam, lparam, SMTO_NORMAL, kAnswerTimeOutMs, &result) == 0) {
    throw CommandError("the window does not respond: error " + NumberText(GetLastError()));
  }
  return static_cast<LRESULT>(result);
}

std::wstring TextOf(HWND window) {
  std::wstring text;
  const auto read = [&](size_t size) {
    text.resize(size);
    const LRESULT count = SendWithTimeOut(window, WM_GETTEXT, size, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(count));
  };
  // Most texts fit, and asking for the length costs as much as reading.
  constexpr size_t kUsualSize = 256;
  read(kUsualSize);
  if (text.size() + 1 >= kUsualSize)
    read(static_cast<size_t>(SendWithTimeOut(window, WM_GETTEXTLENGTH)) + 64);
  return text;
}

std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 256> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

std::string NumberText(int64_t number) { return std::to_string(number); }

std::string HandleText(HWND window) { return NumberText(reinterpret_cast<intptr_t>(window)); }

DWORD ProcessOf(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process;
}

double PreciseMilliseconds() {
  LARGE_INTEGER counter;
  LARGE_INTEGER frequency;
  QueryPerformanceCounter(&counter);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(counter.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

std::string MillisecondsText(double milliseconds) {
  std::array<char, 64> text{};
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), milliseconds, std::chars_format::fixed, 3);
  return std::string(text.data(), end);
}

}  // namespace tarvik::lab

int main() {
  using namespace tarvik::lab;
  if (IsWine() && !WinesNetworkStarts()) {
    std::fputs("Wine's network drivers do not start\n", stderr);
    return 1;
  }
  UsePhysicalPixels();
  AddProcessCommands();
  AddWindowCommands();
  AddListCommands();
  AddInputCommands();
  AddMenuCommands();
  AddStatusBarCommands();
  AddSystemCommands();
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  std::string buffer;
  std::string line;
  while (ReadLine(input, buffer, line) && line != "quit") {
    // Written as raw bytes: the C runtime's wide output drops characters that the code page lacks.
    const std::string answer = JoinFields(Answer(line)) + "\n";
    DWORD written = 0;
    if (!WriteFile(output, answer.data(), static_cast<DWORD>(answer.size()), &written, nullptr)) break;
  }
  return 0;
}
