#include "lab/windows_check/windows_facts_win32.h"

// After windows.h.
#include <psapi.h>
#include <winver.h>

namespace tarvik::check {
namespace {

/// Part of a token's information; zero when it cannot be read.
template <typename Value>
Value TokenPart(HANDLE token, TOKEN_INFORMATION_CLASS part) {
  Value value{};
  DWORD size = 0;
  ::GetTokenInformation(token, part, &value, sizeof value, &size);
  return value;
}

DWORD IntegrityLevel(HANDLE token) {
  BYTE bytes[256] = {};
  DWORD size = 0;
  if (!::GetTokenInformation(token, TokenIntegrityLevel, bytes, sizeof bytes, &size)) return 0;
  const PSID sid = reinterpret_cast<const TOKEN_MANDATORY_LABEL*>(bytes)->Label.Sid;
  return *::GetSidSubAuthority(sid, *::GetSidSubAuthorityCount(sid) - 1U);
}

}  // namespace

Version WindowsVersion() {
  using GetVersion = LONG(WINAPI*)(OSVERSIONINFOW*);
  OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  const auto getVersion = FindCall<GetVersion>(::GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
  if (getVersion != nullptr) getVersion(&version);
  return {version.dwMajorVersion, version.dwMinorVersion, version.dwBuildNumber};
}

std::string VersionText(const Version& version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
         std::to_string(version.build);
}

std::string FileVersion(const std::wstring& path) {
  DWORD ignored = 0;
  const DWORD size = ::GetFileVersionInfoSizeW(path.c_str(), &ignored);
  std::string bytes(size, '\0');
  VS_FIXEDFILEINFO* info = nullptr;
  UINT length = 0;
  if (size == 0 || !::GetFileVersionInfoW(path.c_str(), 0, size, bytes.data()) ||
      !::VerQueryValueW(bytes.data(), L"\\", reinterpret_cast<void**>(&info), &length) || info == nullptr)
    return {};
  // With a letter, so that it is not masked as an address.
  return "v" + std::to_string(HIWORD(info->dwFileVersionMS)) + "." +
         std::to_string(LOWORD(info->dwFileVersionMS)) + "." + std::to_string(HIWORD(info->dwFileVersionLS)) +
         "." + std::to_string(LOWORD(info->dwFileVersionLS));
}

std::string RegistryText(HKEY root, const wchar_t* key, const wchar_t* name) {
  HKEY opened = nullptr;
  if (::RegOpenKeyExW(root, key, 0, KEY_QUERY_VALUE | KEY_WOW64_64KEY, &opened) != ERROR_SUCCESS) return {};
  wchar_t text[1024] = {};
  DWORD type = 0;
  DWORD size = sizeof text - sizeof(wchar_t);
  std::string value;
  if (::RegQueryValueExW(opened, name, nullptr, &type, reinterpret_cast<BYTE*>(text), &size) == ERROR_SUCCESS)
    value = type == REG_DWORD ? std::to_string(text[0] | static_cast<unsigned>(text[1]) << 16) : ToUtf8(text);
  ::RegCloseKey(opened);
  return value;
}

std::string TokenText(HANDLE process) {
  HANDLE token = nullptr;
  if (!::OpenProcessToken(process, TOKEN_QUERY, &token)) return "the token cannot be read";
  const auto elevated = TokenPart<TOKEN_ELEVATION>(token, TokenElevation).TokenIsElevated;
  const auto type = static_cast<int>(TokenPart<TOKEN_ELEVATION_TYPE>(token, TokenElevationType));
  const auto isVirtual = TokenPart<DWORD>(token, TokenVirtualizationEnabled);
  char level[16] = {};
  ::wsprintfA(level, "0x%lX", IntegrityLevel(token));
  ::CloseHandle(token);
  return "elevated " + std::to_string(elevated) + ", type " + std::to_string(type) +
         " (1 = default, 2 = full, 3 = limited), integrity " + level + ", files virtualised " +
         std::to_string(isVirtual);
}

std::vector<std::wstring> Modules(HANDLE process) {
  std::vector<HMODULE> modules(1024);
  DWORD size = 0;
  const auto capacity = static_cast<DWORD>(modules.size() * sizeof(HMODULE));
  if (!::K32EnumProcessModulesEx(process, modules.data(), capacity, &size, LIST_MODULES_32BIT))
    throw CheckError("the modules cannot be listed: error " + std::to_string(::GetLastError()));
  modules.resize(std::min<size_t>(modules.size(), size / sizeof(HMODULE)));
  std::vector<std::wstring> paths;
  for (const HMODULE module : modules) {
    wchar_t path[MAX_PATH * 2] = {};
    ::K32GetModuleFileNameExW(process, module, path, MAX_PATH * 2);
    paths.emplace_back(path);
  }
  return paths;
}

}  // namespace tarvik::check
