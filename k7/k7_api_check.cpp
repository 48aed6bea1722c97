#include "k7/k7_api_check.h"

#include <algorithm>
#include <optional>

#include "k7/k7_error_text.h"
#include "platform/fixed_buffer.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace tarvik {
namespace {

constexpr int kPausesPerCycle = 4;
constexpr uint32_t kPauseMilliseconds = 250;

/// A text as the library takes it and may change it.
class TextArgument {
 public:
  TextArgument(CodePage& codePage, const std::wstring& text)
      : codePage_(codePage), buffer_(codePage.ToAnsi(text)) {
    buffer_.resize(std::max(K7Api::kTextSize, buffer_.size() + 1), '\0');
  }
  char* Data() { return buffer_.data(); }
  std::wstring Text() const { return codePage_.FromAnsi(TrimNull(std::string_view(buffer_))); }

 private:
  CodePage& codePage_;
  std::string buffer_;
};

/// What the library gives back at the end of every test: the handle, if there is one, and its own clean-up,
/// which it is owed even when the test ended before its start-up.
class Session {
 public:
  explicit Session(K7Api& k7Api) : k7Api_(k7Api) {}
  ~Session() {
    try {
      if (handle != 0) k7Api_.K7_FreeHandle(handle);
      k7Api_.K7_WSACleanup();
    } catch (const RuntimeError&) {
      // A library that is not there has nothing to clean up, and the test has told that already.
    }
  }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  int32_t handle = 0;

 private:
  K7Api& k7Api_;
};

class Test {
 public:
  Test(const K7ApiTools& tools, std::wstring& address, std::wstring& host)
      : tools_(tools), address_(address), host_(host), session_(tools.k7Api) {}

  /// The message of the failure; nothing when there was none.
  std::optional<std::wstring> Run(const std::wstring& count, const std::wstring& countMessage);

 private:
  bool Connect();
  std::optional<std::wstring> RunCycles(int32_t count);
  bool PauseIsStopped();
  std::wstring Failed(const wchar_t* call);

  const K7ApiTools& tools_;
  std::wstring& address_;
  std::wstring& host_;
  Session session_;
};

std::wstring Test::Failed(const wchar_t* call) {
  int32_t errorCode = 0;
  int32_t systemError = 0;
  tools_.k7Api.K7_GetLastError(session_.handle, errorCode, systemError);
  return std::wstring(L"Failed to ") + call + L":" + K7ErrorText(errorCode, tools_.mode) + L":SystemError=" +
         Hexadecimal(static_cast<uint32_t>(systemError)) + L":hdl=" + Decimal(session_.handle);
}

bool Test::Connect() {
  TextArgument host(tools_.codePage, host_);
  const bool connected = tools_.k7Api.K7_ConnectServer(session_.handle, host.Data()) != 0;
  host_ = host.Text();
  return connected;
}

bool Test::PauseIsStopped() {
  bool stopped = false;
  for (int i = 0; i < kPausesPerCycle; ++i) {
    tools_.pump.LetEventsRun();
    tools_.pump.Sleep(kPauseMilliseconds);
    stopped = stopped || tools_.pump.StopRequested();
  }
  return stopped;
}

std::optional<std::wstring> Test::RunCycles(int32_t count) {
  int32_t stateA = 0;
  int32_t stateB = 0;
  for (int64_t cycle = 1; cycle <= count; ++cycle) {
    TextArgument address(tools_.codePage, address_);
    int32_t newA = 0;
    int32_t newB = 0;
    int32_t extra = 0;
    int16_t live = 0;
    const bool checked = tools_.k7Api.K7_CheckReboot2(session_.handle, address.Data(), stateA, stateB, newA,
                                                      newB, extra, live) != 0;
    if (!checked) return Failed(L"K7_CheckReboot");
    address_ = address.Text();
    tools_.results.AddToList(ZeroPadded(cycle, 5) + L" Live=" + (live != 0 ? L"True" : L"False"));
    stateA = newA;
    stateB = newB;
    if (PauseIsStopped()) break;
  }
  return std::nullopt;
}

std::optional<std::wstring> Test::Run(const std::wstring& count, const std::wstring& countMessage) {
  if (address_.empty()) return L"";
  tools_.results.AddToList(L"");
  tools_.results.AddToList(L"K7Api test....");
  tools_.k7Api.K7_WSAStartup();
  if (tools_.k7Api.K7_AllocHandle(session_.handle) != 0) return Failed(L"K7_AllocHandle");
  if (!Connect()) return Failed(L"K7_ConnectServer") + L" [" + host_ + L"]";
  const std::optional<int32_t> cycles = ParseInt32(count);
  if (!cycles) return countMessage;
  return RunCycles(*cycles);
}

}  // namespace

bool RunK7ApiTest(const K7ApiTools& tools, std::wstring address, std::wstring& host,
                  const std::wstring& count, const std::wstring& countMessage) {
  Test test(tools, address, host);
  const std::optional<std::wstring> failure = test.Run(count, countMessage);
  if (failure) tools.boxes.Show(*failure);
  return !failure;
}

}  // namespace tarvik
