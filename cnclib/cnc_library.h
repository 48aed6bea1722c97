#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace tarvik {

/// What a controller reports about itself. The texts are ANSI, padded with spaces or NULs, and not always
/// NUL-terminated.
struct CncSystemInfo {
  int16_t addinfo = 0;  ///< high byte: the model's generation, 1 to 26
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

/// A range of PMC data: both the request and the result of a read.
struct CncPmcRange {
  /// Bytes before the data. The length of a read includes them.
  static constexpr int16_t kHeaderSize = 8;
  /// Bytes of data in the largest read.
  static constexpr int16_t kMaxDataBytes = 8000;

  int16_t addr_type = 0;  ///< index of the address letter in the library's list
  int16_t data_type = 0;  ///< 0 = bytes
  int16_t first_no = 0;
  int16_t last_no = 0;
  uint8_t data[kMaxDataBytes + 1] = {};
};
static_assert(offsetof(CncPmcRange, addr_type) == 0 && offsetof(CncPmcRange, data_type) == 2);
static_assert(offsetof(CncPmcRange, first_no) == 4 && offsetof(CncPmcRange, last_no) == 6);
static_assert(offsetof(CncPmcRange, data) == CncPmcRange::kHeaderSize);
static_assert(sizeof(CncPmcRange::data) == 8001);
// 8,010 bytes, not 8,009: padded so that array elements stay 2-byte aligned.
static_assert(sizeof(CncPmcRange) == 8010);

/// Why the PMC rejected a read.
struct CncPmcDetailError {
  int16_t error_code = 0;
  int16_t error_item = 0;
};
static_assert(sizeof(CncPmcDetailError) == 4);
static_assert(offsetof(CncPmcDetailError, error_code) == 0 && offsetof(CncPmcDetailError, error_item) == 2);

/// NxLib32.dll, the maker's CNC communication library (stdcall): the functions that the program calls. Each
/// returns 0 on success or the library's error code, and throws RuntimeError when the library is missing or
/// does not export the function. Addresses and access codes are NUL-terminated ANSI texts. A call may block
/// for the connection's `timeOut`, in seconds.
class CncLibrary {
 public:
  /// A connection; 0 = none.
  using Handle = uint16_t;

  /// The controller requires another access code.
  static constexpr int16_t kAccessCodeRefused = 7;
  /// The PMC rejected a read; nx_pmc_detailerr has the reason.
  static constexpr int16_t kPmcError = -16;

  virtual ~CncLibrary() = default;

  virtual int16_t nx_allochandle3(const char* address, int16_t port, int32_t timeOut, Handle& handle) = 0;
  virtual int16_t nx_allochandle_code(const char* address, int16_t port, const char* accessCode,
                                      int32_t timeOut, Handle& handle) = 0;
  /// `reserved`: 0; its output has no meaning.
  virtual int16_t nx_getoptions1(Handle handle, int32_t& reserved, uint32_t& options) = 0;
  virtual int16_t nx_sysinfo(Handle handle, CncSystemInfo& info) = 0;
  virtual int16_t nx_freehandle(Handle handle) = 0;
  /// `length`: data and header together, in bytes.
  virtual int16_t nx_pmc_rdrange(Handle handle, int16_t addressType, int16_t dataType, int16_t first,
                                 int16_t last, int16_t length, CncPmcRange& range) = 0;
  virtual int16_t nx_pmc_detailerr(Handle handle, CncPmcDetailError& error) = 0;
};

/// NxLib32.dll of this PC, loaded at the first call.
std::unique_ptr<CncLibrary> MakeCncLibrary();

}  // namespace tarvik
