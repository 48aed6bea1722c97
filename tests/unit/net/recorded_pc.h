#pragma once

#include <string>
#include <vector>

#include "app/result_list.h"
#include "net/reachability_check.h"
#include "resources/messages.h"
#include "resources/resource.h"
#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_icmp.h"
#include "tests/fakes/fake_ip_helper.h"
#include "tests/fakes/fake_os_version.h"
#include "tests/fakes/fake_processes.h"
#include "tests/fakes/fake_profile_strings.h"
#include "tests/fakes/fake_pump.h"
#include "tests/fakes/fake_winsock.h"
#include "ui/memory/memory_controls.h"

namespace tarvik::test {

/// A PC on recorded libraries, and the reachability check run on it.
struct FakePc {
  /// One network card with one address.
  void AddCard(const std::string& address, const std::string& mask, std::vector<std::string> gateways) {
    winsock.AddInterface(address, mask);
    ipHelper.AddAdapter({address}, std::move(gateways));
  }

  bool Check(const std::wstring& target, int32_t count = 1) {
    return CheckReachability({results, boxes, texts, pump, winsock, icmp, 0x1CEB00DA, ipHelper, osVersion,
                              files, processes, codePage, folder},
                             target, count, [this] { ++historyCalls; });
  }

  /// The dotted addresses that were pinged, in their order.
  std::vector<std::wstring> Pinged() {
    std::vector<std::wstring> pinged;
    for (const uint32_t address : icmp.Targets()) pinged.push_back(IpToText(address));
    return pinged;
  }

  ui::MemoryFocus focus;
  ui::MemoryListBox box{focus};
  ResultList results{box};
  FakeBoxes boxes;
  FakePump pump;
  FakeWinsock winsock;
  FakeIcmp icmp;
  FakeIpHelper ipHelper;
  FakeOsVersion osVersion;
  FakeFiles files;
  FakeProcesses processes;
  FakeCodePage codePage;
  const std::wstring folder = L"C:\\Tarvik";
  FakeProfileStrings profile;
  Resource resource{files, profile, codePage, boxes};
  LanguageMode mode = 1;
  Texts texts{mode, resource};
  int historyCalls = 0;

 private:
  std::wstring IpToText(uint32_t address) {
    const std::string text = winsock.inet_ntoa(address);
    return {text.begin(), text.end()};
  }
};

}  // namespace tarvik::test
