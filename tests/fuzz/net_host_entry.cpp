#include <cstring>
#include <string>

#include "net/addresses.h"
#include "net/tcp_ip_host.h"
#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_winsock.h"
#include "tests/fuzz/fuzzer.h"

// Any host entry. First two bytes: its length field. Third: the number of addresses. The rest: their bytes;
// each address has exactly the length of the length field.
TARVIK_FUZZER(net_host_entry) {
  if (size < 3) return;
  int16_t length = 0;
  std::memcpy(&length, data, sizeof length);
  const size_t bytes = length > 0 ? static_cast<size_t>(length) : 1;
  std::vector<std::vector<unsigned char>> addresses(data[2] % 16U, std::vector<unsigned char>(bytes));
  size_t at = 3;
  for (auto& address : addresses)
    for (size_t i = 0; i < bytes && at < size; ++i) address[i] = data[at++];
  tarvik::test::FakeWinsock winsock;
  winsock.AddRawHost("host", std::move(addresses), length);
  tarvik::test::FakeCodePage codePage;
  tarvik::test::FakeBoxes boxes;
  tarvik::TcpIpHost(winsock, codePage, boxes).IpAddr(L"host");
  tarvik::HostToAddress(winsock, codePage, L"host");
  const std::wstring text(data, data + size);
  tarvik::TcpIpHost::IsIpAddr(text);
}
