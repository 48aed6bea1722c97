#pragma once

#include <algorithm>
#include <cstring>
#include <limits>

#include "app/configuration_library.h"
#include "app/secret_decoder.h"
#include "platform/kernel_calls.h"
#include "platform/version_library.h"
#include "tests/failures/failure_plan.h"

namespace tarvik::test {

class FailingKernel final : public Failing<KernelCalls> {
 public:
  using Failing::Failing;

  uint32_t SearchPathW(const wchar_t* fileName, wchar_t* buffer, uint32_t size) override {
    switch (plan_.WayToFail("SearchPathW", 4)) {
      case 1:
        return 0;
      case 2:
        return std::numeric_limits<uint32_t>::max();
      case 3:
        return size + 1;
      case 4:  // writes nothing
        return size - 1;
      default:
        return library_.SearchPathW(fileName, buffer, size);
    }
  }
  Module LoadLibraryExA(const char* fileName, uint32_t flags) override {
    return plan_.WayToFail("LoadLibraryExA", 1) == 1
               ? 0
               : modules.Opened(library_.LoadLibraryExA(fileName, flags));
  }
  int32_t FreeLibrary(Module module) override {
    modules.Closed(module);
    const int way = plan_.WayToFail("FreeLibrary", 1);
    const int32_t result = library_.FreeLibrary(module);
    return way == 1 ? 0 : result;
  }
  uint32_t FormatMessageA(uint32_t flags, Module module, uint32_t messageId, uint32_t languageId,
                          char* buffer, uint32_t size) override {
    const int way = plan_.WayToFail("FormatMessageA", 2);
    if (way == 1) return 0;
    if (way == 2) {
      std::fill_n(buffer, size, 'x');
      return std::numeric_limits<uint32_t>::max();
    }
    return library_.FormatMessageA(flags, module, messageId, languageId, buffer, size);
  }
  uint32_t GetLastError() override {
    return plan_.WayToFail("GetLastError", 1) == 1 ? 0 : library_.GetLastError();
  }

  HandleLedger<Module> modules;
};

class FailingVersions final : public Failing<VersionLibrary> {
 public:
  using Failing::Failing;

  uint32_t GetFileVersionInfoSizeW(const wchar_t* fileName, uint32_t& handle) override {
    switch (plan_.WayToFail("GetFileVersionInfoSizeW", 3)) {
      case 1:
        return 0;
      case 2:
        return 1;
      case 3:
        return std::numeric_limits<uint32_t>::max();
      default:
        return library_.GetFileVersionInfoSizeW(fileName, handle);
    }
  }
  int32_t GetFileVersionInfoW(const wchar_t* fileName, uint32_t handle, uint32_t length,
                              void* data) override {
    const int way = plan_.WayToFail("GetFileVersionInfoW", 2);
    if (way == 1) return 0;
    if (way == 2) return 1;  // writes nothing
    return library_.GetFileVersionInfoW(fileName, handle, length, data);
  }
  int32_t VerQueryValueW(const void* block, const wchar_t* subBlock, const void*& value,
                         uint32_t& length) override {
    const int way = plan_.WayToFail("VerQueryValueW", 4);
    if (way == 1) return 0;
    const int32_t result = library_.VerQueryValueW(block, subBlock, value, length);
    if (way == 2) value = nullptr;
    if (way == 3) value = static_cast<const char*>(block) - 1;
    if (way == 4) length = 4;
    return result;
  }
};

class FailingConfiguration final : public Failing<ConfigurationLibrary> {
 public:
  using Failing::Failing;

  bool Available() override {
    return plan_.WayToFail("LoadLibrary of ObryConfIO", 1) != 1 && library_.Available();
  }
  int32_t Initialize() override {
    const int way = plan_.WayToFail("Initialize", 2);
    if (way == 2) ThrowMissing("Initialize");
    ++sessions;
    const int32_t result = library_.Initialize();
    return way == 1 ? -1 : result;
  }
  int32_t GetLanguage() override {
    const int way = plan_.WayToFail("GetLanguage", 3);
    if (way == 3) ThrowMissing("GetLanguage");
    const int32_t language = library_.GetLanguage();
    return way == 0 ? language : way == 1 ? 0 : -1;
  }
  int32_t Terminate() override {
    const int way = plan_.WayToFail("Terminate", 2);
    --sessions;
    if (way == 2) ThrowMissing("Terminate");
    const int32_t result = library_.Terminate();
    return way == 1 ? -1 : result;
  }
  int32_t GetCommonDataFolder2(char* buffer, int32_t length) override {
    switch (plan_.WayToFail("GetCommonDataFolder2", 4)) {
      case 1:
        return 5;
      case 2:  // writes nothing
        return 0;
      case 3:
        std::fill_n(buffer, length, 'x');
        return 0;
      case 4:
        ThrowMissing("GetCommonDataFolder2");
      default:
        return library_.GetCommonDataFolder2(buffer, length);
    }
  }

  int sessions = 0;  ///< calls of Initialize without Terminate
};

class FailingTxCodec final : public Failing<TxCodec> {
 public:
  using Failing::Failing;

  int32_t TxDecd(TxCodecRecord& record) override {
    switch (plan_.WayToFail("TxDecd", 4)) {
      case 1:
        return 1;
      case 2:  // writes nothing
        return 0;
      case 3:
        std::fill_n(record.output, sizeof record.output, 'x');
        return 0;
      case 4:
        ThrowMissing("TxDecd");
      default:
        return library_.TxDecd(record);
    }
  }
};

}  // namespace tarvik::test
