#include <string>
#include <tuple>

#include "app/command_line.h"
#include "tests/fuzz/fuzzer.h"

namespace tarvik::test {
namespace {

/// The result of parsing a command line.
struct Parsed {
  void Parse(std::wstring_view text) {
    ParseCommandLine(text, values, mask, mode, [this](int32_t) { ++languages; });
  }
  auto All() const {
    return std::tie(values.targetHost, values.accessCode, values.pingCount, values.tcpPort,
                    values.libraryTimeOut, values.k7ServerHost, values.ftpUser, values.ftpPassword, mode);
  }
  uint32_t Bits() const {
    uint32_t bits = 0;
    for (int bit = 0; bit < 32; ++bit)
      if (mask.Test(uint32_t{1} << bit)) bits |= uint32_t{1} << bit;
    return bits;
  }

  CommandLineValues values;
  OptionMask mask;
  LanguageMode mode = kLanguageFile;
  int languages = 0;
};

}  // namespace
}  // namespace tarvik::test

/// Any command line can be parsed. Parsing it again changes nothing, and bits of the mask that were set
/// before stay set.
TARVIK_FUZZER(app_command_line) {
  using namespace tarvik::test;
  const std::wstring line(data, data + size);
  const std::wstring_view text = tarvik::AfterProgramName(line);
  Parsed once;
  once.Parse(text);
  Require(once.values.targetHost.find(L' ') == std::wstring::npos);
  Parsed twice = once;
  twice.Parse(text);
  Require(twice.All() == once.All() && twice.Bits() == once.Bits() && twice.languages == 2 * once.languages);
  constexpr uint32_t kBefore = 0xA5A5A5A5;
  Parsed later;
  later.mask.Set(kBefore);
  later.Parse(text);
  Require(later.Bits() == (once.Bits() | kBefore));
}
