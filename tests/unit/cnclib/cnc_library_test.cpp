#include "cnclib/cnc_library.h"

#include <gtest/gtest.h>

#include <cstring>

namespace tarvik::test {
namespace {

TEST(CncLibrary, The_system_information_has_the_librarys_layout) {
  const char bytes[] = "\x00\x02\x08\x00GLMMD4110102 3";
  CncSystemInfo info;
  static_assert(sizeof bytes - 1 == sizeof info);
  std::memcpy(&info, bytes, sizeof info);
  EXPECT_EQ(info.addinfo, 512);
  EXPECT_EQ(info.max_axes, 8);
  EXPECT_EQ(std::string(info.model_type, 2), "GL");
  EXPECT_EQ(std::string(info.machine_type, 2), "MM");
  EXPECT_EQ(std::string(info.series_code, 4), "D411");
  EXPECT_EQ(std::string(info.version_code, 4), "0102");
  EXPECT_EQ(std::string(info.axes_text, 2), " 3");
}

TEST(CncLibrary, The_PMC_data_follow_four_16_bit_numbers) {
  CncPmcRange range;
  range.data[0] = 0xAB;
  range.data[CncPmcRange::kMaxDataBytes] = 0xCD;
  unsigned char bytes[sizeof range];
  std::memcpy(bytes, &range, sizeof range);
  EXPECT_EQ(bytes[8], 0xAB);
  EXPECT_EQ(bytes[8008], 0xCD);
}

}  // namespace
}  // namespace tarvik::test
