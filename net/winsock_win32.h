#pragma once

#include "net/winsock.h"

namespace tarvik {

/// The system's own socket library.
class Win32Winsock final : public Winsock {
 public:
  int WSAStartup(uint16_t versionRequested, WsaData& data) override;
  int WSACleanup() override;
  int WSAGetLastError() override;
  int gethostname(char* name, int nameLength) override;
  const HostEntry* gethostbyname(const char* name) override;
  uint32_t inet_addr(const char* text) override;
  const char* inet_ntoa(uint32_t address) override;
  Socket WSASocketA(int addressFamily, int type, int protocol, void* protocolInfo, uint32_t group,
                    uint32_t flags) override;
  int WSAIoctl(Socket socket, uint32_t controlCode, void* in, uint32_t inSize, void* out, uint32_t outSize,
               uint32_t* bytesReturned, void* overlapped, void* completionRoutine) override;
  int closesocket(Socket socket) override;
};

}  // namespace tarvik
