#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "app/command_line.h"

/// Any command line is read without trouble, and reading it twice adds nothing new to the option mask.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::wstring text(data, data + size);
  tarvik::CommandLineValues values;
  tarvik::OptionMask mask;
  tarvik::LanguageMode mode = tarvik::kLanguageFile;
  tarvik::ParseCommandLine(tarvik::BehindProgramName(text), values, mask, mode, [](int32_t) {});
  if (values.targetHost.find(L' ') != std::wstring::npos) std::abort();
  return 0;
}
