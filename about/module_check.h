#pragma once

#include <string>
#include <vector>

#include "platform/boolean16.h"
#include "platform/file_util.h"

namespace tarvik {

/// Which of the optional modules this PC lacks. A test whose module is missing passes at once.
struct MissingModules {
  Boolean16 cncLibrary;    ///< NxLib32.dll or NxLibe1.dll, for CNC communication
  Boolean16 k7Api;         ///< k7api.dll; false when it was not looked for
  Boolean16 serviceSetup;  ///< SvcKit.dll
  Boolean16 internet;      ///< Wininet.dll

  bool Any() const { return cncLibrary || k7Api || serviceSetup || internet; }
};

/// An optional module that is on the search path.
struct FoundModule {
  std::wstring name;
  std::wstring path;  ///< full path, with the file name
};

struct ModuleCheckResult {
  MissingModules missing;
  std::vector<FoundModule> found;      ///< in the order of the check
  std::vector<std::wstring> notFound;  ///< file names, in the order of the check
};

/// Looks for every optional module on the search path; for the K7 API library only if `withK7Api`.
ModuleCheckResult CheckModules(FileUtil& files, bool withK7Api);

/// The version report: one line per module, each ending in "\r\n". Reading versions is slow, so call it only
/// when the report is to be shown.
std::wstring VersionReport(FileUtil& files, const std::vector<FoundModule>& modules);

/// One line of the version report, without a line break: "Name.dll Ver.1.2.3.4 (path)". A module without a
/// version resource has no "Ver." part.
std::wstring GetModuleVersionLine(FileUtil& files, const FoundModule& module);

}  // namespace tarvik
