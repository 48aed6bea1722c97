// Stand-in for the CNC library. Its calls go over TCP to the simulated controller. Environment variables:
//   TARVIK_BENCH_CALLS      log file: a line per call with arguments, result and number of open handles
//   TARVIK_BENCH_NXLIB_LIE  space-separated kinds of misbehaviour:
//     handle0            connecting succeeds with handle 0
//     handle_on_failure  connecting returns -1 but allocates a handle anyway
//     unended            character fields are filled to the last byte
//     half               only the first half of each record is filled
//     whole_time_out     every call except nx_freehandle waits for its whole time-out and fails

#include <algorithm>
#include <cstring>
#include <string>

#include "bench/call_log_win32.h"
#include "bench/nx_connections.h"
#include "bench/nxlib32.h"

namespace {

using namespace tarvik::bench;

constexpr int16_t kForcedFailure = -1;
constexpr size_t kPmcHeaderSize = offsetof(nx_pmc_range, data);

struct Library {
  Library() { StartNetwork(); }

  NxConnections connections;
};

Library& TheLibrary() {
  // Never destroyed: when a DLL's static destructors run, Winsock may already be unloaded.
  static Library& library = *new Library;
  return library;
}

bool Lies(const char* how) { return SettingHas("TARVIK_BENCH_NXLIB_LIE", how); }

int16_t LogAndReturn(const std::string& call, int16_t result, const std::string& answer = {}) {
  LogCall(call + " = " + std::to_string(result) + answer +
          " open=" + std::to_string(TheLibrary().connections.Count()));
  return result;
}

bool SleepsWholeTimeOut(int32_t seconds) {
  if (!Lies("whole_time_out")) return false;
  ::Sleep(1000 * static_cast<DWORD>(EffectiveTimeOut(seconds)));
  return true;
}

int16_t Allocate(const char* address, uint16_t port, const char* code, int32_t timeOut, uint16_t* handle) {
  if (address == nullptr || code == nullptr || handle == nullptr) return kResultBadArgument;
  if (SleepsWholeTimeOut(timeOut)) return kResultTimeOut;
  uint16_t number = 0;
  const int16_t result = TheLibrary().connections.Allocate(address, port, code, timeOut, number);
  if (result == 0 && Lies("handle0")) {
    TheLibrary().connections.Free(number);
    number = 0;
  }
  *handle = number;
  return result == 0 && Lies("handle_on_failure") ? kForcedFailure : result;
}

/// Sends the request and copies the reply's body to `record`.
int16_t Ask(uint16_t handle, const Request& request, void* record, size_t size) {
  if (record == nullptr) return kResultBadArgument;
  if (SleepsWholeTimeOut(TheLibrary().connections.TimeOut(handle))) return kResultTimeOut;
  std::string body;
  const int16_t result = TheLibrary().connections.Ask(handle, request, size, body);
  if (result == 0) std::memcpy(record, body.data(), Lies("half") ? size / 2 : size);
  return result;
}

Request RequestFor(Call call) {
  Request request;
  request.call = call;
  return request;
}

std::string Numbers(std::initializer_list<int64_t> numbers) {
  std::string text;
  for (const int64_t number : numbers) text += (text.empty() ? "" : ", ") + std::to_string(number);
  return text;
}

}  // namespace

extern "C" {

int16_t NX_CALL nx_allochandle3(const char* address, uint16_t port, int32_t time_out, uint16_t* handle) {
  const int16_t result = Allocate(address, port, "", time_out, handle);
  return LogAndReturn("nx_allochandle3(" + Quoted(address) + ", " + Numbers({port, time_out}) + ")", result,
                      " handle=" + std::to_string(handle == nullptr ? 0 : *handle));
}

int16_t NX_CALL nx_allochandle_code(const char* address, uint16_t port, const char* access_code,
                                    int32_t time_out, uint16_t* handle) {
  const int16_t result = Allocate(address, port, access_code, time_out, handle);
  return LogAndReturn("nx_allochandle_code(" + Quoted(address) + ", " + Numbers({port}) + ", " +
                          Quoted(access_code) + ", " + Numbers({time_out}) + ")",
                      result, " handle=" + std::to_string(handle == nullptr ? 0 : *handle));
}

int16_t NX_CALL nx_getoptions1(uint16_t handle, int32_t* zero, int32_t* options) {
  static_assert(sizeof *options == kOptionsBodySize);
  const int16_t result =
      zero == nullptr ? kResultBadArgument : Ask(handle, RequestFor(Call::Options), options, sizeof *options);
  return LogAndReturn("nx_getoptions1(" + Numbers({handle, zero == nullptr ? -1 : *zero}) + ")", result);
}

int16_t NX_CALL nx_sysinfo(uint16_t handle, nx_system_information* information) {
  static_assert(sizeof *information == kSystemInformationBodySize);
  const int16_t result = Ask(handle, RequestFor(Call::SystemInfo), information, sizeof *information);
  if (result == 0 && Lies("unended")) {
    std::memset(information->model_type, 'W',
                sizeof *information - offsetof(nx_system_information, model_type));
  }
  return LogAndReturn("nx_sysinfo(" + Numbers({handle}) + ")", result);
}

int16_t NX_CALL nx_pmc_rdrange(uint16_t handle, int16_t addr_type, int16_t data_type, uint16_t first_no,
                               uint16_t last_no, uint16_t length, nx_pmc_range* range) {
  Request request = RequestFor(Call::PmcRead);
  request.areaType = addr_type;
  request.dataType = data_type;
  request.first = static_cast<int16_t>(first_no);
  request.last = static_cast<int16_t>(last_no);
  const int32_t count = request.last - request.first + 1;
  int16_t result = kResultBadArgument;
  // A reversed range is passed on: rejecting it is up to the controller.
  const size_t bytes = static_cast<size_t>(std::max(count, 0));
  if (range != nullptr && length >= kPmcHeaderSize + bytes) {
    result = Ask(handle, request, range->data, bytes);
    if (result == 0) {
      range->addr_type = addr_type;
      range->data_type = data_type;
      range->first_no = request.first;
      range->last_no = request.last;
    }
  }
  return LogAndReturn(
      "nx_pmc_rdrange(" + Numbers({handle, addr_type, data_type, request.first, request.last, length}) + ")",
      result);
}

int16_t NX_CALL nx_pmc_detailerr(uint16_t handle, nx_pmc_detail* detail) {
  static_assert(sizeof *detail == kDetailBodySize);
  const int16_t result = Ask(handle, RequestFor(Call::PmcDetail), detail, sizeof *detail);
  return LogAndReturn("nx_pmc_detailerr(" + Numbers({handle}) + ")", result);
}

int16_t NX_CALL nx_freehandle(uint16_t handle) {
  return LogAndReturn("nx_freehandle(" + Numbers({handle}) + ")", TheLibrary().connections.Free(handle));
}
}
