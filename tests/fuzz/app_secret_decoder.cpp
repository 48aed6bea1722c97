#include <algorithm>
#include <string>

#include "app/secret_decoder.h"
#include "tests/fuzz/fuzzer.h"

using tarvik::test::Demand;

namespace {

/// Fills its output with the fuzzer's bytes, ended or not.
class HostileCodec final : public tarvik::TxCodec {
 public:
  HostileCodec(int32_t result, std::string output) : result_(result), output_(std::move(output)) {}
  int32_t TxDecd(tarvik::TxCodecRecord& record) override {
    Demand(record.input[0] == 'T');
    output_.copy(record.output, sizeof record.output);
    return result_;
  }

 private:
  int32_t result_;
  std::string output_;
};

}  // namespace

/// The first byte is the library's result, the next 64 what it writes, the rest the secret as it was typed.
TARVIK_FUZZER(app_secret_decoder) {
  if (size == 0) return;
  const size_t written = std::min<size_t>(size - 1, sizeof(tarvik::TxCodecRecord::output));
  HostileCodec codec(data[0] % 4 == 3 ? -1 : 0, std::string(data + 1, data + 1 + written));
  const std::wstring secret(data + 1 + written, data + size);
  tarvik::test::FakeCodePage codePage;
  const auto plain = tarvik::DecodeSecret(secret, codec, codePage);
  Demand(plain.has_value() == (data[0] % 4 != 3));
  if (!plain) return;
  Demand(plain->size() <= written && plain->find(L'\0') == std::wstring::npos);
  Demand(!plain->ends_with(L' '));
}
