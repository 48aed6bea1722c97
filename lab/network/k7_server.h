#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lab/host/leftovers.h"
#include "lab/host/process.h"
#include "lab/network/laboratory.h"
#include "lab/pc/service_manager.h"
#include "lab/pc/windows_pc.h"

namespace tarvik::lab {

// All constructors throw LabError. `bench`: folder of the 32-bit stand-in libraries and K7Server.exe;
// `scenario`: text of a K7 scenario, see bench/README.md.

/// The practice bench's K7 server on the PC, run as an ordinary program. It listens once constructed and
/// stops on destruction.
class K7ServerProgram {
 public:
  K7ServerProgram(WindowsPc& pc, const Laboratory& net, const std::string& bench,
                  const std::string& cacheFolder, const std::string& scenario);

 private:
  TempDirectory folder_;
  std::unique_ptr<Process> process_;
};

/// The same installed as the PC's Windows service "K7Server". Stopped and removed on destruction.
class K7ServerService {
 public:
  enum class State { Stopped, Running };

  K7ServerService(WindowsPc& pc, const Laboratory& net, const std::string& bench,
                  const std::string& cacheFolder, const std::string& scenario, State state);
  K7ServerService(const K7ServerService&) = delete;
  K7ServerService& operator=(const K7ServerService&) = delete;
  ~K7ServerService();

 private:
  TempDirectory folder_;
  ServiceManager manager_;
  State state_;
};

/// Replaces the PC's services file by these lines; destruction restores the former contents.
class ServicesFile {
 public:
  ServicesFile(WindowsPc& pc, const std::vector<std::string>& lines);
  ServicesFile(const ServicesFile&) = delete;
  ServicesFile& operator=(const ServicesFile&) = delete;
  ~ServicesFile();

 private:
  void Replace(const std::string& bytes) const;

  std::string path_;
  std::string before_;
};

}  // namespace tarvik::lab
