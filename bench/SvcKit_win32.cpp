// Stand-in for the service-setup library. It uses the system's own service control manager. Environment
// variables:
//   TARVIK_BENCH_CALLS        log file: a line per call with arguments and result
//   TARVIK_BENCH_SVCKIT_DENY  space-separated calls that fail with "access denied", such as
//                             "QSetup_StartService"; "all" for every call
//   TARVIK_BENCH_SVCKIT_FAIL  calls that return a code without doing anything, as space-separated words
//                             "call=code", such as "QSetup_GetServiceStatus=0x80000124"

#include <algorithm>
#include <string>

#include "bench/call_log_win32.h"
#include "bench/scenario_text.h"
#include "bench/svckit.h"

namespace {

using namespace tarvik::bench;

/// Owns a service control manager handle.
class ServiceHandle {
 public:
  explicit ServiceHandle(SC_HANDLE handle) : handle_(handle) {}
  ServiceHandle(const ServiceHandle&) = delete;
  ServiceHandle& operator=(const ServiceHandle&) = delete;
  ~ServiceHandle() {
    if (handle_ != nullptr) ::CloseServiceHandle(handle_);
  }

  SC_HANDLE Get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }

 private:
  SC_HANDLE handle_;
};

int32_t LastError() {
  const DWORD error = ::GetLastError();
  return error == ERROR_SERVICE_DOES_NOT_EXIST ? SVCKIT_NO_SERVICE : static_cast<int32_t>(error);
}

int32_t ResultOf(BOOL done) { return done ? 0 : LastError(); }

std::string Hex(int32_t number) {
  char text[16];
  ::wsprintfA(text, "0x%X", static_cast<unsigned>(number));
  return text;
}

/// Makes a call, unless a variable demands that it fail, and logs it.
template <typename Work>
int32_t Call(const std::string& name, const std::string& arguments, Work work) {
  int32_t result = 0;
  const std::optional<std::string> forced = NamedSetting("TARVIK_BENCH_SVCKIT_FAIL", name);
  if (SettingHas("TARVIK_BENCH_SVCKIT_DENY", name) || SettingHas("TARVIK_BENCH_SVCKIT_DENY", "all")) {
    result = ERROR_ACCESS_DENIED;
  } else if (forced) {
    result = static_cast<int32_t>(static_cast<uint32_t>(ParseNumber(*forced).value_or(-1)));
  } else {
    result = work();
  }
  LogCall(name + "(" + arguments + ") = " + Hex(result));
  return result;
}

/// Opens the service with this access and calls `work` with its handle.
template <typename Work>
int32_t WithService(const char* name, DWORD access, Work work) {
  const ServiceHandle manager(::OpenSCManagerA(nullptr, nullptr, SC_MANAGER_CONNECT));
  if (!manager) return LastError();
  const ServiceHandle service(::OpenServiceA(manager.Get(), name, access));
  return service ? work(service.Get()) : LastError();
}

/// Polls until the service reaches the state; returns at once when `wait` is negative.
int32_t WaitForState(SC_HANDLE service, DWORD wanted, int32_t wait) {
  if (wait < 0) return 0;
  const ULONGLONG deadline = ::GetTickCount64() + static_cast<ULONGLONG>(wait);
  while (true) {
    SERVICE_STATUS status{};
    if (!::QueryServiceStatus(service, &status)) return LastError();
    if (status.dwCurrentState == wanted) return 0;
    if (::GetTickCount64() >= deadline) return ERROR_SERVICE_REQUEST_TIMEOUT;
    ::Sleep(50);
  }
}

}  // namespace

extern "C" {

int32_t SVCKIT_CALL QSetup_InstallService(const char* name, const char* display_name, const char* path,
                                          int32_t start_type) {
  const std::string arguments =
      Quoted(name) + ", " + Quoted(display_name) + ", " + Quoted(path) + ", " + std::to_string(start_type);
  return Call("QSetup_InstallService", arguments, [&] {
    const ServiceHandle manager(::OpenSCManagerA(nullptr, nullptr, SC_MANAGER_CREATE_SERVICE));
    if (!manager) return LastError();
    const ServiceHandle service(::CreateServiceA(manager.Get(), name, display_name, SERVICE_ALL_ACCESS,
                                                 SERVICE_WIN32_OWN_PROCESS, static_cast<DWORD>(start_type),
                                                 SERVICE_ERROR_NORMAL, path, nullptr, nullptr, nullptr,
                                                 nullptr, nullptr));
    return service ? 0 : LastError();
  });
}

int32_t SVCKIT_CALL QSetup_RemoveService(const char* name) {
  return Call("QSetup_RemoveService", Quoted(name), [&] {
    return WithService(name, DELETE, [](SC_HANDLE service) { return ResultOf(::DeleteService(service)); });
  });
}

int32_t SVCKIT_CALL QSetup_StartService(const char* name, int32_t wait) {
  return Call("QSetup_StartService", Quoted(name) + ", " + std::to_string(wait), [&] {
    return WithService(name, SERVICE_START | SERVICE_QUERY_STATUS, [wait](SC_HANDLE service) {
      const int32_t result = ResultOf(::StartServiceA(service, 0, nullptr));
      return result != 0 ? result : WaitForState(service, SERVICE_RUNNING, wait);
    });
  });
}

int32_t SVCKIT_CALL QSetup_StopService(const char* name, int32_t wait) {
  return Call("QSetup_StopService", Quoted(name) + ", " + std::to_string(wait), [&] {
    return WithService(name, SERVICE_STOP | SERVICE_QUERY_STATUS, [wait](SC_HANDLE service) {
      SERVICE_STATUS status{};
      const int32_t result = ResultOf(::ControlService(service, SERVICE_CONTROL_STOP, &status));
      return result != 0 ? result : WaitForState(service, SERVICE_STOPPED, wait);
    });
  });
}

int32_t SVCKIT_CALL QSetup_GetServiceStatus(const char* name, int32_t* status, int32_t wait) {
  return Call("QSetup_GetServiceStatus", Quoted(name) + ", " + std::to_string(wait), [&] {
    return WithService(name, SERVICE_QUERY_STATUS, [status](SC_HANDLE service) {
      SERVICE_STATUS state{};
      if (!::QueryServiceStatus(service, &state)) return LastError();
      *status = static_cast<int32_t>(state.dwCurrentState);
      return 0;
    });
  });
}
}
