#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tarvik {

/// The K7 API library (k7api.dll), which talks to the K7 Server on this PC. Every call throws RuntimeError
/// when the library cannot be loaded or does not export all of these functions. A text is an ANSI buffer that
/// the library may write to: at least kMinTextBytes long and zero-filled after the text.
class K7Api {
 public:
  static constexpr size_t kMinTextBytes = 256;

  virtual ~K7Api() = default;

  virtual void K7_WSAStartup() = 0;

  /// 0 on success. A handle other than 0 must be freed even after a failure.
  virtual int32_t K7_AllocHandle(int32_t& handle) = 0;

  /// Connects the handle to the server on `host`. Returns a 16-bit Boolean.
  virtual int16_t K7_ConnectServer(int32_t handle, char* host) = 0;

  /// Asks the server whether the CNC at `address` is live. `stateA` and `stateB` are the `newA` and `newB` of
  /// the previous call, 0 at first. The result and `live` are 16-bit Booleans.
  virtual int16_t K7_CheckReboot2(int32_t handle, char* address, int32_t stateA, int32_t stateB,
                                  int32_t& newA, int32_t& newB, int32_t& extra, int16_t& live) = 0;

  /// The library's code and the system's code of the handle's latest error.
  virtual void K7_GetLastError(int32_t handle, int32_t& errorCode, int32_t& systemError) = 0;

  virtual void K7_FreeHandle(int32_t handle) = 0;

  virtual void K7_WSACleanup() = 0;
};

/// k7api.dll of this PC, loaded at the first call.
std::unique_ptr<K7Api> MakeK7Api();

}  // namespace tarvik
