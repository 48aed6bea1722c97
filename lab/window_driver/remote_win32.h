#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/windows_win32.h"

namespace tarvik::lab {

/// Another process, to hand its controls memory of its own and to make calls inside it: what menus,
/// cursors and icons are, only their own process can tell. Throws CommandError where the system refuses.
class RemoteProcess {
 public:
  explicit RemoteProcess(DWORD id);
  RemoteProcess(const RemoteProcess&) = delete;
  RemoteProcess& operator=(const RemoteProcess&) = delete;
  ~RemoteProcess();

  bool Is32Bit() const { return is32Bit_; }

  void Read(uint64_t address, void* bytes, size_t size) const;
  void Write(uint64_t address, const void* bytes, size_t size) const;

  /// Calls an exported function of a library that the process has loaded, in a thread made for it, with up
  /// to six arguments, none of them a floating-point number. The result; 32 bits wide in a 32-bit process.
  uint64_t Call(const wchar_t* library, const char* function, const std::vector<uint64_t>& arguments) const;

 private:
  friend class RemoteMemory;
  uint64_t FindFunction(const wchar_t* library, const char* function) const;

  HANDLE handle_ = nullptr;
  bool is32Bit_ = false;
};

/// Memory in the other process, given back by the object's end.
class RemoteMemory {
 public:
  RemoteMemory(const RemoteProcess& process, size_t size);
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;
  ~RemoteMemory();

  uint64_t Address() const { return reinterpret_cast<uintptr_t>(memory_); }
  LPARAM Parameter() const { return static_cast<LPARAM>(reinterpret_cast<uintptr_t>(memory_)); }

 private:
  const RemoteProcess& process_;
  void* memory_ = nullptr;
};

}  // namespace tarvik::lab
