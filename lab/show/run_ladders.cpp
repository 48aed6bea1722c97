// The program that ./run starts. Shows the shipped program on the laboratory's network or with a given
// address; "desk" leaves it open for the user. Screenshots go to OUTPUT.
//
//   run_ladders PROGRAM DRIVER BENCH OUTPUT [ADDRESS | desk]

#include <filesystem>
#include <iostream>
#include <optional>
#include <string>

#include "app/control_ids.h"
#include "lab/network/controller.h"
#include "lab/network/ftp_server.h"
#include "lab/network/k7_server.h"
#include "lab/network/laboratory.h"
#include "lab/pc/main_window.h"
#include "lab/pc/program.h"
#include "lab/show/shown_program.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::hours kMaxDeskTime(12);

/// The bench's code-conversion library reads secrets backwards.
constexpr char kAllRungs[] = "-PING_N 2 -X 10 -FTP_USER cnc -FTP_PASSWD terces ";
constexpr char kAllRungsWrongPassword[] = "-PING_N 2 -X 10 -FTP_USER cnc -FTP_PASSWD drowssap ";

bool ShowAddress(const ShownProgram& shown, const std::string& address) {
  WindowsPc pc(shown.PcOptions());
  return Show(
      pc, shown,
      {"The ladder to " + address, "-PING_N 4 " + address, "address", Expecting({"Reply From " + address})});
}

void FillDirectory(const FtpServer& server) {
  server.AddDirectory("PROGRAMS");
  server.AddFile("O1000.NC", 12'345);
  server.AddFile("o0002.nc", 678);
}

bool ShowNetwork(WindowsPc& pc, const ShownProgram& shown, const Laboratory& laboratory) {
  bool passed =
      Show(pc, shown, {"Start-up", "", "start-up", Expecting({"szDescription:", "iMaxUdpDg:", "-----"})});
  passed &=
      Show(pc, shown,
           {"A controller on the PC's own subnet", std::string("-PING_N 2 ") + kNearAddress, "same-subnet",
            Expecting({"PING test...", "0002 Reply From 192.168.1.100: bytes=32 time="})});
  passed &=
      Show(pc, shown,
           {"A controller beyond the gateway", std::string("-PING_N 2 ") + kFarAddress, "through-gateway",
            Expecting({"Target is not exist on the same network", "GateWay (192.168.1.1) PING test ....",
                       "0002 Reply From 192.168.2.100: bytes=32 time="})});
  laboratory.PullCable(Host::Gateway);
  passed &=
      Show(pc, shown,
           {"The gateway's cable pulled", std::string("-PING_N 2 ") + kFarAddress, "gateway-cable-pulled",
            Expecting({"ICMP_Error:11010", "Cannot ping to the Gateway",
                       "Please check Gateway's address, cable and power"})});
  laboratory.Reset();
  return passed;
}

bool ShowWholeLadder(WindowsPc& pc, const ShownProgram& shown, const Laboratory& laboratory) {
  const FtpServer files(laboratory, Host::Near, FtpServer::Product::Vsftpd, shown.CacheFolder());
  FillDirectory(files);
  const std::string target = kNearAddress;
  bool passed = true;
  {
    const Controller controller(laboratory, Host::Near, BenchScenario("all_well"));
    passed &= Show(pc, shown,
                   {"The whole ladder: everything is well", kAllRungs + target, "whole-ladder",
                    Expecting({"0002 Reply From", "CNC Type\t31iB", "230 ", "/PROGRAMS", "O1000.NC"})});
    passed &= Show(pc, shown,
                   {"The whole ladder: FTP password refused", kAllRungsWrongPassword + target, "ftp-refused",
                    Expecting({"CNC Type\t31iB", "FTP Connect test...", "530 "})});
  }
  {
    const Controller controller(laboratory, Host::Near, BenchScenario("access_code"));
    passed &= Show(pc, shown,
                   {"The whole ladder: wrong access code", kAllRungs + target + ";1111", "wrong-access-code",
                    Expecting({"Allocate Handle error=7", "The CNC did not accept the access code."})});
  }
  const Controller controller(laboratory, Host::Near, BenchScenario("option_missing"));
  passed &= Show(pc, shown,
                 {"The whole ladder: option missing", kAllRungs + target, "option-missing",
                  Expecting({"No option (Extended drivers and libraries function)"})});
  return passed;
}

bool ShowLaboratory(const ShownProgram& shown) {
  const Laboratory laboratory(shown.CacheFolder());
  WindowsPc::Options options = shown.PcOptions();
  options.networkNamespace = laboratory.Namespace(Host::Pc);
  WindowsPc pc(options);
  const bool network = ShowNetwork(pc, shown, laboratory);
  return ShowWholeLadder(pc, shown, laboratory) && network;
}

bool LeaveOpen(const ShownProgram& shown) {
  const bool general = fs::path(shown.program).parent_path().filename() == "x86-general";
  const Laboratory laboratory(shown.CacheFolder());
  const FtpServer files(laboratory, Host::Near, FtpServer::Product::Vsftpd, shown.CacheFolder());
  FillDirectory(files);
  const Controller nearOne(laboratory, Host::Near, BenchScenario("all_well"));
  const Controller farOne(laboratory, Host::Far, BenchScenario("access_code"));
  WindowsPc::Options options = shown.PcOptions();
  options.networkNamespace = laboratory.Namespace(Host::Pc);
  WindowsPc pc(options);
  std::optional<ServicesFile> services;
  std::optional<K7ServerService> server;
  if (general) {
    // The first program that starts gives Wine its screen, so that must not be the service.
    pc.ClipboardText();
    services.emplace(pc, Lines{"NORVAX_K7_SERVER  8300/udp"});
    server.emplace(pc, laboratory, shown.bench, shown.CacheFolder(), "start_takes 2000\nstop_takes 2000\n",
                   K7ServerService::State::Running);
  }
  ProgramUnderTest program(pc, shown.program);
  const WindowUnderTest window = WaitForMainWindow(program, {.onBox = [](const BoxUnderTest&) {}});
  window.SetText(ID_cmbIPAddr, kNearAddress);
  std::cout << "\nTarvik is open on screen " << pc.Screen().Display()
            << ". Close its window when you are done.\n\n"
            << "  " << kNearAddress << "   a controller on the PC's own subnet; FTP user " << kFtpUser
            << ", password " << kFtpPassword << "\n"
            << "  " << kFarAddress << "   a controller beyond the gateway, with the access code 12345678\n"
            << (general ? "  The K7 server runs as a Windows service on UDP port 8300.\n" : "") << std::endl;
  program.WaitForEnd(kMaxDeskTime);
  return true;
}

}  // namespace
}  // namespace tarvik::lab

int main(int count, char** arguments) {
  using namespace tarvik::lab;
  if (count < 5) {
    std::cerr << "run_ladders PROGRAM DRIVER BENCH OUTPUT [ADDRESS | desk]\n";
    return 2;
  }
  const ShownProgram shown{arguments[1], arguments[2], arguments[3], arguments[4]};
  const std::string mode = count > 5 ? arguments[5] : "";
  try {
    RunOrThrow({"mkdir", "-p", shown.output});
    const bool needsLaboratory = mode.empty() || mode == "desk";
    if (const auto reason = Laboratory::UnsupportedReason(); needsLaboratory && reason)
      throw LabError("cannot create the laboratory: " + *reason);
    const bool passed = mode.empty()     ? ShowLaboratory(shown)
                        : mode == "desk" ? LeaveOpen(shown)
                                         : ShowAddress(shown, mode);
    if (mode != "desk") std::cout << (passed ? "\nAll checks passed." : "\nSome checks failed.") << std::endl;
    return passed ? 0 : 1;
  } catch (const std::exception& error) {
    std::cout << "\nFAIL  " << error.what() << std::endl;
    return 1;
  }
}
