#include "lab/k7_server.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "lab/driver_protocol.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

constexpr char kService[] = "K7Server";
constexpr std::chrono::seconds kSlowStart(120);

/// Copies the server into the folder, its scenario beside it.
std::string LayServer(const WorkFolder& folder, const std::string& bench, const std::string& scenario) {
  std::string path = folder.Path() + "/K7Server.exe";
  fs::copy_file(bench + "/K7Server.exe", path);
  std::ofstream(folder.Path() + "/K7Server.scenario") << scenario;
  return path;
}

std::unique_ptr<Process> StartOn(WindowsPc& pc, const Laboratory& net,
                                 const std::vector<std::string>& program) {
  // A Windows starts with its first program, and takes screen and variables from it: the driver's.
  pc.Ask({"clipboard_get"});
  Process::Options options;
  options.environment = pc.Prefix().Variables();
  options.environment["DISPLAY"] = std::nullopt;
  std::vector<std::string> arguments = {"ip", "netns", "exec", net.Namespace(Host::Pc), "wine"};
  arguments.insert(arguments.end(), program.begin(), program.end());
  return std::make_unique<Process>(arguments, options);
}

}  // namespace

K7ServerProgram::K7ServerProgram(WindowsPc& pc, const Laboratory& net, const std::string& bench,
                                 const std::string& cacheFolder, const std::string& scenario)
    : folder_(cacheFolder),
      process_(StartOn(pc, net, {WindowsPath(LayServer(folder_, bench, scenario)), "-debug"})) {
  const std::string line = process_->ReadLine(kSlowStart);
  if (!line.starts_with("listening on UDP port ")) throw LabError("The K7 server: " + line);
}

K7ServerService::K7ServerService(WindowsPc& pc, const Laboratory& net, const std::string& bench,
                                 const std::string& cacheFolder, const std::string& scenario, State state)
    : folder_(cacheFolder), state_(state) {
  const std::string program = LayServer(folder_, bench, scenario);
  caller_ = StartOn(pc, net, {WindowsPath(bench + "/bench_caller.exe")});
  constexpr char kOnDemand[] = "3";
  const std::string result =
      Call({"QSetup_InstallService", kService, "K7 server", WindowsPath(program), kOnDemand});
  if (result != "0") throw LabError("The K7 service cannot be installed: " + result);
  if (state_ == State::Running) Call({"QSetup_StartService", kService, "60000"});
}

K7ServerService::~K7ServerService() {
  try {
    if (state_ == State::Running) Call({"QSetup_StopService", kService, "60000"});
    Call({"QSetup_RemoveService", kService});
    caller_->CloseInput();
    caller_->Wait(std::chrono::seconds(10));
  } catch (const LabError& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
}

std::string K7ServerService::Call(const std::vector<std::string>& command) {
  caller_->Write(JoinFields(command) + "\n");
  const std::vector<std::string> answer = SplitFields(caller_->ReadLine(kSlowStart));
  if (answer.size() < 2 || answer[0] != "ok") {
    throw LabError(command.front() + ": " + (answer.size() < 2 ? "no answer" : answer[1]));
  }
  return answer[1];
}

ServicesFile::ServicesFile(WindowsPc& pc, const std::vector<std::string>& lines)
    : path_(pc.Prefix().Folder() + "/drive_c/windows/system32/drivers/etc/services") {
  std::ifstream file(path_, std::ios::binary);
  before_.assign(std::istreambuf_iterator<char>(file), {});
  std::string bytes;
  for (const std::string& line : lines) bytes.append(line).append("\r\n");
  Replace(bytes);
}

ServicesFile::~ServicesFile() { Replace(before_); }

void ServicesFile::Replace(const std::string& bytes) const {
  // The system's own file is shared with other prefixes, so it is replaced and not written to.
  std::error_code ignored;
  fs::remove(path_, ignored);
  std::ofstream(path_, std::ios::binary) << bytes;
}

}  // namespace tarvik::lab
