#include "tests/windows/product_fixture.h"

namespace tarvik::lab {
namespace {

class CrashReport : public ProductTest {};

TEST_F(CrashReport, An_unhandled_exception_ends_the_process_as_a_crash_and_without_a_box) {
  // Wine has started when it answers. While Wine starts, a crash ends with another code.
  Call({"module_version", WindowsPath(ProgramPath())});
  const auto process =
      StartInWindows({std::filesystem::path(ProgramPath()).parent_path() / "product_caller.exe"});
  process->Write("terminate\n");
  // Of STATUS_FAIL_FAST_EXCEPTION, 0xC0000602, Wine hands on the lowest byte. The C library's abort ends
  // with 3.
  EXPECT_EQ(process->Wait(std::chrono::seconds(60)), 0x02);
}

}  // namespace
}  // namespace tarvik::lab
