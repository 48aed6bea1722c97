#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/windows_win32.h"

namespace tarvik::lab {

/// True under Wine.
bool IsWine();

class RemoteMemory;

/// Another process, whose memory can be read and written and in which functions can be called. Needed because
/// handles of menus, cursors and icons, and pointers in messages, are only valid in their own process. Every
/// function throws CommandError when Windows fails.
class RemoteProcess {
 public:
  explicit RemoteProcess(DWORD id);
  RemoteProcess(const RemoteProcess&) = delete;
  RemoteProcess& operator=(const RemoteProcess&) = delete;
  ~RemoteProcess();

  bool Is32Bit() const { return is32Bit_; }

  void Read(uint64_t address, void* bytes, size_t size) const;
  void Write(uint64_t address, const void* bytes, size_t size) const;

  /// Calls an exported function of a library that the process has loaded, in a new thread of that process.
  /// Takes up to six integer or pointer arguments. Returns 32 bits in a 32-bit process. Waits at most 15
  /// seconds.
  uint64_t Call(const wchar_t* library, const char* function, const std::vector<uint64_t>& arguments) const;

 private:
  friend class RemoteMemory;
  struct Known;
  /// What is known of this process, an empty record at first; kept until the driver ends.
  Known& KnownOfThis() const;
  /// Searches for a function once, because a search reads the process' memory a hundred times.
  uint64_t AddressOf(const wchar_t* library, const char* function) const;
  uint64_t FindFunction(const wchar_t* library, const char* function) const;
  /// Writes a thread procedure that calls the function, and runs it. The thread's handle is the caller's.
  HANDLE StartCall(uint64_t function, const std::vector<uint64_t>& arguments, const RemoteMemory& procedure,
                   const RemoteMemory& result) const;
  void KeepThreadWaiting() const;

  DWORD id_ = 0;
  HANDLE handle_ = nullptr;
  bool is32Bit_ = false;
};

/// Memory allocated in another process; freed on destruction.
class RemoteMemory {
 public:
  RemoteMemory(const RemoteProcess& process, size_t size);
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;
  ~RemoteMemory();

  uint64_t Address() const { return reinterpret_cast<uintptr_t>(memory_); }
  /// From now on it can be executed and no longer be written.
  void MakeExecutable() const;
  LPARAM Parameter() const { return static_cast<LPARAM>(reinterpret_cast<uintptr_t>(memory_)); }

 private:
  const RemoteProcess& process_;
  void* memory_ = nullptr;
};

}  // namespace tarvik::lab
