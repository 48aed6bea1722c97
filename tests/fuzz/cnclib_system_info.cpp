// The library test reads nothing beyond the records of the CNC library, whatever is in them.

#include <cstdlib>
#include <cstring>

#include "cnclib/cnc_check.h"
#include "tests/fakes/fake_cnc_library.h"
#include "tests/fakes/fake_context.h"
#include "tests/fuzz/fuzzer.h"

TARVIK_FUZZER(cnclib_system_info) {
  using namespace tarvik;
  struct {
    int16_t results[4];
    uint16_t handle;
    uint8_t flags;
    CncSystemInfo info;
  } input{};
  std::memcpy(&input, data, size < sizeof input ? size : sizeof input);

  test::FakeContext fake;
  fake.mode = input.flags % 3 - 1;
  bool busy = false;
  test::FakeCncLibrary library;
  library.openResult = input.results[0];
  library.codeResult = input.results[1];
  library.optionsResult = input.results[2];
  library.infoResult = input.results[3];
  library.nextHandle = input.handle;
  library.givesHandleOnFailure = (input.flags & 0x80) != 0;
  library.info = input.info;
  uint32_t options = 0;
  RunLibraryTest(
      fake.context, library, fake.codePage, [&busy](bool on) { busy = on; },
      {L"cnc", {L"8193", L""}, {L"10", L""}}, std::nullopt, false, options);
  if (!library.AllGivenBack() || busy) std::abort();
}
