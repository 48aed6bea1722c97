#include "net/ping_host.h"

#include <array>
#include <cstring>

#include "net/addresses.h"
#include "net/winsock_error_text.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

namespace tarvik {
namespace {

constexpr size_t kRequestBytes = 32;
constexpr uint32_t kReplyBufferBytes = 278;
constexpr uint32_t kEchoTimeoutMs = 100;
constexpr int kPausesPerEcho = 4;
constexpr uint32_t kEchoPauseMs = 250;

struct StatusText {
  uint32_t status;
  const wchar_t* text;
};

constexpr StatusText kStatusTexts[] = {
    {0, L""},
    {11001, L"Buffer Too Small"},
    {11002, L"Destination Net Unreachable"},
    {11003, L"Destination Host Unreachable"},
    {11004, L"Destination Protocol Unreachable"},
    {11005, L"Destination Port Unreachable"},
    {11006, L"No Resources"},
    {11007, L"Bad Option"},
    {11008, L"Hardware Error"},
    {11009, L"Packet Too Big"},
    {11010, L"Request Timed Out"},
    {11011, L"Bad Request"},
    {11012, L"Bad Route"},
    {11013, L"TimeToLive Expired Transit"},
    {11014, L"TimeToLive Expired Reassembly"},
    {11015, L"Parameter Problem"},
    {11016, L"Source Quench"},
    {11017, L"Option Too Big"},
    {11018, L"Bad Destination"},
    {11032, L"Negotiating IPSEC"},
    {11050, L"General Failure"},
};

/// Without a call of the socket library.
std::wstring Sender(const IcmpEchoReply& reply) {
  std::array<unsigned char, sizeof reply.Address> octets;
  std::memcpy(octets.data(), &reply.Address, sizeof reply.Address);
  return DottedText(octets);
}

/// Sends one echo and returns its line.
std::wstring SendEcho(const NetLibraries& libraries, uint32_t target, int64_t number,
                      report::EchoSeries& series) {
  std::array<char, kRequestBytes> request;
  request.fill(' ');
  alignas(IcmpEchoReply) std::array<std::byte, kReplyBufferBytes> buffer{};
  const uint32_t replies =
      libraries.icmp.IcmpSendEcho(libraries.icmpHandle, target, request.data(), kRequestBytes, nullptr,
                                  buffer.data(), kReplyBufferBytes, kEchoTimeoutMs);
  if (replies == 0) {
    const uint32_t error = libraries.icmp.GetLastError();
    series.Add({false, 0, error, 0, {}}, false);
    return L"ICMP_Error:" + Decimal(error);
  }

  IcmpEchoReply reply;
  std::memcpy(&reply, buffer.data(), sizeof reply);
  series.Add({true, reply.Status, 0, reply.RoundTripTime, Sender(reply)}, reply.Address == target);
  const std::wstring prefix = ZeroPadded(number, 4) + L" Reply From ";
  if (reply.Status != 0)
    return prefix + IpToString(libraries.winsock, target) + L": " + EvaluatePingResponse(reply.Status);
  return prefix + IpToString(libraries.winsock, reply.Address) + L": bytes=" + Decimal(kRequestBytes) +
         L" time=" + Decimal(reply.RoundTripTime) + L"ms TTL=" + Decimal(reply.Options.Ttl);
}

/// False when a stop is requested.
bool PauseBetweenEchoes(report::Pump& pump) {
  for (int i = 0; i < kPausesPerEcho; ++i) {
    pump.LetEventsRun();
    if (pump.StopRequested()) return false;
    pump.SleepUntil(kEchoPauseMs, [&pump] { return pump.StopRequested(); });
  }
  return true;
}

bool SendEchoes(const report::CheckContext& context, const NetLibraries& libraries, const std::wstring& host,
                int32_t count, report::EchoSeries& series) {
  series = {};
  series.address = host;
  series.asked = count;
  const uint32_t target = HostToAddress(libraries.winsock, libraries.codePage, host);
  if (target == kNoAddress) {
    series.addressRejected = true;
    context.results.ClearList();
    context.results.AddToList(L"Bad IP address (Get Host Name) " + host);
    return false;
  }
  for (int64_t i = 1; i <= count; ++i) {
    context.recorder.Changed();
    context.results.AddToList(SendEcho(libraries, target, i, series));
    if (!PauseBetweenEchoes(context.pump)) break;
  }
  return series.Replies() > 0;
}

}  // namespace

std::wstring EvaluatePingResponse(const uint32_t& status) {
  for (const StatusText& row : kStatusTexts)
    if (row.status == status) return row.text;
  return L"Unknown Response";
}

bool PingHost(const report::CheckContext& context, const NetLibraries& libraries, const std::wstring& host,
              int32_t count, report::EchoSeries& series) {
  try {
    return SendEchoes(context, libraries, host, count, series);
  } catch (const RuntimeError&) {
    const std::wstring text = WinsockErrorText(libraries.winsock.WSAGetLastError());
    if (!text.empty()) context.boxes.Show(text);
    return false;
  }
}

}  // namespace tarvik
