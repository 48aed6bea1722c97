#pragma once

#include <string>
#include <vector>

#include "platform/boolean16.h"
#include "platform/file_util.h"

namespace tarvik {

/// Which of the optional modules this PC lacks. A test whose module is missing passes at once.
struct MissingModules {
  Boolean16 cncLibrary;    ///< one of the two libraries of the CNC communication
  Boolean16 k7Api;         ///< the K7 API library; false when it was not looked for
  Boolean16 serviceSetup;  ///< the service-setup library
  Boolean16 internet;      ///< the internet library

  bool Any() const { return cncLibrary || k7Api || serviceSetup || internet; }
};

/// An optional module that is on the search path.
struct FoundModule {
  std::wstring name;
  std::wstring path;
};

struct ModuleCheckResult {
  MissingModules missing;
  std::vector<FoundModule> found;  ///< in the order of the check
};

/// Looks for every optional module on the search path; for the K7 API library only on request.
ModuleCheckResult CheckModules(FileUtil& files, bool withK7Api);

/// The version report: a line for each module, followed by "\r\n". Reading versions is slow, so this waits
/// until somebody wants to see them.
std::wstring VersionReport(FileUtil& files, const std::vector<FoundModule>& modules);

/// The module's line of the version report.
std::wstring GetModuleVersionLine(FileUtil& files, const FoundModule& module);

}  // namespace tarvik
