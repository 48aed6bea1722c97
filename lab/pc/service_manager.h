#pragma once

#include <memory>
#include <string>
#include <vector>

#include "lab/host/process.h"
#include "lab/pc/windows_pc.h"

namespace tarvik::lab {

/// Manages the PC's Windows services through the bench's service-setup library (SvcKit.dll), called from a
/// separate program (bench_caller.exe). Methods throw LabError.
class ServiceManager {
 public:
  /// `bench`: folder of the 32-bit stand-in libraries. `networkNamespace`: that of the PC; empty = this
  /// process'.
  ServiceManager(WindowsPc& pc, const std::string& bench, const std::string& networkNamespace = {});
  ServiceManager(const ServiceManager&) = delete;
  ServiceManager& operator=(const ServiceManager&) = delete;
  ~ServiceManager();

  /// Calls a function of the library: its name, then its arguments. Returns the result as decimal text, then
  /// the output arguments.
  std::vector<std::string> Call(const std::vector<std::string>& command);

  /// Registers the K7 service with start type "on demand". `program`: path on this machine.
  void Install(const std::string& program);
  void Remove();
  void Start();
  void Stop();

 private:
  std::unique_ptr<Process> caller_;
};

/// Starts a Windows program on the PC without the window driver; its standard input and output are pipes.
/// `networkNamespace`: that of the PC; empty = this process'.
std::unique_ptr<Process> StartOnPc(WindowsPc& pc, const std::vector<std::string>& program,
                                   const std::string& networkNamespace);

}  // namespace tarvik::lab
