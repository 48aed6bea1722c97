#include "cnclib/cnc_connection.h"

#include <utility>

#include "platform/runtime_error.h"
#include "report/typed_numbers.h"

namespace tarvik {

CncConnection::CncConnection(CncLibrary& library, CodePage& codePage, const CncTarget& target)
    : library_(library),
      codePage_(codePage),
      address_(codePage.ToAnsi(target.address)),
      port_(report::ToInt16(target.port.text, target.port.boxName)),
      timeOut_(report::ToInt16(target.timeOut.text, target.timeOut.boxName)) {}

int16_t CncConnection::Open() {
  Release();
  return library_.nx_allochandle3(address_.c_str(), port_, timeOut_, handle_);
}

int16_t CncConnection::OpenWithCode(const std::wstring& accessCode) {
  Release();
  return library_.nx_allochandle_code(address_.c_str(), port_, codePage_.ToAnsi(accessCode).c_str(), timeOut_,
                                      handle_);
}

void CncConnection::Release() noexcept {
  const CncLibrary::Handle handle = std::exchange(handle_, CncLibrary::Handle{0});
  if (handle == 0) return;
  try {
    library_.nx_freehandle(handle);
  } catch (const RuntimeError&) {
    // Without nx_freehandle no handle was ever allocated, so nothing leaks.
  }
}

}  // namespace tarvik
