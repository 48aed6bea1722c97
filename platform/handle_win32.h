#pragma once

#include "platform/windows_win32.h"

namespace tarvik {

/// Owns a kernel handle; both NULL and INVALID_HANDLE_VALUE mean none.
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
