// The whole reachability check with any addresses, masks, gateways, names, ipconfig output and replies, and a
// user who requests a stop at any time.

#include <fuzzer/FuzzedDataProvider.h>

#include <cstring>

#include "tests/fuzz/fuzzer.h"
#include "tests/unit/net/fake_pc.h"

using tarvik::test::Require;

namespace {

std::string Dotted(FuzzedDataProvider& input) {
  return input.PickValueInArray<std::string>({"192.168.1.10", "192.168.1.1", "10.0.0.1", "0.0.0.0", "",
                                              "255.255.255.0", "192.168.1.300",
                                              input.ConsumeRandomLengthString(16)});
}

void AddInterface(FuzzedDataProvider& input, tarvik::test::FakeWinsock& winsock) {
  const auto octets = [&input] {
    return input.PickValueInArray<uint32_t>(
        {0x0A01A8C0, 0x00FFFFFF, 0, 0xFFFFFFFF, 0x0100007F, 0x0000FFFF, input.ConsumeIntegral<uint32_t>()});
  };
  std::array<std::byte, 76> entry{};
  const uint32_t address = octets();
  const uint32_t mask = octets();
  std::memcpy(entry.data() + 8, &address, sizeof address);
  std::memcpy(entry.data() + 56, &mask, sizeof mask);
  winsock.interfaceBytes.insert(winsock.interfaceBytes.end(), entry.begin(), entry.end());
}

tarvik::test::FakeIcmp::Answer Answer(FuzzedDataProvider& input) {
  return {input.ConsumeIntegralInRange(0U, 3U),
          input.PickValueInArray<uint32_t>({0, 11002, 11010, 11013, input.ConsumeIntegral<uint32_t>()}),
          input.ConsumeIntegral<uint32_t>(),
          input.ConsumeIntegral<uint32_t>(),
          input.ConsumeIntegral<uint8_t>(),
          11010};
}

}  // namespace

TARVIK_FUZZER(net_reachability) {
  using namespace tarvik;
  FuzzedDataProvider input(data, size);
  test::FakePc pc;
  pc.mode = input.ConsumeIntegralInRange(-1, 1);
  std::wstring target = L"host";
  switch (input.ConsumeIntegralInRange(0, 2)) {
    case 0: {
      const std::string typed = input.ConsumeRandomLengthString(80);
      target.assign(typed.begin(), typed.end());
      break;
    }
    case 1:
      target = L"192.168.1.100";
      break;
    default:
      pc.winsock.AddRawHost("host", {input.ConsumeBytes<unsigned char>(16)}, 4);
      // An address always has as many bytes as the length field says.
      if (pc.winsock.gethostbyname("host")->h_addr_list[0] == nullptr) return;
      pc.winsock.AddHost("host", {"192.168.1.100", "10.9.8.7"});
      break;
  }
  for (int cards = input.ConsumeIntegralInRange(0, 4); cards > 0; --cards) AddInterface(input, pc.winsock);
  for (int cards = input.ConsumeIntegralInRange(0, 3); cards > 0; --cards)
    pc.ipHelper.AddAdapter({Dotted(input), Dotted(input)}, {Dotted(input), Dotted(input)});
  for (int echoes = input.ConsumeIntegralInRange(0, 8); echoes > 0; --echoes)
    pc.icmp.script.push_back(Answer(input));
  pc.winsock.ioctlSucceeds = !input.ConsumeBool() || input.ConsumeBool();
  pc.winsock.noText = input.ConsumeIntegralInRange(0, 7) == 1;
  pc.winsock.startupResult = input.ConsumeIntegralInRange(0, 7) == 1 ? 10091 : 0;
  if (input.ConsumeBool()) pc.pump.stopAt = input.ConsumeIntegralInRange(0, 5000);
  if (input.ConsumeBool()) pc.system.majorVersion = input.ConsumeIntegralInRange(3U, 6U);
  const std::string printed = input.ConsumeRandomLengthString(400);
  const int exitPolls = input.ConsumeIntegralInRange(0, 14);
  const int32_t count = input.ConsumeIntegralInRange(-1, 4);
  pc.processes.runningPolls = exitPolls;
  pc.processes.onStart = [&] { pc.files.contents[pc.folder + L"\\ipconfig.txt"] = printed; };

  pc.Check(target, count);
  Require(pc.historyCalls <= 1 && pc.winsock.openSockets.empty() && pc.processes.openHandles.empty());
  Require(pc.winsock.startups == pc.winsock.cleanups);
  Require(pc.files.contents.empty());
  Require(pc.results.Lines().size() <= 1001);
}
