#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lab/laboratory.h"
#include "lab/leavings.h"
#include "lab/process.h"
#include "lab/service_manager.h"
#include "lab/windows_pc.h"

namespace tarvik::lab {

/// The practice bench's K7 server on the PC, as an ordinary program on its port. It answers when the object
/// stands; its end ends it. `bench`: folder of the 32-bit stand-ins. Everything here throws LabError.
class K7ServerProgram {
 public:
  K7ServerProgram(WindowsPc& pc, const Laboratory& net, const std::string& bench,
                  const std::string& cacheFolder, const std::string& scenario);

 private:
  TempDirectory folder_;
  std::unique_ptr<Process> process_;
};

/// The same as the PC's Windows service "K7Server", removed by the object's end.
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

/// The PC's services file with other lines, until the object's end.
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
