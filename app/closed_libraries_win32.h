#pragma once

#include "app/configuration_library.h"
#include "app/secret_decoder.h"
#include "platform/closed_library_win32.h"

namespace tarvik {

/// ObryConfIO.dll on this PC.
class Win32ConfigurationLibrary final : public ConfigurationLibrary {
 public:
  bool Available() override { return library_.Available(); }
  int32_t Initialize() override;
  int32_t GetLanguage() override;
  int32_t Terminate() override;
  int32_t GetCommonDataFolder2(char* buffer, int32_t length) override;

 private:
  ClosedLibrary library_{L"ObryConfIO.dll"};
};

/// txcodec.dll on this PC.
class Win32TxCodec final : public TxCodec {
 public:
  int32_t TxDecd(TxCodecRecord& record) override;

 private:
  ClosedLibrary library_{L"txcodec.dll"};
};

}  // namespace tarvik
