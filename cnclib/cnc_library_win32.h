#pragma once

#include "cnclib/cnc_library.h"
#include "platform/closed_library_win32.h"

namespace tarvik {

/// NxLib32.dll on this PC, loaded at the first call.
class Win32CncLibrary final : public CncLibrary {
 public:
  int16_t nx_allochandle3(const char* address, int16_t port, int32_t timeOut, Handle& handle) override;
  int16_t nx_allochandle_code(const char* address, int16_t port, const char* accessCode, int32_t timeOut,
                              Handle& handle) override;
  int16_t nx_getoptions1(Handle handle, int32_t& reserved, uint32_t& options) override;
  int16_t nx_sysinfo(Handle handle, CncSystemInfo& info) override;
  int16_t nx_freehandle(Handle handle) override;
  int16_t nx_pmc_rdrange(Handle handle, int16_t addressType, int16_t dataType, int16_t first, int16_t last,
                         int16_t length, CncPmcRange& range) override;
  int16_t nx_pmc_detailerr(Handle handle, CncPmcDetailError& error) override;

 private:
  using FreeHandle = int16_t(WINAPI*)(Handle);

  FreeHandle FindFreeHandle() { return library_.Call<FreeHandle>("nx_freehandle"); }

  ClosedLibrary library_{L"NxLib32.dll"};
};

}  // namespace tarvik
