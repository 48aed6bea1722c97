#include "lab/pc/service_manager.h"

#include <cstdio>

#include "lab/host/own_network.h"
#include "lab/pc/driver_protocol.h"

namespace tarvik::lab {
namespace {

constexpr char kService[] = "K7Server";
constexpr char kStateTimeOutMs[] = "60000";
constexpr std::chrono::seconds kSlowCallerStart(120);

}  // namespace

ServiceManager::ServiceManager(WindowsPc& pc, const std::string& bench, const std::string& networkNamespace)
    : caller_(StartOnPc(pc, {WindowsPath(bench + "/bench_caller.exe")}, networkNamespace)) {}

ServiceManager::~ServiceManager() {
  try {
    caller_->CloseInput();
    caller_->Wait(std::chrono::seconds(10));
  } catch (const LabError& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
}

std::vector<std::string> ServiceManager::Call(const std::vector<std::string>& command) {
  caller_->Write(JoinFields(command) + "\n");
  std::vector<std::string> answer = SplitFields(caller_->ReadLine(kSlowCallerStart));
  if (answer.size() < 2 || answer[0] != "ok")
    throw LabError(command.front() + ": " + (answer.size() < 2 ? "no answer" : answer[1]));
  answer.erase(answer.begin());
  return answer;
}

void ServiceManager::Install(const std::string& program) {
  constexpr char kOnDemand[] = "3";
  const std::string result =
      Call({"QSetup_InstallService", kService, "K7 server", WindowsPath(program), kOnDemand}).front();
  if (result != "0") throw LabError("The K7 service cannot be installed: " + result);
}

void ServiceManager::Remove() { Call({"QSetup_RemoveService", kService}); }

void ServiceManager::Start() { Call({"QSetup_StartService", kService, kStateTimeOutMs}); }

void ServiceManager::Stop() { Call({"QSetup_StopService", kService, kStateTimeOutMs}); }

std::unique_ptr<Process> StartOnPc(WindowsPc& pc, const std::vector<std::string>& program,
                                   const std::string& networkNamespace) {
  // The first program that starts in a Wine prefix gives it screen and environment; that must be the driver.
  pc.Ask({"clipboard_get"});
  Process::Options options;
  options.environment = pc.Prefix().Variables();
  options.environment["DISPLAY"] = std::nullopt;
  std::vector<std::string> command = {"wine"};
  command.insert(command.end(), program.begin(), program.end());
  return std::make_unique<Process>(InNamespace(networkNamespace, command), options);
}

}  // namespace tarvik::lab
