#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/code_page.h"

namespace tarvik {

/// The record of TxDecd: two fixed-length single-byte fields.
struct TxCodecRecord {
  char output[64];
  char input[128];
};
static_assert(sizeof(TxCodecRecord) == 192 && offsetof(TxCodecRecord, input) == 64);

/// txcodec.dll, the code-conversion library (stdcall). The call throws RuntimeError when the library is not
/// on this PC.
class TxCodec {
 public:
  virtual ~TxCodec() = default;
  /// Decodes `input` into `output`. 0 = success.
  virtual int32_t TxDecd(TxCodecRecord& record) = 0;
};

/// txcodec.dll of this PC, loaded at the first call.
std::unique_ptr<TxCodec> MakeTxCodec();

/// The plain text of an access code or FTP password that the command line carries in its encoded form.
/// Nothing when it cannot be decoded, the library's absence included.
std::optional<std::wstring> DecodeSecret(const std::wstring& encoded, TxCodec& codec, CodePage& codePage);

}  // namespace tarvik
