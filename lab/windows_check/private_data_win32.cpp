#include "lab/windows_check/private_data_win32.h"

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {
namespace {

void AddComputerName(Mask& mask, COMPUTER_NAME_FORMAT format, const char* substitute) {
  std::wstring name(1024, L'\0');
  auto length = static_cast<DWORD>(name.size());
  if (!::GetComputerNameExW(format, name.data(), &length)) return;
  name.resize(length);
  mask.AddWord(ToUtf8(name), substitute);
}

std::wstring LastPart(const std::wstring& path) { return path.substr(path.rfind(L'\\') + 1); }

void AddProfileFolder(Mask& mask) {
  std::wstring path(32767, L'\0');
  path.resize(::GetEnvironmentVariableW(L"USERPROFILE", path.data(), static_cast<DWORD>(path.size())));
  if (path.empty()) return;
  // The folder keeps the user's first name when he is renamed, and programs may show its short form.
  mask.AddWord(ToUtf8(LastPart(path)), "[user]");
  std::wstring shortPath(32767, L'\0');
  shortPath.resize(::GetShortPathNameW(path.c_str(), shortPath.data(), static_cast<DWORD>(shortPath.size())));
  if (!shortPath.empty()) mask.AddWord(ToUtf8(LastPart(shortPath)), "[user]");
}

}  // namespace

Mask MaskOfThisPc() {
  Mask mask;
  std::wstring user(1024, L'\0');
  auto length = static_cast<DWORD>(user.size());
  if (::GetUserNameW(user.data(), &length) && length > 0) {
    user.resize(length - 1);
    mask.AddWord(ToUtf8(user), "[user]");
  }
  AddProfileFolder(mask);
  AddComputerName(mask, ComputerNameNetBIOS, "[computer]");
  AddComputerName(mask, ComputerNameDnsHostname, "[computer]");
  AddComputerName(mask, ComputerNameDnsFullyQualified, "[computer]");
  AddComputerName(mask, ComputerNameDnsDomain, "[domain]");
  return mask;
}

}  // namespace tarvik::check
