// Shows the shipped program at work: three ladders on the laboratory's network, or one against an address of
// the user's own.
//
//   run_ladders PROGRAM DRIVER BENCH OUTPUT [ADDRESS]

#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include "app/control_ids.h"
#include "lab/laboratory.h"
#include "lab/main_window.h"
#include "lab/program.h"
#include "lab/windows_pc.h"

namespace tarvik::lab {
namespace {

constexpr milliseconds kLadderTimeOut = std::chrono::seconds(90);

struct Paths {
  std::string program;
  std::string driver;
  std::string bench;
  std::string output;
};

using Lines = std::vector<std::string>;

bool Holds(const Lines& lines, const std::string& part) {
  for (const std::string& line : lines)
    if (line.find(part) != std::string::npos) return true;
  return false;
}

/// One start of the program: its lines, its screenshot, its verdict.
bool Show(WindowsPc& pc, const Paths& paths, const std::string& title, const std::string& commandLine,
          const std::string& picture, const std::function<std::string(const Lines&)>& fault) {
  std::cout << "\n== " << title << std::endl;
  ProgramUnderTest program(pc, paths.program, commandLine);
  Listener listener;
  listener.onLine = [](const std::string& line) { std::cout << "    " << line << std::endl; };
  listener.onBox = [](const BoxUnderTest& box) { std::cout << "    [" << box.text << "]" << std::endl; };
  const WindowUnderTest window = WaitForMainWindow(program, listener);
  Lines lines;
  if (commandLine.empty()) {
    lines = window.Lines(ID_lstResult);
    for (const std::string& line : lines) listener.onLine(line);
  } else {
    lines = FollowRun(program, window, kLadderTimeOut, listener);
  }
  const std::string file = paths.output + "/" + picture + ".png";
  pc.Screen().Screenshot(file, window.Rect(0));
  window.Close();
  program.WaitForEnd();
  const std::string what = fault(lines);
  std::cout << (what.empty() ? "PASS  " : "FAIL  ") << title << (what.empty() ? "" : ": " + what) << "  ("
            << file << ")" << std::endl;
  return what.empty();
}

std::string Expect(const Lines& lines, const std::vector<std::string>& wanted) {
  for (const std::string& part : wanted)
    if (!Holds(lines, part)) return "no line says \"" + part + "\"";
  return {};
}

WindowsPc::Options OptionsFor(const Paths& paths) {
  WindowsPc::Options options;
  options.driver = paths.driver;
  options.cacheFolder = paths.output + "/../cache";
  options.programPath = paths.bench;
  options.onUsersScreen = true;
  return options;
}

bool ShowAddress(const Paths& paths, const std::string& address) {
  WindowsPc pc(OptionsFor(paths));
  return Show(pc, paths, "The ladder to " + address, "-PING_N 4 " + address, "address",
              [](const Lines& lines) {
                return Holds(lines, "Cannot") || !Holds(lines, "Reply From")
                           ? std::string("the target was not reached")
                           : std::string();
              });
}

bool ShowLaboratory(const Paths& paths) {
  if (const auto reason = Laboratory::WhyNot()) throw LabError("no laboratory on this machine: " + *reason);
  const Laboratory laboratory(paths.output + "/../cache");
  WindowsPc::Options options = OptionsFor(paths);
  options.networkNamespace = laboratory.Namespace(Host::Pc);
  WindowsPc pc(options);

  bool passed = Show(pc, paths, "Start-up", "", "start-up", [](const Lines& lines) {
    return Expect(lines, {"szDescription:", "iMaxUdpDg:", "-----"});
  });
  passed &= Show(pc, paths, "A controller on the PC's own subnet", std::string("-PING_N 4 ") + kNearAddress,
                 "same-subnet", [](const Lines& lines) {
                   return Expect(lines, {"PING test...", "0004 Reply From 192.168.1.100: bytes=32 time="});
                 });
  passed &= Show(pc, paths, "A controller behind the gateway", std::string("-PING_N 4 ") + kFarAddress,
                 "through-gateway", [](const Lines& lines) {
                   return Expect(lines, {"Target is not exist on the same network",
                                         "GateWay (192.168.1.1) PING test ....",
                                         "0004 Reply From 192.168.2.100: bytes=32 time="});
                 });
  laboratory.PullCable(Host::Gateway);
  passed &= Show(pc, paths, "The gateway's cable pulled", std::string("-PING_N 4 ") + kFarAddress,
                 "gateway-cable-pulled", [](const Lines& lines) {
                   return Expect(lines, {"ICMP_Error:11010", "Cannot ping to the Gateway",
                                         "Please check Gateway's address, cable and power"});
                 });
  return passed;
}

}  // namespace
}  // namespace tarvik::lab

int main(int count, char** arguments) {
  using namespace tarvik::lab;
  if (count < 5) {
    std::cerr << "run_ladders PROGRAM DRIVER BENCH OUTPUT [ADDRESS]\n";
    return 2;
  }
  const Paths paths{arguments[1], arguments[2], arguments[3], arguments[4]};
  try {
    RunOrThrow({"mkdir", "-p", paths.output});
    const bool passed = count > 5 ? ShowAddress(paths, arguments[5]) : ShowLaboratory(paths);
    std::cout << (passed ? "\nEverything is as it should be." : "\nNot everything is as it should be.")
              << std::endl;
    return passed ? 0 : 1;
  } catch (const LabError& error) {
    std::cout << "\nFAIL  " << error.what() << std::endl;
    return 1;
  }
}
