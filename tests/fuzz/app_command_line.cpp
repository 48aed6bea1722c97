#include <string>
#include <tuple>

#include "app/command_line.h"
#include "tests/fuzz/fuzzer.h"

namespace tarvik::test {
namespace {

/// What a command line leaves behind.
struct Reading {
  void Read(std::wstring_view text) {
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

/// Any command line is read without trouble. Reading it again changes nothing, and no bit that was set before
/// is lost.
TARVIK_FUZZER(app_command_line) {
  using namespace tarvik::test;
  const std::wstring line(data, data + size);
  const std::wstring_view text = tarvik::BehindProgramName(line);
  Reading once;
  once.Read(text);
  Demand(once.values.targetHost.find(L' ') == std::wstring::npos);
  Reading twice = once;
  twice.Read(text);
  Demand(twice.All() == once.All() && twice.Bits() == once.Bits() && twice.languages == 2 * once.languages);
  constexpr uint32_t kBefore = 0xA5A5A5A5;
  Reading later;
  later.mask.Set(kBefore);
  later.Read(text);
  Demand(later.Bits() == (once.Bits() | kBefore));
}
