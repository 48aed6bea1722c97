#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "ftp/ftp_check.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_wininet.h"
#include "tests/fuzz/fuzzer.h"

// A server whose replies and directory are the fuzzer's bytes. The first byte chooses what the library makes
// of its buffer, the next four are the length that it tells; the rest are the reply, and cut into records
// the entries.
TARVIK_FUZZER(ftp_server) {
  if (size < 5) return;
  const uint8_t manner = data[0];
  uint32_t told = 0;
  std::memcpy(&told, data + 1, sizeof told);
  data += 5;
  size -= 5;

  tarvik::test::FakeWininet wininet;
  wininet.onResponse = [&](char* buffer, uint32_t* length, uint32_t& lastError) {
    if (manner % 4 == 1 && *length < size) {
      lastError = tarvik::test::FakeWininet::kInsufficientBuffer;
      *length = told;
      return 0;
    }
    std::memcpy(buffer, data, std::min<size_t>(size, *length));
    *length = manner % 4 == 2 ? told : static_cast<uint32_t>(std::min<size_t>(size, *length));
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
