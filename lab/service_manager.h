#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lab/process.h"
#include "lab/windows_pc.h"

namespace tarvik::lab {

/// The PC's services, by the bench's service-setup library, called from another program than the one under
/// test. Everything here throws LabError.
class ServiceManager {
 public:
  /// `bench`: folder of the 32-bit stand-ins. `networkNamespace`: where the services live; empty for the
  /// caller's own.
  ServiceManager(WindowsPc& pc, const std::string& bench, const std::string& networkNamespace = {});
  ServiceManager(const ServiceManager&) = delete;
  ServiceManager& operator=(const ServiceManager&) = delete;
  ~ServiceManager();

  /// A call of the library by its name and its arguments; its result as a number's text, and what it filled
  /// in.
  std::vector<std::string> Call(const std::vector<std::string>& command);

  /// The K7 service, started on demand.
  void Install(const std::string& program);
  void Remove();
  void Start();
  void Stop();

 private:
  std::unique_ptr<Process> caller_;
};

/// Starts a program of the PC's from outside, in the network namespace if one is named. The PC's screen and
/// variables are those of the PC's driver.
std::unique_ptr<Process> StartBeside(WindowsPc& pc, const std::vector<std::string>& program,
                                     const std::string& networkNamespace);

}  // namespace tarvik::lab
