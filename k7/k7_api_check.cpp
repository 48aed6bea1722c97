#include "k7/k7_api_check.h"

#include <algorithm>
#include <optional>

#include "k7/k7_error_text.h"
#include "platform/fixed_buffer.h"
#include "platform/runtime_error.h"
#include "platform/scope_guard.h"
#include "platform/text.h"

namespace tarvik {
namespace {

constexpr int kPausesPerCycle = 4;
constexpr uint32_t kPauseMs = 250;

/// A text argument as the library requires it: in a buffer that the library may write to.
class TextArgument {
 public:
  TextArgument(CodePage& codePage, const std::wstring& text)
      : codePage_(codePage), buffer_(codePage.ToAnsi(text)) {
    buffer_.resize(std::max(K7Api::kMinTextBytes, buffer_.size() + 1), '\0');
  }
  char* Data() { return buffer_.data(); }
  std::wstring Text() const { return codePage_.FromAnsi(TrimNull(std::string_view(buffer_))); }

 private:
  CodePage& codePage_;
  std::string buffer_;
};

/// Frees the handle, if there is one, and cleans the library up at the end of every test. The library expects
/// K7_WSACleanup even when the test ended before K7_WSAStartup.
class Session {
 public:
  explicit Session(K7Api& k7Api) : k7Api_(k7Api) {}
  ~Session() {
    try {
      if (handle != 0) k7Api_.K7_FreeHandle(handle);
      k7Api_.K7_WSACleanup();
    } catch (const RuntimeError&) {
      // A missing library has nothing to clean up, and the test has already reported it.
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
  Test(const report::CheckContext& context, K7Api& k7Api, CodePage& codePage, std::wstring& address,
       std::wstring& host)
      : context_(context),
        k7Api_(k7Api),
        codePage_(codePage),
        typedAddress_(address),
        address_(address),
        host_(host),
        session_(k7Api) {}

  /// Returns the message of the failure; nothing on success.
  std::optional<std::wstring> Run(const std::wstring& count, const std::wstring& countMessage);

 private:
  std::optional<std::wstring> Steps(const std::wstring& count, const std::wstring& countMessage);
  bool Connect();
  std::optional<std::wstring> RunCycles(int32_t count);
  bool PauseIsStopped();
  std::wstring Failed(report::K7Call which, const wchar_t* call);
  void KeepFacts();
  void Record();

  const report::CheckContext& context_;
  K7Api& k7Api_;
  CodePage& codePage_;
  const std::wstring typedAddress_;
  std::wstring& address_;  ///< the library may rewrite it
  std::wstring& host_;
  Session session_;
  bool finished_ = false;
  report::K7Facts facts_;  ///< its own: another test can begin while this one runs
};

void Test::KeepFacts() {
  // Together: a test that began while this one ran has replaced both.
  context_.recorder.AddressUsed(report::Rung::K7, typedAddress_);
  context_.recorder.run.facts.k7 = facts_;
}

void Test::Record() {
  KeepFacts();
  context_.recorder.Changed();
}

std::wstring Test::Failed(report::K7Call which, const wchar_t* call) {
  int32_t errorCode = 0;
  int32_t systemError = 0;
  k7Api_.K7_GetLastError(session_.handle, errorCode, systemError);
  facts_.failed = which;
  facts_.errorCode = errorCode;
  facts_.systemError = systemError;
  return std::wstring(L"Failed to ") + call + L":" + K7ErrorText(errorCode, context_.texts.Mode()) +
         L":SystemError=" + Hexadecimal(static_cast<uint32_t>(systemError)) + L":hdl=" +
         Decimal(session_.handle);
}

bool Test::Connect() {
  TextArgument host(codePage_, host_);
  const bool connected = k7Api_.K7_ConnectServer(session_.handle, host.Data()) != 0;
  host_ = host.Text();
  return connected;
}

bool Test::PauseIsStopped() {
  bool stopped = false;
  for (int i = 0; i < kPausesPerCycle; ++i) {
    context_.pump.LetEventsRun();
    context_.pump.Sleep(kPauseMs);
    stopped = stopped || context_.pump.StopRequested();
  }
  return stopped;
}

std::optional<std::wstring> Test::RunCycles(int32_t count) {
  int32_t stateA = 0;
  int32_t stateB = 0;
  facts_.asked = count;
  for (int64_t cycle = 1; cycle <= count; ++cycle) {
    Record();
    TextArgument address(codePage_, address_);
    int32_t newA = 0;
    int32_t newB = 0;
    int32_t extra = 0;
    int16_t live = 0;
    const bool checked =
        k7Api_.K7_CheckReboot2(session_.handle, address.Data(), stateA, stateB, newA, newB, extra, live) != 0;
    if (!checked) return Failed(report::K7Call::CheckReboot, L"K7_CheckReboot");
    address_ = address.Text();
    ++facts_.answers;
    if (live != 0) ++facts_.live;
    context_.results.AddToList(ZeroPadded(cycle, 5) + L" Live=" + (live != 0 ? L"True" : L"False"));
    stateA = newA;
    stateB = newB;
    if (PauseIsStopped()) break;
  }
  return std::nullopt;
}

std::optional<std::wstring> Test::Run(const std::wstring& count, const std::wstring& countMessage) {
  facts_.progress = report::Progress::Running;
  const ScopeGuard ended([this] {
    // An error leaves the rung running, which shows that it broke off.
    if (finished_) facts_.progress = report::Progress::Ended;
    KeepFacts();
  });
  std::optional<std::wstring> failure = Steps(count, countMessage);
  finished_ = true;
  return failure;
}

std::optional<std::wstring> Test::Steps(const std::wstring& count, const std::wstring& countMessage) {
  facts_.addressMissing = address_.empty();
  if (facts_.addressMissing) return L"";
  Record();
  context_.results.AddToList(L"");
  context_.results.AddToList(L"K7Api test....");
  k7Api_.K7_WSAStartup();
  if (k7Api_.K7_AllocHandle(session_.handle) != 0)
    return Failed(report::K7Call::AllocHandle, L"K7_AllocHandle");
  facts_.server = host_;
  if (!Connect()) return Failed(report::K7Call::ConnectServer, L"K7_ConnectServer") + L" [" + host_ + L"]";
  const std::optional<int32_t> cycles = ParseInt32(count);
  facts_.countInvalid = !cycles;
  if (!cycles) return countMessage;
  return RunCycles(*cycles);
}

}  // namespace

bool RunK7ApiTest(const report::CheckContext& context, K7Api& k7Api, CodePage& codePage, std::wstring address,
                  std::wstring& host, const std::wstring& count, const std::wstring& countMessage) {
  Test test(context, k7Api, codePage, address, host);
  const std::optional<std::wstring> failure = test.Run(count, countMessage);
  context.recorder.Changed();
  if (failure) context.boxes.Show(*failure);
  return !failure;
}

}  // namespace tarvik
