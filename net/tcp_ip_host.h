#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "net/winsock.h"
#include "platform/code_page.h"
#include "report/message_boxes.h"

namespace tarvik {

/// One session with the socket library, from construction to destruction, and the look-ups made in it.
/// Every failure is shown in a message box; none keeps the object from being used.
class TcpIpHost {
 public:
  TcpIpHost(Winsock& winsock, CodePage& codePage, report::MessageBoxes& boxes);
  TcpIpHost(const TcpIpHost&) = delete;
  TcpIpHost& operator=(const TcpIpHost&) = delete;
  ~TcpIpHost();

  /// The name of this PC; empty on failure. Dormant: no caller needs it today.
  std::wstring HostName();

  /// The last address of the host of that name, as dotted text; empty when it cannot be resolved.
  std::wstring IpAddr(const std::wstring& sHostName);

  /// True for four decimal parts of one to three digits, 0 to 255 each, joined by ".". Nothing is looked up.
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
