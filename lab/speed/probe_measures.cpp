// The figures of speed_probe, a program that runs parts of the product inside Windows, and the measures that
// are compared with them.

#include "lab/speed/probe_measures.h"

#include <chrono>
#include <fstream>
#include <map>

#include "app/control_ids.h"
#include "lab/host/leftovers.h"
#include "lab/network/controller.h"
#include "lab/network/ftp_server.h"
#include "lab/pc/main_window.h"
#include "lab/pc/window_parts.h"
#include "lab/speed/table.h"

namespace tarvik::lab {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kLines = 900;  ///< below the number at which the result list is cleared
constexpr int kSorted = 30'000;
constexpr int kEntries = 10'000;
constexpr int kPmcLength = 8000;
constexpr int kPmcPasses = 50;
constexpr std::chrono::minutes kMaxWait(20);  ///< Wine's WinINet reads a listing byte by byte

double Milliseconds(Clock::time_point begin, Clock::time_point end) {
  return std::chrono::duration<double, std::milli>(end - begin).count();
}

/// Runs one measure of the probe. Returns its figures by name.
std::map<std::string, double> Probe(const ProbeContext& context, const std::string& command) {
  const TempDirectory work(context.cacheFolder);
  const std::string path = work.Path() + "/figures";
  ProgramUnderTest probe(context.pc, context.probe, WindowsPath(path) + " " + command);
  const uint32_t exitCode = probe.WaitForEnd(kMaxWait);
  std::map<std::string, double> figures;
  std::ifstream file(path);
  std::string name;
  for (double figure = 0; file >> name >> figure;) figures[name] = figure;
  if (exitCode != 0) throw LabError("the probe failed to measure \"" + command + "\"");
  return figures;
}

void RatioRow(const std::string& what, double own, double reference) {
  Row(what, own / reference, "times", MeasuredPair(own, reference, "ms"));
}

/// Milliseconds per pass of the program's PMC window.
double OwnPmcPass(const ProbeContext& context) {
  ProgramUnderTest program(context.pc, context.program);
  const WindowUnderTest mainWindow = WaitForMainWindow(program);
  mainWindow.SetText(ID_cmbIPAddr, kNearAddress);
  mainWindow.InvokeCommand(ID_mnuPMC);
  const WindowUnderTest window = program.WaitForWindow(kPmcWindowClass);
  window.SetText(ID_txtPmcStart, "0");
  window.SetText(ID_txtPmcLen, std::to_string(kPmcLength));
  window.SetText(ID_txtCount, std::to_string(kPmcPasses));
  window.SetText(ID_txtSleep, "0");
  const auto begun = Clock::now();
  window.Click(ID_cmdRead);
  window.WaitCloselyForText(ID_lblCount, std::to_string(kPmcPasses), kMaxWait);
  return Milliseconds(begun, Clock::now()) / kPmcPasses;
}

}  // namespace

void MeasureLines(const ProbeContext& context) {
  auto figures = Probe(context, "lines " + std::to_string(kLines));
  RatioRow("a line, compared with LB_ADDSTRING alone", figures["own"] / kLines, figures["bare"] / kLines);
  RatioRow("a line, compared with adding and selecting it", figures["own"] / kLines,
           figures["selecting"] / kLines);
}

void MeasureSort(const ProbeContext& context) {
  auto figures = Probe(context, "sort " + std::to_string(kSorted));
  for (const char* order : {"random", "sorted", "reversed", "hostile", "alike"})
    RatioRow(std::string("sorting 30,000 lines, ") + order + ", vs. std::sort",
             figures[std::string("own-") + order], figures[std::string("bare-") + order]);
}

void MeasurePmc(const ProbeContext& context) {
  const Controller controller(context.laboratory, Host::Near, BenchScenario("all_well"));
  const double own = OwnPmcPass(context);
  auto figures = Probe(context, std::string("pmc ") + kNearAddress + " " + std::to_string(kPmcLength));
  Row("PMC speed, compared with a simple loop", figures["pass"] / own, "times",
      MeasuredPair(figures["pass"], own, "ms"));
}

void MeasureListing(const ProbeContext& context) {
  const FtpServer server(context.laboratory, Host::Near, FtpServer::Product::Vsftpd, context.cacheFolder);
  for (int i = 0; i < kEntries; ++i) server.AddFile("file" + std::to_string(100'000 + i));
  auto figures = Probe(context, std::string("listing ") + kNearAddress);
  if (figures["entries"] != kEntries) throw LabError("the bare loop did not find every entry");
  RatioRow("10,000 FTP entries, compared with a bare loop", figures["own"], figures["bare"]);
  const auto begun = Clock::now();
  RunOrThrow({"ip", "netns", "exec", context.laboratory.Namespace(Host::Pc), "curl", "--silent", "--ftp-port",
              "-", "--output", "/dev/null", std::string("ftp://") + kNearAddress + "/"});
  RatioRow("10,000 FTP entries, compared with curl", figures["own"], Milliseconds(begun, Clock::now()));
}

}  // namespace tarvik::lab
