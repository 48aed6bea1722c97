#pragma once

#include <algorithm>
#include <cstring>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "net/icmp.h"
#include "tests/fakes/fake_winsock.h"

namespace tarvik::test {

/// An ICMP library that sends nothing. Known hosts answer, all others time out.
class FakeIcmp final : public IcmpLibrary {
 public:
  struct Answer {
    uint32_t replies = 0;
    uint32_t status = 0;
    uint32_t replyFrom = 0;
    uint32_t roundTripTime = 1;
    uint8_t ttl = 64;
    uint32_t lastError = 11010;
  };
  struct Request {
    Handle handle;
    uint32_t address;
    std::string data;
    bool withOptions;
    uint32_t replySize;
    uint32_t timeout;
  };

  static Answer TimedOut(uint32_t lastError = 11010) {
    Answer answer;
    answer.lastError = lastError;
    return answer;
  }
  static Answer Reply(const std::string& from, uint32_t status = 0, uint32_t time = 1, uint8_t ttl = 64) {
    return {1, status, AddressNumber(from), time, ttl, 0};
  }

  /// Makes the host answer every echo.
  void AddHost(const std::string& dotted) { hosts[AddressNumber(dotted)] = Reply(dotted); }

  Handle IcmpCreateFile() override { return createResult; }

  uint32_t IcmpSendEcho(Handle handle, uint32_t address, const void* requestData, uint16_t requestSize,
                        const IpOptionInformation* requestOptions, void* reply, uint32_t replySize,
                        uint32_t timeout) override {
    requests.push_back({handle, address, std::string(static_cast<const char*>(requestData), requestSize),
                        requestOptions != nullptr, replySize, timeout});
    if (onSend) onSend();
    Answer answer;
    if (!script.empty()) {
      answer = script.front();
      script.pop_front();
    } else if (const auto host = hosts.find(address); host != hosts.end()) {
      answer = host->second;
    }
    lastError_ = answer.lastError;
    IcmpEchoReply record;
    record.Address = answer.replyFrom;
    record.Status = answer.status;
    record.RoundTripTime = answer.roundTripTime;
    record.DataSize = requestSize;
    record.Options.Ttl = answer.ttl;
    if (answer.replies > 0) std::memcpy(reply, &record, std::min<size_t>(sizeof record, replySize));
    return answer.replies;
  }

  int32_t IcmpCloseHandle(Handle handle) override {
    closed.push_back(handle);
    return 1;
  }

  uint32_t GetLastError() override { return lastError_; }

  /// The addresses to which echoes were sent; repeated ones count once.
  std::vector<uint32_t> Targets() const {
    std::vector<uint32_t> targets;
    for (const Request& request : requests)
      if (targets.empty() || targets.back() != request.address) targets.push_back(request.address);
    return targets;
  }

  Handle createResult = 0x1CEB00DA;
  std::map<uint32_t, Answer> hosts;  ///< by address
  std::deque<Answer> script;         ///< answers to the next echoes, before those of the hosts
  std::function<void()> onSend;

  std::vector<Request> requests;
  std::vector<Handle> closed;

 private:
  uint32_t lastError_ = 0;
};

}  // namespace tarvik::test
