// Facts about this PC's network: firewall, proxy, adapters, the maker's libraries.

#include <algorithm>

#include "lab/windows_check/windows_facts_win32.h"
// After windows.h.
#include <iphlpapi.h>
#include <winsvc.h>

namespace tarvik::check {
namespace {

constexpr wchar_t kFirewall[] =
    L"SYSTEM\\CurrentControlSet\\Services\\SharedAccess\\Parameters\\FirewallPolicy";

constexpr wchar_t kInternet[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";

/// All text values of a key that contain the word, in any case.
std::string ValuesWith(const std::wstring& path, const std::wstring& word) {
  HKEY key = nullptr;
  if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_QUERY_VALUE | KEY_WOW64_64KEY, &key) !=
      ERROR_SUCCESS)
    return {};
  std::string found;
  std::wstring name(16384, L'\0');
  std::wstring value(16384, L'\0');
  for (DWORD index = 0;; ++index) {
    auto nameLength = static_cast<DWORD>(name.size());
    auto size = static_cast<DWORD>((value.size() - 1) * sizeof(wchar_t));
    DWORD type = 0;
    const LSTATUS result = ::RegEnumValueW(key, index, name.data(), &nameLength, nullptr, &type,
                                           reinterpret_cast<BYTE*>(value.data()), &size);
    if (result == ERROR_NO_MORE_ITEMS) break;
    if (result != ERROR_SUCCESS || type != REG_SZ) continue;
    const std::wstring text = value.substr(0, size / sizeof(wchar_t)).c_str();
    const auto place =
        std::search(text.begin(), text.end(), word.begin(), word.end(),
                    [](wchar_t a, wchar_t b) { return (a >= L'A' && a <= L'Z' ? a + 32 : a) == b; });
    if (place != text.end()) found += "\nrule: " + ToUtf8(text);
  }
  ::RegCloseKey(key);
  return found;
}

std::string AddressList(const IP_ADDR_STRING* first) {
  std::string text;
  for (; first != nullptr; first = first->Next)
    text.append(" ").append(first->IpAddress.String).append("/").append(first->IpMask.String);
  return text;
}

std::string MacText(const IP_ADAPTER_INFO& adapter) {
  std::string text;
  for (UINT i = 0; i < std::min<UINT>(adapter.AddressLength, MAX_ADAPTER_ADDRESS_LENGTH); ++i) {
    char byte[8] = {};
    ::wsprintfA(byte, i == 0 ? "%02X" : "-%02X", adapter.Address[i]);
    text += byte;
  }
  return text;
}

/// Old calls return text in the code page of the system.
std::string FromAnsi(const char* text) {
  wchar_t wide[512] = {};
  ::MultiByteToWideChar(CP_ACP, 0, text, -1, wide, 511);
  return ToUtf8(wide);
}

std::string K7Service() {
  const SC_HANDLE manager = ::OpenSCManagerW(nullptr, nullptr, SC_MANAGER_CONNECT);
  if (manager == nullptr) return "the service manager cannot be opened";
  const SC_HANDLE service = ::OpenServiceW(manager, L"K7Server", SERVICE_QUERY_STATUS);
  std::string text = "not installed";
  SERVICE_STATUS status{};
  if (service != nullptr) {
    ::QueryServiceStatus(service, &status);
    text = "state " + std::to_string(status.dwCurrentState) + " (1 = stopped, 4 = running)";
    ::CloseServiceHandle(service);
  }
  ::CloseServiceHandle(manager);
  return text;
}

}  // namespace

std::string FirewallRules() {
  std::string details;
  for (const wchar_t* const profile : {L"StandardProfile", L"PublicProfile", L"DomainProfile"}) {
    const std::wstring key = std::wstring(kFirewall) + L"\\" + profile;
    details += ToUtf8(profile) + ": " + RegistryText(HKEY_LOCAL_MACHINE, key.c_str(), L"EnableFirewall") +
               " (1 = on)\n";
  }
  const std::string rules = ValuesWith(std::wstring(kFirewall) + L"\\FirewallRules", L"tarvik");
  return details + (rules.empty() ? "no rule names the program" : rules.substr(1));
}

std::string ProxySettings() {
  std::string details = "ProxyEnable: " + RegistryText(HKEY_CURRENT_USER, kInternet, L"ProxyEnable") + "\n";
  // The names of a company's servers are private.
  for (const wchar_t* const name : {L"ProxyServer", L"ProxyOverride", L"AutoConfigURL"}) {
    const bool isSet = !RegistryText(HKEY_CURRENT_USER, kInternet, name).empty();
    details += ToUtf8(name) + (isSet ? ": set\n" : ": not set\n");
  }
  return details;
}

bool HasFtpProxy() {
  if (!RegistryText(HKEY_CURRENT_USER, kInternet, L"AutoConfigURL").empty()) return true;
  if (RegistryText(HKEY_CURRENT_USER, kInternet, L"ProxyEnable") != "1") return false;
  // One server for everything, or "http=...;ftp=...".
  const std::string server = RegistryText(HKEY_CURRENT_USER, kInternet, L"ProxyServer");
  return server.find('=') == std::string::npos || server.find("ftp=") != std::string::npos;
}

std::string Adapters() {
  ULONG size = 0;
  ::GetAdaptersInfo(nullptr, &size);
  // Room for adapters that appear between the calls.
  size += 8 * sizeof(IP_ADAPTER_INFO);
  std::vector<IP_ADAPTER_INFO> adapters(size / sizeof(IP_ADAPTER_INFO));
  size = static_cast<ULONG>(adapters.size() * sizeof(IP_ADAPTER_INFO));
  if (::GetAdaptersInfo(adapters.data(), &size) != ERROR_SUCCESS) return "GetAdaptersInfo reports none";
  std::string details;
  for (const IP_ADAPTER_INFO* next = adapters.data(); next != nullptr; next = next->Next) {
    details += FromAnsi(next->Description) + ", type " + std::to_string(next->Type) + ", MAC " +
               MacText(*next) + "\n  addresses" + AddressList(&next->IpAddressList) + "\n  gateways" +
               AddressList(&next->GatewayList) + ", DHCP " + std::to_string(next->DhcpEnabled) + "\n";
  }
  return details;
}

std::string ClosedLibraries() {
  std::string details;
  for (const wchar_t* const name :
       {L"ObryConfIO.dll", L"txcodec.dll", L"NxLib32.dll", L"NxLibe1.dll", L"SvcKit.dll", L"k7api.dll"}) {
    wchar_t path[MAX_PATH] = {};
    const DWORD length = ::SearchPathW(nullptr, name, nullptr, MAX_PATH, path, nullptr);
    const bool found = length > 0 && length < MAX_PATH;
    details += ToUtf8(name) + ": " + (found ? ToUtf8(path) + " " + FileVersion(path) : "not found") + "\n";
  }
  return details + "K7Server service: " + K7Service();
}

}  // namespace tarvik::check
