#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "app/configuration_library.h"
#include "app/secret_decoder.h"
#include "platform/runtime_error.h"

namespace tarvik::test {

/// The family's configuration library in memory. Records the calls in order.
class FakeConfiguration final : public ConfigurationLibrary {
 public:
  bool Available() override { return available; }
  int32_t Initialize() override { return Call("Initialize", 0); }
  int32_t GetLanguage() override { return Call("GetLanguage", language); }
  int32_t Terminate() override { return Call("Terminate", 0); }
  int32_t GetCommonDataFolder2(char* buffer, int32_t length) override {
    const int32_t result = Call("GetCommonDataFolder2", folderResult);
    askedLength = length;
    std::fill_n(buffer, length, '#');
    folder.copy(buffer, static_cast<size_t>(length));
    if (terminated) buffer[folder.size()] = '\0';
    return result;
  }

  bool available = true;
  int32_t language = 1033;
  std::string folder = "C:\\Data";
  bool terminated = true;  ///< the folder ends with a NUL
  int32_t folderResult = 0;
  std::string lacking;  ///< the call that the library does not export
  int32_t askedLength = 0;
  std::vector<std::string> calls;

 private:
  int32_t Call(const char* name, int32_t result) {
    if (lacking == name) throw RuntimeError(L"The library does not export a call.");
    calls.emplace_back(name);
    return result;
  }
};

/// Decodes every secret to `output`.
class FakeTxCodec final : public TxCodec {
 public:
  int32_t TxDecd(TxCodecRecord& record) override {
    if (missing) throw RuntimeError(L"txcodec.dll cannot be loaded.");
    input.assign(record.input, sizeof record.input);
    std::fill_n(record.output, sizeof record.output, ' ');
    output.copy(record.output, sizeof record.output);
    return result;
  }

  bool missing = false;
  int32_t result = 0;
  std::string output = "4711";
  std::string input;
};

}  // namespace tarvik::test
