// speed_probe OUTPUT COMMAND ARGUMENT...
//
// Runs one measure and writes a line "NAME MILLISECONDS" per figure to the file OUTPUT. Exit code 0 on
// success, 1 when the measure fails, 2 on wrong usage.

#include "lab/helpers/speed_probe/speed_probe_win32.h"

#include <cstdio>
#include <exception>
#include <memory>

namespace tarvik::lab {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
std::unique_ptr<std::FILE, CloseFile>& Output() {
  static std::unique_ptr<std::FILE, CloseFile> file;
  return file;
}

bool Measure(const std::wstring& command, const Words& words) {
  if (command == L"lines")
    MeasureLines(words);
  else if (command == L"sort")
    MeasureSort(words);
  else if (command == L"listing")
    MeasureListing(words);
  else if (command == L"pmc")
    MeasurePmcPass(words);
  else
    return false;
  return true;
}

}  // namespace

double Milliseconds(const std::function<void()>& work) {
  LARGE_INTEGER frequency{}, begin{}, end{};
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&begin);
  work();
  QueryPerformanceCounter(&end);
  return 1000.0 * static_cast<double>(end.QuadPart - begin.QuadPart) /
         static_cast<double>(frequency.QuadPart);
}

void Report(const std::string& name, double milliseconds) {
  std::fprintf(Output().get(), "%s %.4f\n", name.c_str(), milliseconds);
  std::fflush(Output().get());
}

}  // namespace tarvik::lab

int wmain(int count, wchar_t** arguments) {
  using namespace tarvik::lab;
  if (count < 3) return 2;
  Output().reset(_wfopen(arguments[1], L"wb"));
  if (!Output()) return 2;
  try {
    return Measure(arguments[2], Words(arguments + 3, arguments + count)) ? 0 : 2;
  } catch (const std::exception& error) {
    std::fprintf(Output().get(), "error %s\n", error.what());
    return 1;
  }
}
