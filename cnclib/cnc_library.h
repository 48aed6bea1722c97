#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tarvik {

/// What a controller says of itself. The texts are single-byte, filled up with blanks or a NUL, and need not
/// end in one.
struct CncSystemInfo {
  int16_t addinfo = 0;  ///< its high byte is the model's generation, 1 to 26
  int16_t max_axes = 0;
  char model_type[2] = {};
  char machine_type[2] = {};
  char series_code[4] = {};
  char version_code[4] = {};
  char axes_text[2] = {};
};
static_assert(sizeof(CncSystemInfo) == 18);
static_assert(offsetof(CncSystemInfo, addinfo) == 0 && offsetof(CncSystemInfo, max_axes) == 2);
static_assert(offsetof(CncSystemInfo, model_type) == 4 && offsetof(CncSystemInfo, machine_type) == 6);
static_assert(offsetof(CncSystemInfo, series_code) == 8 && offsetof(CncSystemInfo, version_code) == 12);
static_assert(offsetof(CncSystemInfo, axes_text) == 16);

/// A range of PMC data, and the request for it.
struct CncPmcRange {
  /// The bytes before the data, which the length of a read counts too.
  static constexpr int16_t kHeaderSize = 8;
  /// The longest read, in bytes of data.
  static constexpr int16_t kMostData = 8000;

  int16_t addr_type = 0;  ///< place of the address letter in the library's list
  int16_t data_type = 0;  ///< 0 = bytes
  int16_t first_no = 0;
  int16_t last_no = 0;
  uint8_t data[kMostData + 1] = {};
};
static_assert(offsetof(CncPmcRange, addr_type) == 0 && offsetof(CncPmcRange, data_type) == 2);
static_assert(offsetof(CncPmcRange, first_no) == 4 && offsetof(CncPmcRange, last_no) == 6);
static_assert(offsetof(CncPmcRange, data) == CncPmcRange::kHeaderSize);
static_assert(sizeof(CncPmcRange::data) == 8001);
// One byte more than its fields: the next of two such records stands on an even place.
static_assert(sizeof(CncPmcRange) == 8010);

/// Why a read of PMC data was refused.
struct CncPmcDetailError {
  int16_t error_code = 0;
  int16_t error_item = 0;
};
static_assert(sizeof(CncPmcDetailError) == 4);
static_assert(offsetof(CncPmcDetailError, error_code) == 0 && offsetof(CncPmcDetailError, error_item) == 2);

/// NxLib32.dll, the maker's CNC communication library (stdcall): the calls that the program makes. Each
/// returns 0 for success or the library's error code, and throws RuntimeError when the library, or the call,
/// is not on this PC. Addresses and access codes are NUL-terminated texts in the system's code page; a
/// call may block for the connection's time-out, in seconds.
class CncLibrary {
 public:
  /// A connection; 0 = none.
  using Handle = uint16_t;

  /// The controller wants another access code.
  static constexpr int16_t kAccessCodeRefused = 7;
  /// The PMC refused a read; nx_pmc_detailerr tells more.
  static constexpr int16_t kPmcError = -16;

  virtual ~CncLibrary() = default;

  virtual int16_t nx_allochandle3(const char* address, int16_t port, int32_t timeOut, Handle& handle) = 0;
  virtual int16_t nx_allochandle_code(const char* address, int16_t port, const char* accessCode,
                                      int32_t timeOut, Handle& handle) = 0;
  /// `reserved` is 0; what the library leaves there means nothing.
  virtual int16_t nx_getoptions1(Handle handle, int32_t& reserved, uint32_t& options) = 0;
  virtual int16_t nx_sysinfo(Handle handle, CncSystemInfo& info) = 0;
  virtual int16_t nx_freehandle(Handle handle) = 0;
  /// `length`: the data and the header together, in bytes.
  virtual int16_t nx_pmc_rdrange(Handle handle, int16_t addressType, int16_t dataType, int16_t first,
                                 int16_t last, int16_t length, CncPmcRange& range) = 0;
  virtual int16_t nx_pmc_detailerr(Handle handle, CncPmcDetailError& error) = 0;
};

/// NxLib32.dll of this PC, loaded at the first call.
std::unique_ptr<CncLibrary> MakeCncLibrary();

}  // namespace tarvik
