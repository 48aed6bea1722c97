#include <string>
#include <string_view>

#include "lab/pc/driver_protocol.h"
#include "platform/text.h"
#include "tests/fuzz/fuzzer.h"

/// Any line has fields, and fields that were once read come back the same after writing and reading.
TARVIK_FUZZER(lab_driver_protocol) {
  using namespace tarvik::lab;
  const std::string_view line(reinterpret_cast<const char*>(data), size);
  const auto fields = SplitFields(line);
  const std::string written = JoinFields(fields);
  tarvik::test::Demand(written.find_first_of("\r\n") == std::string::npos);
  tarvik::test::Demand(SplitFields(written) == fields);
  tarvik::test::Demand(SplitFields(JoinFields({std::string(line)})).front() == line);
}
