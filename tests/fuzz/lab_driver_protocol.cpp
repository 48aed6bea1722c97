#include <string>
#include <string_view>

#include "lab/pc/driver_protocol.h"
#include "platform/text.h"
#include "tests/fuzz/fuzzer.h"

/// Any line can be split, and fields survive joining and splitting.
TARVIK_FUZZER(lab_driver_protocol) {
  using namespace tarvik::lab;
  const std::string_view line(reinterpret_cast<const char*>(data), size);
  const auto fields = SplitFields(line);
  const std::string written = JoinFields(fields);
  tarvik::test::Require(written.find_first_of("\r\n") == std::string::npos);
  tarvik::test::Require(SplitFields(written) == fields);
  tarvik::test::Require(SplitFields(JoinFields({std::string(line)})).front() == line);
}
