#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "ftp/ftp_check.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_wininet.h"
#include "tests/fuzz/fuzzer.h"

// A server with any replies and any directory. First byte: how the library handles a small buffer. Next four:
// the length that it returns. The rest: the reply, and cut into records, the entries.
TARVIK_FUZZER(ftp_server) {
  if (size < 5) return;
  const uint8_t mode = data[0];
  uint32_t claimed = 0;
  std::memcpy(&claimed, data + 1, sizeof claimed);
  data += 5;
  size -= 5;

  tarvik::test::FakeWininet wininet;
  wininet.onResponse = [&](char* buffer, uint32_t* length, uint32_t& lastError) {
    if (mode % 4 == 1 && *length < size) {
      lastError = tarvik::test::FakeWininet::kInsufficientBuffer;
      *length = claimed;
      return 0;
    }
    std::memcpy(buffer, data, std::min<size_t>(size, *length));
    *length = mode % 4 == 2 ? claimed : static_cast<uint32_t>(std::min<size_t>(size, *length));
    return 1;
  };
  for (size_t at = 0; at < size; at += sizeof(tarvik::FindData) / 4) {
    tarvik::FindData entry;
    std::memcpy(&entry, data + at, std::min(sizeof entry, size - at));
    wininet.entries.push_back(entry);
  }
  tarvik::test::FakeContext fake;
  bool busy = false;
  const bool verdict = tarvik::TestFtp(
      fake.context, wininet, fake.codePage, fake.system, [&busy](bool on) { busy = on; }, L"h", L"", L"");
  if (!verdict || busy || !wininet.open.empty() || wininet.misuses != 0) std::abort();
  if (fake.results.Lines().size() > 1001) std::abort();
}
