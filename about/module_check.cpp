#include "about/module_check.h"

namespace tarvik {

ModuleCheckResult CheckModules(FileUtil& files, bool withK7Api) {
  ModuleCheckResult result;
  const auto check = [&](const wchar_t* name, Boolean16& missing) {
    if (files.mSearchPath(name))
      result.found.emplace_back(name);
    else
      missing = true;
  };
  check(L"NxLib32.dll", result.missing.cncLibrary);
  check(L"NxLibe1.dll", result.missing.cncLibrary);
  if (withK7Api) check(L"k7api.dll", result.missing.k7Api);
  check(L"SvcKit.dll", result.missing.serviceSetup);
  check(L"Wininet.dll", result.missing.internet);
  return result;
}

std::wstring VersionReport(FileUtil& files, const std::vector<std::wstring>& modules) {
  std::wstring report;
  for (const std::wstring& name : modules)
    if (const auto line = GetModuleVersionLine(files, name)) report += *line + L"\r\n";
  return report;
}

std::optional<std::wstring> GetModuleVersionLine(FileUtil& files, const std::wstring& name) {
  const auto path = files.mSearchPath(name);
  if (!path) return std::nullopt;
  const auto version = files.mGetFileVersionInfoString(*path);
  return name + (version ? L" Ver." + *version : std::wstring()) + L" (" + *path + L")";
}

}  // namespace tarvik
