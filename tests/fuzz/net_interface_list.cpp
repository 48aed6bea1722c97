#include <cstdlib>
#include <cstring>
#include <span>

#include "net/interface_list.h"
#include "tests/fakes/fake_winsock.h"
#include "tests/fuzz/fuzzer.h"

// Any interface list. First four bytes: the byte count from WSAIoctl. The rest: the entries.
TARVIK_FUZZER(net_interface_list) {
  const auto bytes = std::as_bytes(std::span(data, size));
  if (tarvik::ParseInterfaceList(bytes).size() > size / 76) std::abort();
  if (size < sizeof(uint32_t)) return;
  uint32_t returned = 0;
  std::memcpy(&returned, data, sizeof returned);
  tarvik::test::FakeWinsock winsock;
  winsock.ioctlReturned = returned;
  winsock.interfaceBytes.assign(bytes.begin() + sizeof returned, bytes.end());
  std::vector<tarvik::LocalAddressRecord> list;
  if (!tarvik::GetInterfaceList(winsock, list) || list.size() > 10 || !winsock.openSockets.empty())
    std::abort();
}
