#include <cstdlib>
#include <cstring>

#include "k7/k7_api_check.h"
#include "tests/fakes/fake_context.h"
#include "tests/fakes/fake_k7_api.h"
#include "tests/fuzz/fuzzer.h"

/// The K7 API test ends and frees its handle whatever the library writes into its text arguments and whatever
/// the address and count fields contain. The first four bytes are also the error code.
TARVIK_FUZZER(k7_api_texts) {
  const std::string written(reinterpret_cast<const char*>(data), size < 256 ? size : 256);
  const std::wstring typed(data, data + (size < 400 ? size : 400));
  tarvik::test::FakeContext fake;
  tarvik::test::FakeK7Api k7Api;
  k7Api.hostAfter = written;
  k7Api.addressAfter = written;
  k7Api.goodChecks = 3;
  std::memcpy(&k7Api.errorCode, data, size < sizeof k7Api.errorCode ? size : sizeof k7Api.errorCode);
  std::wstring host = typed;
  tarvik::RunK7ApiTest(fake.context, k7Api, fake.codePage, typed, host, L"3", L"");
  tarvik::RunK7ApiTest(fake.context, k7Api, fake.codePage, L"cnc", host, typed, L"");
  if (!k7Api.openHandles.empty() || k7Api.wrongFrees != 0 || k7Api.Count("K7_WSACleanup") != 2) std::abort();
}
