// Measures the shipped program on the laboratory's network and prints one table. Figures that depend on the
// machine are compared with a reference measured in the same run.
//
//   bench_speed PROGRAM BARE_WINDOW SPEED_PROBE DRIVER BENCH CACHE

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "app/control_ids.h"
#include "lab/network/laboratory.h"
#include "lab/pc/main_window.h"
#include "lab/pc/program.h"
#include "lab/pc/windows_pc.h"
#include "lab/speed/probe_measures.h"
#include "lab/speed/table.h"

namespace tarvik::lab {
namespace {

constexpr int kStarts = 15;
constexpr int kStops = 20;
constexpr int kEchoes = 20;

/// The program and the references start interleaved, so that load affects all of them equally.
void MeasureStart(WindowsPc& pc, const std::string& program, const std::string& bareWindow) {
  std::vector<double> own, bare, controls, ownMemory, bareMemory;
  for (int i = 0; i < kStarts; ++i) {
    ProgramUnderTest first(pc, bareWindow);
    bare.push_back(first.WaitForFirstIdle());
    first.WaitForWindow("BareWindow");
    bareMemory.push_back(static_cast<double>(first.Memory()));
    first.Kill();
    ProgramUnderTest withControls(pc, bareWindow, "controls");
    controls.push_back(withControls.WaitForFirstIdle());
    withControls.Kill();
    ProgramUnderTest second(pc, program);
    own.push_back(second.WaitForFirstIdle());
    WaitForMainWindow(second);
    ownMemory.push_back(static_cast<double>(second.Memory()));
    second.Kill();
  }
  constexpr double kMegabyte = 1 << 20;
  Row("start-up, compared with a bare window", Median(own) / Median(bare), "times",
      MeasuredPair(Median(own), Median(bare), "ms"));
  Row("start-up, compared with the same controls", Median(own) / Median(controls), "times",
      MeasuredPair(Median(own), Median(controls), "ms"));
  Row("memory, compared with a bare window", Median(ownMemory) / Median(bareMemory), "times",
      MeasuredPair(Median(ownMemory) / kMegabyte, Median(bareMemory) / kMegabyte, "MB"));
}

void MeasureStop(WindowsPc& pc, const std::string& program) {
  ProgramUnderTest process(pc, program, std::string("-PING_N 600 ") + kNearAddress);
  const WindowUnderTest window = WaitForMainWindow(process);
  std::vector<double> waits;
  for (int i = 0; i < kStops; ++i) {
    if (!WaitUntil(kSoon, [&] { return RunIsActive(window); })) throw LabError("the run did not start");
    // Stop at a different point of the one-second rhythm each time.
    window.WaitForLine(ID_lstResult, "PING test...", kSoon);
    const std::string phase = std::to_string(0.05 * i);
    Run({"sleep", phase});
    waits.push_back(window.MillisecondsFromClickTo(ID_cmdPing, "&Ping", kSoon));
    window.Click(ID_cmdPing);
  }
  Row("stop, click to restored caption: median", Median(waits), "ms", "");
  Row("stop, click to restored caption: longest", *std::max_element(waits.begin(), waits.end()), "ms", "");
}

void MeasureRhythm(WindowsPc& pc, const std::string& program) {
  using Clock = std::chrono::steady_clock;
  ProgramUnderTest process(pc, program, "-PING_N " + std::to_string(kEchoes) + " " + kNearAddress);
  const WindowUnderTest window = WaitForMainWindow(process);
  window.WaitCloselyForText(ID_cmdPing, "&Stop", kSoon);
  const auto begun = Clock::now();
  window.WaitCloselyForText(ID_cmdPing, "&Ping", std::chrono::seconds(2 * kEchoes));
  const double seconds = std::chrono::duration<double>(Clock::now() - begun).count();
  Row("overhead of a ladder over its " + std::to_string(kEchoes) + " pauses",
      100 * (seconds - kEchoes) / kEchoes, "%", MeasuredPair(seconds, kEchoes, "s"));
}

void MeasureAll(char** arguments) {
  const std::string program = arguments[1];
  const std::string probe = arguments[3];
  const Laboratory laboratory(arguments[6]);
  WindowsPc::Options options;
  options.driver = arguments[4];
  options.programPath = arguments[5];
  // Absolute, because the FTP server changes the current directory.
  options.cacheFolder = std::filesystem::absolute(arguments[6]);
  options.networkNamespace = laboratory.Namespace(Host::Pc);
  WindowsPc pc(options);
  Row("program size", static_cast<double>(std::filesystem::file_size(program)) / 1024, "KB", "");
  MeasureStart(pc, program, arguments[2]);
  MeasureStop(pc, program);
  MeasureRhythm(pc, program);
  const ProbeContext context{pc, laboratory, program, probe, options.cacheFolder};
  MeasureLines(context);
  MeasureSort(context);
  MeasurePmc(context);
  MeasureListing(context);
}

}  // namespace
}  // namespace tarvik::lab

int main(int count, char** arguments) {
  using namespace tarvik::lab;
  if (count != 7) {
    std::cerr << "bench_speed PROGRAM BARE_WINDOW SPEED_PROBE DRIVER BENCH CACHE\n";
    return 2;
  }
  try {
    if (const auto reason = Laboratory::UnsupportedReason())
      throw LabError("the laboratory cannot run on this machine: " + *reason);
    MeasureAll(arguments);
    return 0;
  } catch (const std::exception& error) {
    std::cout << "FAIL  " << error.what() << std::endl;
    return 1;
  }
}
