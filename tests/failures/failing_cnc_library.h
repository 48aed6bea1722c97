#pragma once

#include <cstring>

#include "cnclib/cnc_library.h"
#include "tests/failures/failure_plan.h"

namespace tarvik::test {

/// nx_freehandle is never missing: the product looks for it before it opens a connection.
class FailingCncLibrary final : public Failing<CncLibrary> {
 public:
  using Failing::Failing;

  int16_t nx_allochandle3(const char* address, int16_t port, int32_t timeOut, Handle& handle) override {
    const int way = plan_.WayToFail("nx_allochandle3", kConnectWays);
    return Connect(way, handle, "nx_allochandle3",
                   [&] { return library_.nx_allochandle3(address, port, timeOut, handle); });
  }
  int16_t nx_allochandle_code(const char* address, int16_t port, const char* accessCode, int32_t timeOut,
                              Handle& handle) override {
    const int way = plan_.WayToFail("nx_allochandle_code", kConnectWays);
    return Connect(way, handle, "nx_allochandle_code",
                   [&] { return library_.nx_allochandle_code(address, port, accessCode, timeOut, handle); });
  }
  int16_t nx_getoptions1(Handle handle, int32_t& reserved, uint32_t& options) override {
    const int way = plan_.WayToFail("nx_getoptions1", 4);
    if (way == 1) return kNoSuchFunction;
    if (way == 2) return 0;  // writes nothing
    if (way == 4) ThrowMissing("nx_getoptions1");
    const int16_t result = library_.nx_getoptions1(handle, reserved, options);
    if (way == 3) options = 0xFFFFFFFE;
    return result;
  }
  int16_t nx_sysinfo(Handle handle, CncSystemInfo& info) override {
    const int way = plan_.WayToFail("nx_sysinfo", 4);
    if (way == 1) return kNoSuchFunction;
    if (way == 2) return 0;  // writes nothing
    if (way == 4) ThrowMissing("nx_sysinfo");
    const int16_t result = library_.nx_sysinfo(handle, info);
    if (way == 3) std::memset(&info, 0x7F, sizeof info);
    return result;
  }
  int16_t nx_freehandle(Handle handle) override {
    const int way = plan_.WayToFail("nx_freehandle", 1);
    const int16_t result = library_.nx_freehandle(handle);
    return way == 1 ? kSocketError : result;
  }
  int16_t nx_pmc_rdrange(Handle handle, int16_t addressType, int16_t dataType, int16_t first, int16_t last,
                         int16_t length, CncPmcRange& range) override {
    const int way = plan_.WayToFail("nx_pmc_rdrange", 5);
    if (way == 4) ThrowMissing("nx_pmc_rdrange");
    const int16_t result = library_.nx_pmc_rdrange(handle, addressType, dataType, first, last, length, range);
    if (way == 1) return kPmcError;
    if (way == 2) return kSocketError;
    if (way == 3) return 32767;
    if (way == 5) std::memset(&range, 0xFF, sizeof range);
    return result;
  }
  int16_t nx_pmc_detailerr(Handle handle, CncPmcDetailError& error) override {
    const int way = plan_.WayToFail("nx_pmc_detailerr", 2);
    if (way == 1) return kSocketError;
    if (way == 2) ThrowMissing("nx_pmc_detailerr");
    return library_.nx_pmc_detailerr(handle, error);
  }

 private:
  static constexpr int kConnectWays = 5;
  static constexpr int16_t kSocketError = -17;
  static constexpr int16_t kNoSuchFunction = 1;

  template <typename Call>
  static int16_t Connect(int way, Handle& handle, const char* name, Call call) {
    if (way == 1) return kSocketError;
    if (way == 5) ThrowMissing(name);
    if (way == 4) {
      handle = 0;
      return 0;
    }
    const int16_t result = call();
    if (way == 2) return kAccessCodeRefused;  // with a handle in spite of the error
    if (way == 3) return 32767;
    return result;
  }
};

}  // namespace tarvik::test
