#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/os_version.h"

namespace tarvik {

/// The PC's clock and its distance from UTC. Months and days count from 1.
struct ZonedTime {
  int32_t year = 0;
  int32_t month = 0;
  int32_t day = 0;
  int32_t hour = 0;
  int32_t minute = 0;
  std::optional<int32_t> minutesEast{};  ///< local time less UTC; nothing when Windows does not report it
};

enum class UserFolder { Desktop, PublicDocuments };

/// Queries of this PC (version, profile files, registry) and of the user's regional settings.
class System {
 public:
  virtual ~System() = default;

  /// Fills the record. False when the version cannot be queried.
  virtual bool GetVersionExA(OsVersionRecord& record) = 0;

  /// GetPrivateProfileStringA with an empty default: copies the value, truncated to fit and NUL-terminated,
  /// to `buffer` and returns its length without the NUL. `path` is wide, because the ANSI code page cannot
  /// represent every path.
  virtual uint32_t GetPrivateProfileStringA(const std::string& section, const std::string& key, char* buffer,
                                            uint32_t bufferSize, const std::wstring& path) = 0;

  /// The text value `name` of the key below HKEY_LOCAL_MACHINE, with environment variables expanded if it is
  /// REG_EXPAND_SZ. When the program's own view of the registry has none, that in the view of 64-bit
  /// programs. Nothing when both are missing, not a text or cannot be read.
  virtual std::optional<std::wstring> ReadMachineRegistry(const std::wstring& key,
                                                          const std::wstring& name) = 0;

  /// LCMapString with LCMAP_SORTKEY: bytes that compare as the texts do in the user's locale, ignoring case.
  /// Making a key costs as much as comparing two texts, so a sort makes the key of each text once.
  virtual std::string SortKey(std::wstring_view text) = 0;

  /// The current local time in the user's formats: the short date, a space, the time.
  virtual std::wstring GeneralDateTime() = 0;

  /// The same time as numbers.
  virtual ZonedTime LocalTime() = 0;

  /// The name that the user signed in with; empty when Windows does not report it.
  virtual std::wstring UserName() = 0;

  /// The path of the folder, which may be on a server and need not exist; empty when Windows does not report
  /// it. Does not wait for a server.
  virtual std::wstring FolderOf(UserFolder folder) = 0;
};

/// The queries of this PC (kernel32, advapi32, shell32). Keeps the text of the latest profile file and reads
/// a file only when the path changes, so later changes to the file are not seen.
std::unique_ptr<System> MakeSystem();

}  // namespace tarvik
