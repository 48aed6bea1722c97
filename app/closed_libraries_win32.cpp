#include "app/closed_libraries_win32.h"

namespace tarvik {

int32_t Win32ConfigurationLibrary::Initialize() { return library_.Call<int32_t(WINAPI*)()>("Initialize")(); }

int32_t Win32ConfigurationLibrary::GetLanguage() {
  return library_.Call<int32_t(WINAPI*)()>("GetLanguage")();
}

int32_t Win32ConfigurationLibrary::Terminate() { return library_.Call<int32_t(WINAPI*)()>("Terminate")(); }

int32_t Win32ConfigurationLibrary::GetCommonDataFolder2(char* buffer, int32_t length) {
  return library_.Call<int32_t(WINAPI*)(char*, int32_t)>("GetCommonDataFolder2")(buffer, length);
}

int32_t Win32TxCodec::TxDecd(TxCodecRecord& record) {
  return library_.Call<int32_t(WINAPI*)(TxCodecRecord*)>("TxDecd")(&record);
}

}  // namespace tarvik
