#pragma once

#include <string>

#include "platform/windows_win32.h"

namespace tarvik::check {

/// What a process holds of the system. 0 = this Windows does not report it.
struct HandleCounts {
  int64_t kernel = 0;
  int64_t gdi = 0;
  int64_t user = 0;
};

/// `process`: a handle with the right to query information; `id`: of the same process.
HandleCounts CountHandles(HANDLE process, DWORD id);

/// "kernel 123, GDI 45, USER 67"
std::string TextOf(const HandleCounts& counts);

}  // namespace tarvik::check
