#include "cnclib/cnc_library.h"

#include "platform/closed_library_win32.h"

namespace tarvik {
namespace {

class Win32CncLibrary final : public CncLibrary {
 public:
  int16_t nx_allochandle3(const char* address, int16_t port, int32_t timeOut, Handle& handle) override {
    // Throws if the library does not export nx_freehandle: the handle could never be freed.
    FindFreeHandle();
    return library_.Call<int16_t(WINAPI*)(const char*, int16_t, int32_t, Handle*)>("nx_allochandle3")(
        address, port, timeOut, &handle);
  }
  int16_t nx_allochandle_code(const char* address, int16_t port, const char* accessCode, int32_t timeOut,
                              Handle& handle) override {
    FindFreeHandle();
    return library_.Call<int16_t(WINAPI*)(const char*, int16_t, const char*, int32_t, Handle*)>(
        "nx_allochandle_code")(address, port, accessCode, timeOut, &handle);
  }
  int16_t nx_getoptions1(Handle handle, int32_t& reserved, uint32_t& options) override {
    return library_.Call<int16_t(WINAPI*)(Handle, int32_t*, uint32_t*)>("nx_getoptions1")(handle, &reserved,
                                                                                          &options);
  }
  int16_t nx_sysinfo(Handle handle, CncSystemInfo& info) override {
    return library_.Call<int16_t(WINAPI*)(Handle, CncSystemInfo*)>("nx_sysinfo")(handle, &info);
  }
  int16_t nx_freehandle(Handle handle) override { return FindFreeHandle()(handle); }
  int16_t nx_pmc_rdrange(Handle handle, int16_t addressType, int16_t dataType, int16_t first, int16_t last,
                         int16_t length, CncPmcRange& range) override {
    return library_.Call<int16_t(WINAPI*)(Handle, int16_t, int16_t, int16_t, int16_t, int16_t, CncPmcRange*)>(
        "nx_pmc_rdrange")(handle, addressType, dataType, first, last, length, &range);
  }
  int16_t nx_pmc_detailerr(Handle handle, CncPmcDetailError& error) override {
    return library_.Call<int16_t(WINAPI*)(Handle, CncPmcDetailError*)>("nx_pmc_detailerr")(handle, &error);
  }

 private:
  using FreeHandle = int16_t(WINAPI*)(Handle);

  FreeHandle FindFreeHandle() { return library_.Call<FreeHandle>("nx_freehandle"); }

  ClosedLibrary library_{L"NxLib32.dll"};
};

}  // namespace

std::unique_ptr<CncLibrary> MakeCncLibrary() { return std::make_unique<Win32CncLibrary>(); }

}  // namespace tarvik
