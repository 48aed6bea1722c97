#include <cstdlib>
#include <cstring>
#include <span>

#include "net/interface_list.h"
#include "tests/fakes/fake_winsock.h"
#include "tests/fuzz/fuzzer.h"

namespace {

constexpr size_t kInterfaceInfoBytes = 76;  ///< the size of an INTERFACE_INFO
constexpr size_t kMaxListedInterfaces = 10;

}  // namespace

// Any interface list. The parser gets all bytes. For GetInterfaceList the first four are the byte count from
// WSAIoctl, and the rest the entries.
TARVIK_FUZZER(net_interface_list) {
  const auto bytes = std::as_bytes(std::span(data, size));
  if (tarvik::ParseInterfaceList(bytes).size() > size / kInterfaceInfoBytes) std::abort();
  if (size < sizeof(uint32_t)) return;
  uint32_t returned = 0;
  std::memcpy(&returned, data, sizeof returned);
  tarvik::test::FakeWinsock winsock;
  winsock.ioctlReturned = returned;
  winsock.interfaceBytes.assign(bytes.begin() + sizeof returned, bytes.end());
  std::vector<tarvik::LocalAddressRecord> list;
  if (!tarvik::GetInterfaceList(winsock, list) || list.size() > kMaxListedInterfaces ||
      !winsock.openSockets.empty())
    std::abort();
}
