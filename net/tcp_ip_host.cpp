#include "net/tcp_ip_host.h"

#include "net/addresses.h"
#include "platform/fixed_buffer.h"
#include "platform/text.h"

namespace tarvik {
namespace {

constexpr int kMinMajorVersion = 1;
constexpr int kMinMinorVersion = 1;
constexpr int kMinSockets = 1;

/// Guards against an unterminated h_addr_list; no DNS reply holds this many.
constexpr int kMaxAddresses = 4096;

}  // namespace

TcpIpHost::TcpIpHost(Winsock& winsock, CodePage& codePage, report::MessageBoxes& boxes)
    : winsock_(winsock), codePage_(codePage), boxes_(boxes) {
  SocketsInitialize();
}

TcpIpHost::~TcpIpHost() { SocketsCleanup(); }

void TcpIpHost::SocketsInitialize() {
  WsaData data;
  if (winsock_.WSAStartup(Winsock::kVersion11, data) != 0) {
    boxes_.Show(L"SocketsInitialize Winsock.dll is not responding. Error=" +
                Decimal(winsock_.WSAGetLastError()));
    return;
  }
  const int major = LoByte(data.wVersion);
  const int minor = HiByte(data.wVersion);
  if (major < kMinMajorVersion || (major == kMinMajorVersion && minor < kMinMinorVersion)) {
    boxes_.Show(L"Windows Sockets version " + Decimal(major) + L"." + Decimal(minor) +
                L" is not supported by winsock.dll ");
  } else if (data.iMaxSockets < kMinSockets) {
    boxes_.Show(L"This application requires a minimum of " + Decimal(kMinSockets) + L" supported sockets.");
  }
}

void TcpIpHost::SocketsCleanup() {
  const int result = winsock_.WSACleanup();
  if (result != 0) boxes_.Show(L"Socket error " + Decimal(result) + L" occurred in Cleanup ");
}

uint8_t TcpIpHost::HiByte(uint16_t value) { return static_cast<uint8_t>(value >> 8); }

uint8_t TcpIpHost::LoByte(uint16_t value) { return static_cast<uint8_t>(value & 0xFF); }

std::wstring TcpIpHost::HostName() {
  char name[256] = {};
  if (winsock_.gethostname(name, sizeof name) != 0) {
    boxes_.Show(L"Windows Sockets error " + Decimal(winsock_.WSAGetLastError()));
    return {};
  }
  return codePage_.FromAnsi(TrimNull(std::string_view(name, sizeof name)));
}

std::wstring TcpIpHost::IpAddr(const std::wstring& sHostName) {
  const HostEntry* const host = winsock_.gethostbyname(codePage_.ToAnsi(sHostName).c_str());
  if (host == nullptr) {
    boxes_.Show(L"gethostbyname(" + sHostName + L")=" + Decimal(winsock_.WSAGetLastError()));
    return {};
  }
  if (host->h_addr_list == nullptr) return {};
  const char* last = nullptr;
  for (int i = 0; i < kMaxAddresses && host->h_addr_list[i] != nullptr; ++i) last = host->h_addr_list[i];
  return last == nullptr ? std::wstring() : DottedText(OctetsOf(*host, last));
}

bool TcpIpHost::IsIpAddr(std::wstring_view sNameOrAddr) {
  if (sNameOrAddr.find_first_not_of(L"0123456789.") != std::wstring_view::npos) return false;
  const std::vector<std::wstring> parts = Split(sNameOrAddr, L".");
  if (parts.size() != 4) return false;
  for (const std::wstring& part : parts) {
    if (part.empty() || part.size() > 3) return false;
    int value = 0;
    for (const wchar_t digit : part) value = value * 10 + (digit - L'0');
    if (value > 255) return false;
  }
  return true;
}

}  // namespace tarvik
