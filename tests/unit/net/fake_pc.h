#pragma once

#include <string>
#include <vector>

#include "net/reachability_check.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_icmp.h"
#include "tests/fakes/fake_ip_helper.h"
#include "tests/fakes/fake_processes.h"
#include "tests/fakes/fake_winsock.h"

namespace tarvik::test {

/// A PC with fake libraries, and the reachability check run on it.
struct FakePc : FakeContext {
  /// One network card with one address.
  void AddCard(const std::string& address, const std::string& mask, std::vector<std::string> gateways) {
    winsock.AddInterface(address, mask);
    ipHelper.AddAdapter({address}, std::move(gateways));
  }

  bool Check(const std::wstring& target, int32_t count = 1) {
    return CheckReachability(context, libraries, target, count, [this] { ++historyCalls; });
  }

  /// The dotted addresses that were pinged, in order.
  std::vector<std::wstring> Pinged() {
    std::vector<std::wstring> pinged;
    for (const uint32_t address : icmp.Targets()) pinged.push_back(IpToText(address));
    return pinged;
  }

  FakeWinsock winsock;
  FakeIcmp icmp;
  FakeIpHelper ipHelper;
  FakeProcesses processes;
  std::wstring folder = L"C:\\Tarvik";
  NetLibraries libraries{winsock, icmp, 0x1CEB00DA, ipHelper, system, files, processes, codePage, folder};
  int historyCalls = 0;

 private:
  std::wstring IpToText(uint32_t address) {
    const std::string text = winsock.inet_ntoa(address);
    return {text.begin(), text.end()};
  }
};

}  // namespace tarvik::test
