#include <gtest/gtest.h>

#include <cstddef>

#include "app/secret_decoder.h"
#include "bench/nxlib32.h"
#include "bench/txcodec.h"
#include "cnclib/cnc_library.h"

namespace tarvik {
namespace {

// Compares the product's records with the bench's independent declarations.

TEST(CncRecords, Have_the_library_layout) {
  static_assert(sizeof(CncSystemInfo) == sizeof(nx_system_information));
  static_assert(offsetof(CncSystemInfo, addinfo) == offsetof(nx_system_information, addinfo));
  static_assert(offsetof(CncSystemInfo, max_axes) == offsetof(nx_system_information, max_axes));
  static_assert(offsetof(CncSystemInfo, model_type) == offsetof(nx_system_information, model_type));
  static_assert(offsetof(CncSystemInfo, machine_type) == offsetof(nx_system_information, machine_type));
  static_assert(offsetof(CncSystemInfo, series_code) == offsetof(nx_system_information, series_code));
  static_assert(offsetof(CncSystemInfo, version_code) == offsetof(nx_system_information, version_code));
  static_assert(offsetof(CncSystemInfo, axes_text) == offsetof(nx_system_information, axes_text));
  static_assert(sizeof(CncPmcRange) == sizeof(nx_pmc_range));
  static_assert(offsetof(CncPmcRange, addr_type) == offsetof(nx_pmc_range, addr_type));
  static_assert(offsetof(CncPmcRange, data_type) == offsetof(nx_pmc_range, data_type));
  static_assert(offsetof(CncPmcRange, first_no) == offsetof(nx_pmc_range, first_no));
  static_assert(offsetof(CncPmcRange, last_no) == offsetof(nx_pmc_range, last_no));
  static_assert(offsetof(CncPmcRange, data) == offsetof(nx_pmc_range, data));
  static_assert(sizeof(CncPmcDetailError) == sizeof(nx_pmc_detail));
  static_assert(offsetof(CncPmcDetailError, error_item) == offsetof(nx_pmc_detail, error_item));
}

TEST(TxCodecRecords, Have_the_library_layout) {
  static_assert(sizeof(TxCodecRecord) == sizeof(tx_codec_record));
  static_assert(offsetof(TxCodecRecord, input) == offsetof(tx_codec_record, input));
}

}  // namespace
}  // namespace tarvik
