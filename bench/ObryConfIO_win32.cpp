// Stand-in for the product family's configuration library. Environment variables, with their defaults:
//   TARVIK_BENCH_LANGUAGE       the locale id that GetLanguage returns (1033)
//   TARVIK_BENCH_FOLDER         the common data folder (the running program's folder)
//   TARVIK_BENCH_FOLDER_RESULT  the result of GetCommonDataFolder2 (0)

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "bench/environment_win32.h"

namespace {

using tarvik::bench::Setting;

std::string ProgramFolder() {
  char path[MAX_PATH];
  const std::string full(path, ::GetModuleFileNameA(nullptr, path, sizeof path));
  return full.substr(0, full.rfind('\\'));
}

}  // namespace

extern "C" {

int32_t WINAPI Initialize() { return 0; }

int32_t WINAPI GetLanguage() { return std::atoi(Setting("TARVIK_BENCH_LANGUAGE", "1033").c_str()); }

int32_t WINAPI Terminate() { return 0; }

int32_t WINAPI GetCommonDataFolder2(char* buffer, int32_t length) {
  if (length <= 0) return -1;
  const std::string folder = Setting("TARVIK_BENCH_FOLDER", ProgramFolder());
  const size_t copied = std::min(folder.size(), static_cast<size_t>(length) - 1);
  buffer[std::copy_n(folder.begin(), copied, buffer) - buffer] = '\0';
  return std::atoi(Setting("TARVIK_BENCH_FOLDER_RESULT", "0").c_str());
}
}
