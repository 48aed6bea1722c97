#include "platform/system.h"

#include <algorithm>

#include "platform/files.h"
#include "platform/profile_section.h"
#include "platform/registry_win32.h"
#include "platform/system_library_win32.h"
#include "platform/windows_win32.h"

namespace tarvik {
namespace {

static_assert(sizeof(OsVersionRecord) == sizeof(OSVERSIONINFOA));

class Win32System final : public System {
 public:
  // The manifest names the supported systems, so Windows reports its real version.
  bool GetVersionExA(OsVersionRecord& record) override {
    return ::GetVersionExA(reinterpret_cast<OSVERSIONINFOA*>(&record)) != 0;
  }
  // Returns what kernel32's call returns, except that a UTF-16 file is not understood. That call reads the
  // file again for every key, and cannot open a path outside the ANSI code page.
  uint32_t GetPrivateProfileStringA(const std::string& section, const std::string& key, char* buffer,
                                    uint32_t bufferSize, const std::wstring& path) override {
    if (bufferSize == 0) return 0;
    if (path != profilePath_) {
      profile_ = files_->Read(path).value_or(std::string());
      profilePath_ = path;
    }
    std::string_view value = ProfileValue(ReadProfileSection(profile_, section), key);
    value = value.substr(0, bufferSize - 1);
    *std::copy(value.begin(), value.end(), buffer) = '\0';
    return static_cast<uint32_t>(value.size());
  }
  std::optional<std::wstring> ReadMachineRegistry(const std::wstring& key,
                                                  const std::wstring& name) override {
    if (auto text = ReadRegistryText(HKEY_LOCAL_MACHINE, key, name)) return text;
    // 64-bit Windows shows a 32-bit program a separate view, in which some values are missing.
    return ReadRegistryText(HKEY_LOCAL_MACHINE, key, name, KEY_WOW64_64KEY);
  }
  std::string SortKey(std::wstring_view text) override {
    constexpr DWORD flags = LCMAP_SORTKEY | NORM_IGNORECASE;
    const auto length = static_cast<int>(text.size());
    // With LCMAP_SORTKEY the call writes and counts bytes. Asking for the size first would double the time to
    // sort a long directory listing.
    char usual[1024];
    const int size = ::LCMapStringW(LOCALE_USER_DEFAULT, flags, text.data(), length,
                                    reinterpret_cast<wchar_t*>(usual), sizeof usual);
    if (size > 0) return std::string(usual, static_cast<size_t>(size));
    const int needed = ::LCMapStringW(LOCALE_USER_DEFAULT, flags, text.data(), length, nullptr, 0);
    if (needed <= 0) return {};
    std::string key(static_cast<size_t>(needed), '\0');
    ::LCMapStringW(LOCALE_USER_DEFAULT, flags, text.data(), length, reinterpret_cast<wchar_t*>(key.data()),
                   needed);
    return key;
  }
  std::wstring GeneralDateTime() override {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    // A custom format has at most 80 characters; the formatted text can be a few times longer.
    constexpr int kMaxCharacters = 512;
    wchar_t date[kMaxCharacters] = {};
    wchar_t time[kMaxCharacters] = {};
    ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &now, nullptr, date, kMaxCharacters);
    ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &now, nullptr, time, kMaxCharacters);
    return std::wstring(date) + L" " + time;
  }
  ZonedTime LocalTime() override {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    TIME_ZONE_INFORMATION zone{};
    const DWORD season = ::GetTimeZoneInformation(&zone);
    ZonedTime time{now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute};
    if (season == TIME_ZONE_ID_INVALID) return time;
    const LONG bias = season == TIME_ZONE_ID_DAYLIGHT   ? zone.DaylightBias
                      : season == TIME_ZONE_ID_STANDARD ? zone.StandardBias
                                                        : 0;
    time.minutesEast = static_cast<int32_t>(-zone.Bias - bias);
    return time;
  }
  std::wstring UserName() override {
    constexpr DWORD kMaxUserName = 257;  // UNLEN + 1
    wchar_t name[kMaxUserName] = {};
    DWORD size = kMaxUserName;
    return ::GetUserNameW(name, &size) ? name : L"";
  }
  std::wstring FolderOf(UserFolder folder) override {
    constexpr int kDesktopDirectory = 0x10;  // CSIDL_DESKTOPDIRECTORY
    constexpr int kCommonDocuments = 0x2E;   // CSIDL_COMMON_DOCUMENTS
    constexpr int kDoNotVerify = 0x4000;     // CSIDL_FLAG_DONT_VERIFY: a server may not answer
    using GetFolder = HRESULT(WINAPI*)(HWND, int, HANDLE, DWORD, wchar_t*);
    SystemLibrary shell;
    shell.Load(L"shell32.dll");
    const auto getFolder = shell.Find<GetFolder>("SHGetFolderPathW");
    const int id = folder == UserFolder::Desktop ? kDesktopDirectory : kCommonDocuments;
    wchar_t path[MAX_PATH] = {};
    if (getFolder == nullptr || FAILED(getFolder(nullptr, id | kDoNotVerify, nullptr, 0, path))) return {};
    return path;
  }

 private:
  std::unique_ptr<Files> files_ = MakeFiles();
  std::wstring profilePath_;  ///< of the file read last
  std::string profile_;       ///< its text
};

}  // namespace

std::unique_ptr<System> MakeSystem() { return std::make_unique<Win32System>(); }

}  // namespace tarvik
