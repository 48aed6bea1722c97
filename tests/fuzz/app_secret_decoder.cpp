#include <algorithm>
#include <string>

#include "app/secret_decoder.h"
#include "tests/fuzz/fuzzer.h"

using tarvik::test::Require;

namespace {

/// Writes the fuzzer's bytes as its output, with or without a NUL.
class HostileCodec final : public tarvik::TxCodec {
 public:
  HostileCodec(int32_t result, std::string output) : result_(result), output_(std::move(output)) {}
  int32_t TxDecd(tarvik::TxCodecRecord& record) override {
    Require(record.input[0] == 'T');
    output_.copy(record.output, sizeof record.output);
    return result_;
  }

 private:
  int32_t result_;
  std::string output_;
};

}  // namespace

/// First byte: the library's result. Next 64 bytes: its output. The rest: the encoded secret.
TARVIK_FUZZER(app_secret_decoder) {
  if (size == 0) return;
  const size_t written = std::min<size_t>(size - 1, sizeof(tarvik::TxCodecRecord::output));
  HostileCodec codec(data[0] % 4 == 3 ? -1 : 0, std::string(data + 1, data + 1 + written));
  const std::wstring secret(data + 1 + written, data + size);
  tarvik::test::FakeCodePage codePage;
  const auto plain = tarvik::DecodeSecret(secret, codec, codePage);
  Require(plain.has_value() == (data[0] % 4 != 3));
  if (!plain) return;
  Require(plain->size() <= written && plain->find(L'\0') == std::wstring::npos);
  Require(!plain->ends_with(L' '));
}
