// Every path through the library test: access codes, option words, invalid numbers, a stop at any pause.

#include <fuzzer/FuzzedDataProvider.h>

#include "cnclib/cnc_check.h"
#include "platform/runtime_error.h"
#include "tests/fakes/fake_cnc_library.h"
#include "tests/fakes/fake_context.h"
#include "tests/fuzz/fuzzer.h"

using tarvik::test::Require;

namespace {

int16_t Result(FuzzedDataProvider& input) {
  return input.PickValueInArray<int16_t>({0, 0, 7, -16, -8, 1, input.ConsumeIntegral<int16_t>()});
}

std::wstring Text(FuzzedDataProvider& input) {
  const std::string bytes = input.ConsumeRandomLengthString(300);
  std::wstring text(bytes.begin(), bytes.end());
  // Bytes beyond ASCII become a double-byte character.
  for (wchar_t& character : text)
    if (character < 0 || character > 0x7F) character = L'漢';
  return text;
}

}  // namespace

TARVIK_FUZZER(cnclib_access_code) {
  using namespace tarvik;
  FuzzedDataProvider input(data, size);
  test::FakeContext fake;
  fake.mode = input.ConsumeIntegralInRange(-1, 1);
  if (input.ConsumeBool()) fake.pump.stopAt = input.ConsumeIntegralInRange(0, 2000);
  test::FakeCncLibrary library;
  library.openResult = Result(input);
  library.codeResult = Result(input);
  library.optionsResult = Result(input);
  library.infoResult = Result(input);
  library.options = input.ConsumeIntegral<uint32_t>();
  library.nextHandle = input.ConsumeIntegral<uint16_t>();
  library.givesHandleOnFailure = input.ConsumeBool();
  library.fillsRecords = input.ConsumeBool();
  if (input.ConsumeBool()) library.missing.insert("nx_allochandle_code");
  if (input.ConsumeBool()) library.missing.insert("nx_sysinfo");
  std::optional<std::wstring> code;
  if (input.ConsumeBool()) code = Text(input);
  const CncTarget target{Text(input), {Text(input), L"&Port:"}, {Text(input), L"&Time:"}};

  uint32_t options = 0xFFFFFFFF;
  bool passed = false;
  bool busy = false;
  try {
    passed = RunLibraryTest(
        fake.context, library, fake.codePage, [&busy](bool on) { busy = on; }, target, code, false, options);
  } catch (const RuntimeError&) {
  }
  Require(library.AllGivenBack() && !busy);
  // A test passes only if the controller accepted every call.
  if (passed) Require((options & 1) != 0 && library.Count("nx_sysinfo") == 1 && library.infoResult == 0);
  if (library.Count("nx_allochandle_code") != 0) Require(library.openResult == 7);
  fake.results.ClearList();
  DisplayNexal1Options(fake.results, fake.texts, false, library.options);
  Require(fake.results.Lines().size() <= 7);
}
