#include <cstdlib>

#include "report/fmt_err_msg.h"
#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_modules.h"
#include "tests/fuzz/fuzzer.h"

/// Any message text of Windows becomes one line. First byte: by how much FormatMessageA overstates its
/// length.
TARVIK_FUZZER(about_error_text) {
  if (size < 1) return;
  tarvik::test::FakeKernel kernel;
  tarvik::test::FakeCodePage codePage;
  tarvik::test::FakeBoxes boxes;
  kernel.messages[2102].assign(reinterpret_cast<const char*>(data + 1), size - 1);
  kernel.formatLie = static_cast<uint32_t>(size - 1 + data[0]);
  const std::wstring line = tarvik::FmtErrMsg(kernel, codePage, boxes).Decode(2102);
  if (line.find_first_of(std::wstring(L"\r\n\0", 3)) != std::wstring::npos || line.size() > 300) std::abort();
  if (kernel.openModules != 0) std::abort();
}
