#include "app/secret_decoder.h"

#include <algorithm>
#include <string_view>

#include "platform/fixed_buffer.h"
#include "platform/runtime_error.h"

namespace tarvik {
namespace {

/// Precedes the secret: marks it as coming from this program's command line.
constexpr char kPrefix = 'T';

}  // namespace

std::optional<std::wstring> DecodeSecret(const std::wstring& encoded, TxCodec& codec, CodePage& codePage) {
  TxCodecRecord record{};
  const std::string input = PadWithSpaces(kPrefix + codePage.ToAnsi(encoded), sizeof record.input);
  std::copy(input.begin(), input.end(), record.input);
  try {
    if (codec.TxDecd(record) != 0) return std::nullopt;
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
  std::string_view output = TrimNull(std::string_view(record.output, sizeof record.output));
  while (output.ends_with(' ')) output.remove_suffix(1);
  return codePage.FromAnsi(output);
}

}  // namespace tarvik
