#include "lab/service_manager.h"

#include <cstdio>

#include "lab/driver_protocol.h"

namespace tarvik::lab {
namespace {

constexpr char kService[] = "K7Server";
constexpr char kLongestWait[] = "60000";  ///< for a service's state, in milliseconds
constexpr std::chrono::seconds kSlowStart(120);

}  // namespace

ServiceManager::ServiceManager(WindowsPc& pc, const std::string& bench, const std::string& networkNamespace)
    : caller_(StartBeside(pc, {WindowsPath(bench + "/bench_caller.exe")}, networkNamespace)) {}

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
  std::vector<std::string> answer = SplitFields(caller_->ReadLine(kSlowStart));
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

void ServiceManager::Start() { Call({"QSetup_StartService", kService, kLongestWait}); }

void ServiceManager::Stop() { Call({"QSetup_StopService", kService, kLongestWait}); }

std::unique_ptr<Process> StartBeside(WindowsPc& pc, const std::vector<std::string>& program,
                                     const std::string& networkNamespace) {
  // A Windows starts with its first program, and takes screen and variables from it: the driver's.
  pc.Ask({"clipboard_get"});
  Process::Options options;
  options.environment = pc.Prefix().Variables();
  options.environment["DISPLAY"] = std::nullopt;
  std::vector<std::string> arguments;
  if (!networkNamespace.empty()) arguments = {"ip", "netns", "exec", networkNamespace};
  arguments.push_back("wine");
  arguments.insert(arguments.end(), program.begin(), program.end());
  return std::make_unique<Process>(arguments, options);
}

}  // namespace tarvik::lab
