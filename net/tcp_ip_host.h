#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "net/winsock.h"
#include "platform/code_page.h"
#include "report/message_boxes.h"

namespace tarvik {

/// A session with the socket library, from construction to destruction, and look-ups in it. A message box
/// reports every failure; the object stays usable.
class TcpIpHost {
 public:
  TcpIpHost(Winsock& winsock, CodePage& codePage, report::MessageBoxes& boxes);
  TcpIpHost(const TcpIpHost&) = delete;
  TcpIpHost& operator=(const TcpIpHost&) = delete;
  ~TcpIpHost();

  /// The name of this PC; empty on failure. Dormant: no caller needs it today.
  std::wstring HostName();

  /// The last address of the host with that name, as dotted text; empty when it cannot be resolved.
  std::wstring IpAddr(const std::wstring& sHostName);

  /// True for four decimal numbers from 0 to 255, of one to three digits each, joined by ".". Looks nothing
  /// up.
  static bool IsIpAddr(std::wstring_view sNameOrAddr);

 private:
  void SocketsInitialize();
  void SocketsCleanup();
  static uint8_t HiByte(uint16_t value);
  static uint8_t LoByte(uint16_t value);

  Winsock& winsock_;
  CodePage& codePage_;
  report::MessageBoxes& boxes_;
};

}  // namespace tarvik
