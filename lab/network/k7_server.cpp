#include "lab/network/k7_server.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::seconds kSlowServerStart(120);

/// Copies the server and its scenario into the folder. Returns the program's path.
std::string CopyServer(const TempDirectory& folder, const std::string& bench, const std::string& scenario) {
  std::string path = folder.Path() + "/K7Server.exe";
  fs::copy_file(bench + "/K7Server.exe", path);
  std::ofstream(folder.Path() + "/K7Server.scenario") << scenario;
  return path;
}

}  // namespace

K7ServerProgram::K7ServerProgram(WindowsPc& pc, const Laboratory& net, const std::string& bench,
                                 const std::string& cacheFolder, const std::string& scenario)
    : folder_(cacheFolder),
      process_(StartOnPc(pc, {WindowsPath(CopyServer(folder_, bench, scenario)), "-debug"},
                         net.Namespace(Host::Pc))) {
  const std::string line = process_->ReadLine(kSlowServerStart);
  if (!line.starts_with("listening on UDP port ")) throw LabError("The K7 server does not start: " + line);
}

K7ServerService::K7ServerService(WindowsPc& pc, const Laboratory& net, const std::string& bench,
                                 const std::string& cacheFolder, const std::string& scenario, State state)
    : folder_(cacheFolder), manager_(pc, bench, net.Namespace(Host::Pc)), state_(state) {
  manager_.Install(CopyServer(folder_, bench, scenario));
  if (state_ == State::Running) manager_.Start();
}

K7ServerService::~K7ServerService() {
  try {
    if (state_ == State::Running) manager_.Stop();
    manager_.Remove();
  } catch (const LabError& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
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
  // All prefixes share the file by hard links, so a new one replaces it.
  std::error_code ignored;
  fs::remove(path_, ignored);
  std::ofstream(path_, std::ios::binary) << bytes;
}

}  // namespace tarvik::lab
