#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ftp/internet_handle.h"
#include "ftp/wininet.h"
#include "platform/boolean16.h"
#include "platform/code_page.h"

namespace tarvik {

/// A date and time of day as a file time holds them. All zero = none.
struct DateAndTime {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;
  bool operator==(const DateAndTime&) const = default;
};

/// The date and time of a file time; none when it is 0 or beyond the year 9999.
DateAndTime ToDateAndTime(const FileTime& time);

/// One entry of a remote directory.
struct FtpFile {
  static constexpr uint32_t kDirectory = 0x10;  ///< bit of Attr

  std::wstring FileName;
  uint64_t Size = 0;  ///< bytes
  uint32_t Attr = 0;  ///< FILE_ATTRIBUTE_ bits
  DateAndTime ftCreate;
  DateAndTime ftWrite;
  DateAndTime ftAccess;
};

/// One session with at most one connection to an FTP server, in active mode. The session begins with the
/// object and ends with it. Operations on files and directories return false when there is no connection
/// or the server refuses; Response then tells why.
class clsFtpClient {
 public:
  clsFtpClient(Wininet& wininet, CodePage& codePage);

  /// Ends the connection that is open and makes a new one; an empty user and an empty password are not
  /// given at all, which makes it anonymous. False when the host is empty, refuses or does not answer.
  bool Connect(const std::wstring& host, const std::wstring& user, const std::wstring& password);
  void DisConnect() { connection_.Reset(); }

  /// The latest reply of the server that Connect was last called for, its lines separated by "\r\n"; empty
  /// when that server has not replied, or when the reply is longer than 16 MiB.
  std::wstring Response();

  /// The remote current directory; empty when it cannot be read.
  std::wstring CurrentDir();

  /// Lists the remote current directory through the three events below.
  void EnumFile();

  // Dormant: the FTP test only lists a directory and calls none of the operations below. Kept, and tested, as
  // a complete client for a test that transfers files.

  bool SetCurrentDir(const std::wstring& directory);

  /// The entry of that name in the remote current directory; nothing when there is none.
  std::optional<FtpFile> FileInformation(const std::wstring& name);

  /// Fetches a remote file into a local one, which must not exist yet when `failIfExists` says so.
  bool Get(const std::wstring& remoteFile, const std::wstring& localFile, bool failIfExists);
  bool Put(const std::wstring& localFile, const std::wstring& remoteFile);
  bool Delete(const std::wstring& file);
  bool Rename(const std::wstring& file, const std::wstring& newName);
  bool MakeDir(const std::wstring& directory);
  bool RemoveDir(const std::wstring& directory);

  uint16_t Port = 21;
  uint32_t TransferType = 2;      ///< 1 = text, 2 = binary
  Boolean16 Reload = true;        ///< ask the server, not the system's cache
  Boolean16 NoCacheWrite = true;  ///< what comes is not kept in the system's cache

  std::function<void(int32_t fileCnt)> onBeginEnumFiles;
  std::function<void(const FtpFile& file)> onEnumFile;
  std::function<void(bool enumerated)> onEndEnumFile;  ///< false when there is no listing

 private:
  /// The reply that the library holds, whichever server it came from.
  std::wstring HeldReply();
  uint32_t CacheFlags() const;
  /// The entries in the order found; false when there is no first one.
  bool ReadDirectory(std::vector<FindData>& entries);
  FtpFile ToFtpFile(const FindData& entry);
  std::string Ansi(const std::wstring& text) { return codePage_.ToAnsi(text); }

  Wininet& wininet_;
  CodePage& codePage_;
  InternetHandle session_;
  InternetHandle connection_;
  std::wstring earlierReply_;  ///< what the library held before the latest Connect
  bool hasReplied_ = false;    ///< the server of the latest Connect is known to have replied
};

}  // namespace tarvik
