#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/code_page.h"

namespace tarvik {

/// The record of TxDecd: two fixed-length fields in the system code page.
struct TxCodecRecord {
  char output[64];
  char input[128];
};
static_assert(sizeof(TxCodecRecord) == 192 && offsetof(TxCodecRecord, input) == 64);

/// txcodec.dll, the code-conversion library (stdcall). The call throws RuntimeError when the library or the
/// call is missing.
class TxCodec {
 public:
  virtual ~TxCodec() = default;
  /// Decodes `input`, padded with spaces, into `output`. 0 = success.
  virtual int32_t TxDecd(TxCodecRecord& record) = 0;
};

/// The txcodec.dll on this PC, loaded by the first call.
std::unique_ptr<TxCodec> MakeTxCodec();

/// Decodes an access code or FTP password from the command line; bytes after the first 127 are ignored.
/// Returns no value when decoding fails or the library is missing.
std::optional<std::wstring> DecodeSecret(const std::wstring& encoded, TxCodec& codec, CodePage& codePage);

}  // namespace tarvik
