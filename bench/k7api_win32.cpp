// Stand-in for the K7 API. Its calls go over UDP to the bench's K7 server. Environment variables:
//   TARVIK_BENCH_CALLS    log file: a line per call with arguments, result and number of open handles
//   TARVIK_BENCH_K7_PORT  the server's UDP port (default 8300)
//   TARVIK_BENCH_K7_FAIL  calls to fail, as space-separated words "call=code" or "call=code:systemerror"; for
//                         example "K7_AllocHandle=0x1009F002:8"
//   TARVIK_BENCH_K7_LIE   space-separated kinds of misbehaviour:
//     handle0    allocation succeeds with handle 0
//     unended    string arguments are overwritten to the last byte, without a terminating null
//     rewritten  string arguments are overwritten with "rewritten"

#include "bench/k7api.h"

#include <cstring>
#include <optional>
#include <string>
#include <utility>

#include "bench/call_log_win32.h"
#include "bench/k7_handles.h"
#include "bench/scenario_text.h"

namespace {

using namespace tarvik::bench;

constexpr size_t kStringBufferBytes = 256;
constexpr int64_t kReplyTimeOutMs = 1000;
constexpr int16_t kTrue = -1;
constexpr int32_t kFailure = -1;

struct Library {
  Library() { StartNetwork(); }

  K7Handles handles{kReplyTimeOutMs};
  uint32_t errorCode = 0;
  uint32_t systemError = 0;
};

Library& TheLibrary() {
  // Never destroyed: when a DLL's static destructors run, Winsock may already be unloaded.
  static Library& library = *new Library;
  return library;
}

uint16_t Port() {
  const int64_t port = ParseNumber(Setting("TARVIK_BENCH_K7_PORT", "")).value_or(kK7Port);
  return port > 0 && port <= UINT16_MAX ? static_cast<uint16_t>(port) : kK7Port;
}

/// True when TARVIK_BENCH_K7_FAIL names the call; also makes its codes the last error.
bool FailOnDemand(const std::string& call) {
  const std::optional<std::string> value = NamedSetting("TARVIK_BENCH_K7_FAIL", call);
  if (!value) return false;
  const size_t colon = value->find(':');
  TheLibrary().errorCode = static_cast<uint32_t>(ParseNumber(value->substr(0, colon)).value_or(0));
  TheLibrary().systemError = colon == std::string::npos
                                 ? 0
                                 : static_cast<uint32_t>(ParseNumber(value->substr(colon + 1)).value_or(0));
  return true;
}

bool Done(K7Error error) {
  TheLibrary().errorCode = static_cast<uint32_t>(error);
  TheLibrary().systemError = error == K7Error::ServerUnknown   ? WSAHOST_NOT_FOUND
                             : error == K7Error::CannotConnect ? WSAECONNREFUSED
                             : error == K7Error::NotConnected  ? WSAENOTCONN
                                                               : 0;
  return error == K7Error::None;
}

std::string TextOf(const char* buffer) { return std::string(buffer, strnlen(buffer, kStringBufferBytes)); }

void Rewrite(char* buffer) {
  if (SettingHas("TARVIK_BENCH_K7_LIE", "unended")) std::memset(buffer, 'W', kStringBufferBytes);
  if (SettingHas("TARVIK_BENCH_K7_LIE", "rewritten")) strcpy(buffer, "rewritten");
}

void Log(const std::string& call, int32_t result) {
  LogCall(call + " = " + std::to_string(result) + " open=" + std::to_string(TheLibrary().handles.Count()));
}

}  // namespace

extern "C" {

int32_t K7_CALL K7_WSAStartup(void) {
  Log("K7_WSAStartup()", 0);
  return 0;
}

int32_t K7_CALL K7_AllocHandle(int32_t* handle) {
  int32_t number = 0;
  const bool done = !FailOnDemand("K7_AllocHandle") && Done(TheLibrary().handles.Allocate(number));
  if (SettingHas("TARVIK_BENCH_K7_LIE", "handle0")) TheLibrary().handles.Free(std::exchange(number, 0));
  *handle = number;
  Log("K7_AllocHandle(" + std::to_string(number) + ")", done ? 0 : kFailure);
  return done ? 0 : kFailure;
}

int16_t K7_CALL K7_ConnectServer(int32_t handle, char* host) {
  const std::string text = TextOf(host);
  const bool done =
      !FailOnDemand("K7_ConnectServer") && Done(TheLibrary().handles.Connect(handle, text, Port()));
  Rewrite(host);
  Log("K7_ConnectServer(" + std::to_string(handle) + ", " + Quoted(text.c_str()) + ")", done ? kTrue : 0);
  return done ? kTrue : int16_t{0};
}

int16_t K7_CALL K7_CheckReboot2(int32_t handle, char* address, int32_t state_a, int32_t state_b,
                                int32_t* new_a, int32_t* new_b, int32_t* extra, int16_t* live) {
  const std::string text = TextOf(address);
  K7Reply reply;
  const bool done = !FailOnDemand("K7_CheckReboot2") &&
                    Done(TheLibrary().handles.Check(handle, text, state_a, state_b, reply));
  if (done) {
    *new_a = reply.stateA;
    *new_b = reply.stateB;
    *extra = reply.extra;
    *live = reply.verdict == K7Verdict::Live ? kTrue : int16_t{0};
  }
  Rewrite(address);
  Log("K7_CheckReboot2(" + std::to_string(handle) + ", " + Quoted(text.c_str()) + ", " +
          std::to_string(state_a) + ", " + std::to_string(state_b) + ")",
      done ? kTrue : 0);
  return done ? kTrue : int16_t{0};
}

int32_t K7_CALL K7_GetLastError(int32_t handle, int32_t* error_code, int32_t* system_error) {
  *error_code = static_cast<int32_t>(TheLibrary().errorCode);
  *system_error = static_cast<int32_t>(TheLibrary().systemError);
  Log("K7_GetLastError(" + std::to_string(handle) + ")", 0);
  return 0;
}

int32_t K7_CALL K7_FreeHandle(int32_t handle) {
  const int32_t result = TheLibrary().handles.Free(handle) == K7Error::None ? 0 : kFailure;
  Log("K7_FreeHandle(" + std::to_string(handle) + ")", result);
  return result;
}

int32_t K7_CALL K7_WSACleanup(void) {
  Log("K7_WSACleanup()", 0);
  return 0;
}
}
