#include "cnclib/cnc_connection.h"

#include <utility>

#include "app/input_filters.h"
#include "platform/runtime_error.h"

namespace tarvik {

int16_t CncConnection::Open(const CncTarget& target) {
  const int16_t port = ToInt16(target.port.text, target.port.boxName);
  const int16_t timeOut = ToInt16(target.timeOut.text, target.timeOut.boxName);
  Release();
  return library_.nx_allochandle3(codePage_.ToAnsi(target.address).c_str(), port, timeOut, handle_);
}

int16_t CncConnection::OpenWithCode(const CncTarget& target, const std::wstring& accessCode) {
  const int16_t port = ToInt16(target.port.text, target.port.boxName);
  const int16_t timeOut = ToInt16(target.timeOut.text, target.timeOut.boxName);
  Release();
  return library_.nx_allochandle_code(codePage_.ToAnsi(target.address).c_str(), port,
                                      codePage_.ToAnsi(accessCode).c_str(), timeOut, handle_);
}

void CncConnection::Release() noexcept {
  const CncLibrary::Handle handle = std::exchange(handle_, CncLibrary::Handle{0});
  if (handle == 0) return;
  try {
    library_.nx_freehandle(handle);
  } catch (const RuntimeError&) {
    // A library without the call never gave a handle; there is nobody to hand it to.
  }
}

}  // namespace tarvik
