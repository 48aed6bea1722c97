// Whatever the CNC library answers and writes into its records: the library test reads nothing beyond them.

#include <cstdlib>
#include <cstring>

#include "cnclib/cnc_check.h"
#include "resources/resource.h"
#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_cnc_library.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_profile_strings.h"
#include "tests/fakes/fake_pump.h"
#include "tests/fuzz/fuzzer.h"
#include "ui/memory/memory_form.h"

TARVIK_FUZZER(cnclib_system_info) {
  using namespace tarvik;
  struct {
    int16_t results[4];
    uint16_t handle;
    uint8_t flags;
    CncSystemInfo info;
  } input{};
  std::memcpy(&input, data, size < sizeof input ? size : sizeof input);

  ui::MemoryForm form;
  ResultList results(form.AddListBox(1, ui::kNoPage, L""));
  test::FakeBoxes boxes;
  test::FakePump pump;
  test::FakeCodePage codePage;
  test::FakeFiles files;
  test::FakeProfileStrings profile;
  Resource resource(files, profile, codePage, boxes);
  const LanguageMode mode = input.flags % 3 - 1;
  const Texts texts(mode, resource);
  test::FakeCncLibrary library;
  library.openResult = input.results[0];
  library.codeResult = input.results[1];
  library.optionsResult = input.results[2];
  library.infoResult = input.results[3];
  library.nextHandle = input.handle;
  library.givesHandleOnFailure = (input.flags & 0x80) != 0;
  library.info = input.info;
  uint32_t options = 0;
  RunLibraryTest({results, boxes, texts, pump, form, library, codePage},
                 {L"cnc", {L"8193", L""}, {L"10", L""}}, std::nullopt, false, options);
  if (!library.AllGivenBack() || form.CurrentPointer() != ui::Pointer::Default) std::abort();
}
