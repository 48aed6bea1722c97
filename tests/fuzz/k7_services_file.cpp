#include <cstdlib>
#include <string_view>

#include "k7/services_file.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fuzz/fuzzer.h"

/// Scans a services file of any bytes.
TARVIK_FUZZER(k7_services_file) {
  using tarvik::ServiceEntry;
  tarvik::test::FakeCodePage codePage;
  ServiceEntry entries[] = {{L"NORVAX_K7_SERVER", 0, L"udp", false, false}, {L"x", 7, L"tcp", false, false}};
  const int32_t highest =
      tarvik::ScanServices({reinterpret_cast<const char*>(data), size}, entries, codePage);
  if (highest < 0) std::abort();
  for (const ServiceEntry& entry : entries) {
    if (entry.NameExist && !entry.PortNoExist) std::abort();
    if (entry.NameExist && entry.PortNo > highest) std::abort();
  }
}
