#pragma once

#include <string>
#include <vector>

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

// Facts about this Windows and its processes, as text for the report. What cannot be read is an empty text.

/// An exported call by its type; null when the library or the call does not exist on this Windows.
template <typename Call>
Call FindCall(HMODULE library, const char* name) {
  if (library == nullptr) return nullptr;
  return reinterpret_cast<Call>(reinterpret_cast<void*>(::GetProcAddress(library, name)));
}

struct Version {
  unsigned major = 0;
  unsigned minor = 0;
  unsigned build = 0;
};
/// The real version, whatever the manifest says (RtlGetVersion).
Version WindowsVersion();
std::string VersionText(const Version& version);
/// The file version of a program or library; empty when it has none.
std::string FileVersion(const std::wstring& path);

/// A text or number of the registry, in the 64-bit view; empty when the value does not exist.
std::string RegistryText(HKEY root, const wchar_t* key, const wchar_t* name);

/// Elevation, type of token and integrity level of a process.
std::string TokenText(HANDLE process);

/// The paths of all modules of a 32-bit process; the first is the program.
std::vector<std::wstring> Modules(HANDLE process);

std::string FirewallRules();
/// Which settings exist, not their texts.
std::string ProxySettings();
/// Whether Windows may use a proxy for FTP.
bool HasFtpProxy();
std::string Adapters();
/// The maker's libraries that a program would find on this PC, and the K7 service.
std::string ClosedLibraries();

}  // namespace tarvik::check
