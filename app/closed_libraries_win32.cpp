// ObryConfIO.dll and txcodec.dll, the two closed libraries that only start-up uses.

#include "app/configuration_library.h"
#include "app/secret_decoder.h"
#include "platform/closed_library_win32.h"

namespace tarvik {
namespace {

class Win32ConfigurationLibrary final : public ConfigurationLibrary {
 public:
  bool Available() override { return library_.Available(); }
  int32_t Initialize() override { return library_.Call<int32_t(WINAPI*)()>("Initialize")(); }
  int32_t GetLanguage() override { return library_.Call<int32_t(WINAPI*)()>("GetLanguage")(); }
  int32_t Terminate() override { return library_.Call<int32_t(WINAPI*)()>("Terminate")(); }
  int32_t GetCommonDataFolder2(char* buffer, int32_t length) override {
    return library_.Call<int32_t(WINAPI*)(char*, int32_t)>("GetCommonDataFolder2")(buffer, length);
  }

 private:
  ClosedLibrary library_{L"ObryConfIO.dll"};
};

class Win32TxCodec final : public TxCodec {
 public:
  int32_t TxDecd(TxCodecRecord& record) override {
    return library_.Call<int32_t(WINAPI*)(TxCodecRecord*)>("TxDecd")(&record);
  }

 private:
  ClosedLibrary library_{L"txcodec.dll"};
};

}  // namespace

std::unique_ptr<ConfigurationLibrary> MakeConfigurationLibrary() {
  return std::make_unique<Win32ConfigurationLibrary>();
}

std::unique_ptr<TxCodec> MakeTxCodec() { return std::make_unique<Win32TxCodec>(); }

}  // namespace tarvik
