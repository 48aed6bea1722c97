#include "about/module_check.h"

#include <utility>

namespace tarvik {

ModuleCheckResult CheckModules(FileUtil& files, bool withK7Api) {
  ModuleCheckResult result;
  const auto check = [&](const wchar_t* name, Boolean16& missing) {
    if (auto path = files.mSearchPath(name)) {
      result.found.push_back({name, std::move(*path)});
    } else {
      result.notFound.push_back(name);
      missing = true;
    }
  };
  check(L"NxLib32.dll", result.missing.cncLibrary);
  check(L"NxLibe1.dll", result.missing.cncLibrary);
  if (withK7Api) check(L"k7api.dll", result.missing.k7Api);
  check(L"SvcKit.dll", result.missing.serviceSetup);
  check(L"Wininet.dll", result.missing.internet);
  return result;
}

std::wstring VersionReport(FileUtil& files, const std::vector<FoundModule>& modules) {
  std::wstring report;
  for (const FoundModule& module : modules) report += GetModuleVersionLine(files, module) + L"\r\n";
  return report;
}

std::wstring GetModuleVersionLine(FileUtil& files, const FoundModule& module) {
  const auto version = files.mGetFileVersionInfoString(module.path);
  return module.name + (version ? L" Ver." + *version : std::wstring()) + L" (" + module.path + L")";
}

}  // namespace tarvik
