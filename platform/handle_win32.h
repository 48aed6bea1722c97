#pragma once

#include "platform/windows_win32.h"

namespace tarvik {

/// Owns a kernel handle. Both NULL and INVALID_HANDLE_VALUE count as closed: CreateFile fails with the
/// latter, most other calls with the former.
class OwnedHandle {
 public:
  explicit OwnedHandle(HANDLE handle) : handle_(handle) {}
  ~OwnedHandle() {
    if (*this) ::CloseHandle(handle_);
  }
  OwnedHandle(const OwnedHandle&) = delete;
  OwnedHandle& operator=(const OwnedHandle&) = delete;

  explicit operator bool() const { return handle_ != nullptr && handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_;
};

}  // namespace tarvik
