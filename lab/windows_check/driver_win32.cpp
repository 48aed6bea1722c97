// The window driver as a child process, spoken to over its standard input and output.

#include "lab/pc/driver_protocol.h"
#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {
namespace {

/// Longer than the driver's own time-outs, so that its error message arrives.
constexpr int kAnswerTimeOutMs = 90000;

/// Creates a pipe of which the child inherits one end.
void CreatePipeForChild(HANDLE& read, HANDLE& write, HANDLE& inherited) {
  if (!::CreatePipe(&read, &write, nullptr, 0)) throw CheckError("no pipe to the window driver");
  ::SetHandleInformation(inherited, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
}

}  // namespace

Driver::Driver(const Kit& kit) {
  HANDLE childInput = nullptr;
  HANDLE childOutput = nullptr;
  CreatePipeForChild(childInput, input_, childInput);
  CreatePipeForChild(output_, childOutput, childOutput);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput = childInput;
  startup.hStdOutput = childOutput;
  PROCESS_INFORMATION information{};
  const BOOL started = ::CreateProcessW(kit.driver.c_str(), nullptr, nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                                        nullptr, kit.folder.c_str(), &startup, &information);
  const DWORD error = ::GetLastError();
  ::CloseHandle(childInput);
  ::CloseHandle(childOutput);
  if (!started) {
    ::CloseHandle(input_);
    ::CloseHandle(output_);
    ThrowStartError("the window driver", error);
  }
  ::CloseHandle(information.hThread);
  process_ = information.hProcess;
  EndWithThisCheck(process_);
  // The driver brings windows to the foreground. Only the foreground process, this one, can permit that.
  ::AllowSetForegroundWindow(information.dwProcessId);
}

Driver::~Driver() {
  // The driver ends with its input, and ends the programs that it adopted.
  ::CloseHandle(input_);
  if (::WaitForSingleObject(process_, 5000) != WAIT_OBJECT_0) ::TerminateProcess(process_, 1);
  ::CloseHandle(output_);
  ::CloseHandle(process_);
}

Driver::Fields Driver::AskFields(const Fields& command) {
  const std::string line = lab::JoinFields(command) + "\n";
  DWORD written = 0;
  if (!::WriteFile(input_, line.data(), static_cast<DWORD>(line.size()), &written, nullptr))
    throw CheckError(command.front() + ": the window driver has ended");
  std::string text;
  if (!ReadLine(text)) {
    ::TerminateProcess(process_, 1);
    throw CheckError(command.front() + ": the window driver does not answer");
  }
  Fields answer = lab::SplitFields(text);
  const bool good = answer.front() == "ok";
  answer.erase(answer.begin());
  if (!good) throw CheckError(command.front() + ": " + (answer.empty() ? text : answer.front()));
  return answer;
}

bool Driver::ReadLine(std::string& line) {
  const bool arrived = WaitUntil(kAnswerTimeOutMs, [&] {
    DWORD count = 0;
    if (!::PeekNamedPipe(output_, nullptr, 0, nullptr, &count, nullptr)) return true;
    if (count == 0) return false;
    std::string bytes(count, '\0');
    if (!::ReadFile(output_, bytes.data(), count, &count, nullptr)) return true;
    buffer_.append(bytes, 0, count);
    return buffer_.find('\n') != std::string::npos;
  });
  const size_t end = buffer_.find('\n');
  if (!arrived || end == std::string::npos) return false;
  line = buffer_.substr(0, end);
  buffer_.erase(0, end + 1);
  return true;
}

}  // namespace tarvik::check
