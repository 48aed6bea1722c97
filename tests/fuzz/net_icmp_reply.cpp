#include <algorithm>
#include <cstring>
#include <string>

#include "net/ping_host.h"
#include "tests/fuzz/fuzzer.h"
#include "tests/unit/net/fake_pc.h"

using tarvik::test::Require;

namespace {

constexpr size_t kAnswerSize = 64;

/// Answers each echo with the next bytes: four for the number of replies that it returns, then the record.
class HostileIcmp final : public tarvik::IcmpLibrary {
 public:
  HostileIcmp(const uint8_t* data, size_t size) : data_(data), size_(size) {}

  Handle IcmpCreateFile() override { return 1; }
  uint32_t IcmpSendEcho(Handle, uint32_t, const void* request, uint16_t requestSize,
                        const tarvik::IpOptionInformation* options, void* reply, uint32_t replySize,
                        uint32_t) override {
    Require(requestSize == 32 && options == nullptr);
    Require(std::string(static_cast<const char*>(request), requestSize) == std::string(32, ' '));
    uint32_t replies = 0;
    const size_t counted = std::min(size_, sizeof replies);
    std::memcpy(&replies, data_, counted);
    Skip(counted);
    const size_t written = std::min({size_, kAnswerSize - sizeof replies, size_t{replySize}});
    std::memcpy(reply, data_, written);
    Skip(written);
    anyReply = anyReply || replies != 0;
    return replies;
  }
  int32_t IcmpCloseHandle(Handle) override { return 1; }
  uint32_t GetLastError() override { return static_cast<uint32_t>(size_); }

  bool anyReply = false;

 private:
  void Skip(size_t bytes) {
    data_ += bytes;
    size_ -= bytes;
  }

  const uint8_t* data_;
  size_t size_;
};

}  // namespace

/// Any reply record, and any number of replies.
TARVIK_FUZZER(net_icmp_reply) {
  if (size == 0) return;
  HostileIcmp icmp(data, size);
  tarvik::test::FakePc pc;
  pc.winsock.noText = data[0] == 0xFF;
  const auto count = static_cast<int32_t>(std::min<size_t>(size / kAnswerSize + 1, 20));
  const bool answered = tarvik::PingHost(
      pc.context,
      {pc.winsock, icmp, 1, pc.ipHelper, pc.system, pc.files, pc.processes, pc.codePage, pc.folder},
      L"192.168.1.1", count, pc.recorder.run.facts.target.echoes);
  const auto& lines = pc.results.Lines();
  if (pc.winsock.noText) return;
  Require(answered == icmp.anyReply);
  Require(lines.size() == static_cast<size_t>(count));
  for (const std::wstring& line : lines)
    Require(line.starts_with(L"ICMP_Error:") || line.find(L" Reply From ") == 4);
}
