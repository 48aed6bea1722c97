#include "lab/speed/probe_measures.h"

#include <chrono>
#include <fstream>
#include <map>

#include "app/control_ids.h"
#include "lab/controller.h"
#include "lab/ftp_server.h"
#include "lab/leavings.h"
#include "lab/main_window.h"
#include "lab/speed/table.h"

namespace tarvik::lab {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kLines = 900;  ///< fewer than the result list holds before it begins anew
constexpr int kSorted = 30'000;
constexpr int kEntries = 10'000;
constexpr int kPmcLength = 8000;
constexpr int kPmcPasses = 50;
constexpr std::chrono::minutes kLongest(20);  ///< Wine's library takes a listing byte by byte

double Milliseconds(Clock::time_point begin, Clock::time_point end) {
  return std::chrono::duration<double, std::milli>(end - begin).count();
}

/// Runs one measure of the probe; its figures by name.
std::map<std::string, double> Probe(const ProbeGround& ground, const std::string& command) {
  const WorkFolder work(ground.cacheFolder);
  const std::string path = work.Path() + "/figures";
  ProgramUnderTest probe(ground.pc, ground.probe, WindowsPath(path) + " " + command);
  const uint32_t exitCode = probe.WaitForEnd(kLongest);
  std::map<std::string, double> figures;
  std::ifstream file(path);
  std::string name;
  for (double figure = 0; file >> name >> figure;) figures[name] = figure;
  if (exitCode != 0) throw LabError("The probe cannot measure \"" + command + "\"");
  return figures;
}

void RatioRow(const std::string& what, double own, double measure) {
  Row(what, own / measure, "times", Beside(own, measure, "ms"));
}

/// Milliseconds of one pass of the program's PMC window.
double OwnPmcPass(const ProbeGround& ground) {
  ProgramUnderTest program(ground.pc, ground.program);
  const WindowUnderTest mainWindow = WaitForMainWindow(program);
  mainWindow.SetText(ID_cmbIPAddr, kNearAddress);
  mainWindow.InvokeCommand(ID_mnuPMC);
  const WindowUnderTest window = program.WaitForWindow("frmPmcTest");
  window.SetText(ID_txtPmcStart, "0");
  window.SetText(ID_txtPmcLen, std::to_string(kPmcLength));
  window.SetText(ID_txtCount, std::to_string(kPmcPasses));
  window.SetText(ID_txtSleep, "0");
  const auto begun = Clock::now();
  window.Click(ID_cmdRead);
  window.WaitForText(ID_lblCount, std::to_string(kPmcPasses), kLongest);
  return Milliseconds(begun, Clock::now()) / kPmcPasses;
}

}  // namespace

void MeasureLines(const ProbeGround& ground) {
  auto figures = Probe(ground, "lines " + std::to_string(kLines));
  RatioRow("a line beside the bare list-box call", figures["own"] / kLines, figures["bare"] / kLines);
  RatioRow("a line beside that call and a selection", figures["own"] / kLines, figures["selecting"] / kLines);
}

void MeasureSort(const ProbeGround& ground) {
  auto figures = Probe(ground, "sort " + std::to_string(kSorted));
  for (const char* order : {"random", "sorted", "reversed", "hostile", "alike"})
    RatioRow(std::string("sorting 30,000 lines, ") + order + ", beside std::sort",
             figures[std::string("own-") + order], figures[std::string("bare-") + order]);
}

void MeasurePmc(const ProbeGround& ground) {
  const Controller controller(ground.laboratory, Host::Near, BenchScenario("all_well"));
  const double own = OwnPmcPass(ground);
  auto figures = Probe(ground, std::string("pmc ") + kNearAddress + " " + std::to_string(kPmcLength));
  Row("PMC passes, times as many as the plainest loop", figures["pass"] / own, "times",
      Beside(figures["pass"], own, "ms"));
}

void MeasureListing(const ProbeGround& ground) {
  const FtpServer server(ground.laboratory, Host::Near, FtpServer::Product::Vsftpd, ground.cacheFolder);
  for (int i = 0; i < kEntries; ++i) server.AddFile("file" + std::to_string(100'000 + i));
  auto figures = Probe(ground, std::string("listing ") + kNearAddress);
  if (figures["entries"] != kEntries) throw LabError("The bare loop does not find every entry");
  RatioRow("10,000 FTP entries beside a bare loop", figures["own"], figures["bare"]);
  const auto begun = Clock::now();
  RunOrThrow({"ip", "netns", "exec", ground.laboratory.Namespace(Host::Pc), "curl", "--silent", "--ftp-port",
              "-", "--output", "/dev/null", std::string("ftp://") + kNearAddress + "/"});
  RatioRow("10,000 FTP entries beside curl", figures["own"], Milliseconds(begun, Clock::now()));
}

}  // namespace tarvik::lab
