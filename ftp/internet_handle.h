#pragma once

#include "ftp/wininet.h"

namespace tarvik {

/// Owns a WinINet handle, or 0 for none.
class InternetHandle {
 public:
  explicit InternetHandle(Wininet& wininet, Wininet::Handle handle = 0)
      : wininet_(wininet), handle_(handle) {}
  ~InternetHandle() { Reset(); }
  InternetHandle(const InternetHandle&) = delete;
  InternetHandle& operator=(const InternetHandle&) = delete;

  explicit operator bool() const { return handle_ != 0; }
  Wininet::Handle Get() const { return handle_; }

  /// Closes the present handle, if any, and takes ownership of the new one.
  void Reset(Wininet::Handle handle = 0) {
    if (handle_ != 0) wininet_.InternetCloseHandle(handle_);
    handle_ = handle;
  }

 private:
  Wininet& wininet_;
  Wininet::Handle handle_;
};

}  // namespace tarvik
