// The whole ladder against fake libraries, as a program that prints its lines. No check needs a window: this
// file and the checks that it calls include nothing of ui/ or app/.

#include <cstdio>

#include "cnclib/cnc_check.h"
#include "ftp/ftp_check.h"
#include "k7/k7_api_check.h"
#include "net/reachability_check.h"
#include "tests/fakes/fake_cnc_library.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_icmp.h"
#include "tests/fakes/fake_ip_helper.h"
#include "tests/fakes/fake_k7_api.h"
#include "tests/fakes/fake_processes.h"
#include "tests/fakes/fake_wininet.h"
#include "tests/fakes/fake_winsock.h"

namespace {

using namespace tarvik;

/// Prints what is added to the result list.
class Printer final : public report::ResultView {
 public:
  void Update(const std::vector<std::wstring>& lines, size_t kept, bool) override {
    for (size_t i = kept; i < lines.size(); ++i) std::printf("%ls\n", lines[i].c_str());
    count_ = lines.size();
  }
  size_t Count() const override { return count_; }
  std::vector<std::wstring> Shown() const override { return {}; }

 private:
  size_t count_ = 0;
};

bool Climb() {
  const std::wstring target = L"192.168.1.100";
  const std::wstring folder = L"C:\\Tarvik";
  test::FakeContext fake;
  Printer printer;
  report::ResultList results(printer);
  const report::CheckContext context{results, fake.boxes, fake.texts, fake.pump, fake.recorder};
  const auto setBusy = [](bool) {};

  test::FakeWinsock winsock;
  test::FakeIcmp icmp;
  test::FakeIpHelper ipHelper;
  test::FakeProcesses processes;
  winsock.AddInterface("192.168.1.10", "255.255.255.0");
  ipHelper.AddAdapter({"192.168.1.10"}, {"192.168.1.1"});
  icmp.AddHost("192.168.1.100");
  const NetLibraries net{winsock,   icmp,          1,     ipHelper, fake.system, fake.files,
                         processes, fake.codePage, folder};

  test::FakeCncLibrary cncLibrary;
  const CncTarget controller{target, {L"8193", L"TCP port"}, {L"10", L"Time-out"}};
  uint32_t options = 0;

  test::FakeK7Api k7Api;
  std::wstring k7Server = L"127.0.0.1";

  test::FakeWininet wininet;
  wininet.replies = {"230 logged in", "257 \"/\"", "226 done"};
  wininet.entries.push_back(test::FakeWininet::File("O0001.NC", 1024));

  return CheckReachability(context, net, target, 2, [] {}) &&
         RunLibraryTest(context, cncLibrary, fake.codePage, setBusy, controller, std::nullopt, false,
                        options) &&
         RunK7ApiTest(context, k7Api, fake.codePage, target, k7Server, L"2", L"") &&
         TestFtp(context, wininet, fake.codePage, fake.system, setBusy, target, L"user", L"password");
}

}  // namespace

int main() {
  const bool passed = Climb();
  std::printf("%s\n", passed ? "Every rung passed." : "A rung failed.");
  return passed ? 0 : 1;
}
