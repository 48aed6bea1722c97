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

/// A date and time of day. All zero = none.
struct DateAndTime {
  int year = 0;
  int month = 0;  ///< 1 to 12
  int day = 0;    ///< 1 to 31
  int hour = 0;
  int minute = 0;
  int second = 0;
  bool operator==(const DateAndTime&) const = default;
};

/// The date and time of a file time; none when it is 0 or after the year 9999.
DateAndTime ToDateAndTime(const FileTime& time);

/// One entry of a remote directory.
struct FtpFile {
  static constexpr uint32_t kDirectory = 0x10;  ///< bit of Attr

  std::wstring FileName;
  uint64_t Size = 0;  ///< bytes
  uint32_t Attr = 0;  ///< FILE_ATTRIBUTE_* bits
  DateAndTime ftCreate;
  DateAndTime ftWrite;
  DateAndTime ftAccess;
};

/// A WinINet session with at most one connection to an FTP server, in active mode. The session lasts as long
/// as the object. Operations on files and directories return false when there is no connection or the server
/// refuses; Response then has the reason.
class clsFtpClient {
 public:
  clsFtpClient(Wininet& wininet, CodePage& codePage);

  /// Closes the connection, if there is one, and opens a new one. An empty user or password is not sent,
  /// which makes the login anonymous. False when the host is empty, refuses or does not answer.
  bool Connect(const std::wstring& host, const std::wstring& user, const std::wstring& password);
  void DisConnect() { connection_.Reset(); }

  /// Windows' error code of the latest Connect; 0 after a success, and when nothing was asked.
  uint32_t ConnectError() const { return connectError_; }

  /// The latest reply of the server of the latest Connect, lines separated by "\r\n"; empty when that server
  /// has not replied, or when the reply is longer than 16 MiB.
  std::wstring Response();

  /// The remote current directory; empty when it cannot be read.
  std::wstring CurrentDir();

  /// Lists the remote current directory through the three events below.
  void EnumFile();

  // Dormant: the FTP test only lists a directory and calls none of the operations below. Kept, and tested, as
  // a complete client for a test that transfers files.

  bool SetCurrentDir(const std::wstring& directory);

  /// The entry of that name in the remote current directory; nothing if absent.
  std::optional<FtpFile> FileInformation(const std::wstring& name);

  /// Downloads a remote file. Fails when the local file exists and `failIfExists` is set.
  bool Get(const std::wstring& remoteFile, const std::wstring& localFile, bool failIfExists);
  bool Put(const std::wstring& localFile, const std::wstring& remoteFile);
  bool Delete(const std::wstring& file);
  bool Rename(const std::wstring& file, const std::wstring& newName);
  bool MakeDir(const std::wstring& directory);
  bool RemoveDir(const std::wstring& directory);

  static constexpr uint16_t kDefaultPort = 21;
  uint16_t Port = kDefaultPort;
  uint32_t TransferType = 2;      ///< 1 = text, 2 = binary
  Boolean16 Reload = true;        ///< bypass the system's cache when reading
  Boolean16 NoCacheWrite = true;  ///< do not store results in the system's cache

  std::function<void(int32_t fileCnt)> onBeginEnumFiles;
  std::function<void(const FtpFile& file)> onEnumFile;
  std::function<void(bool enumerated)> onEndEnumFile;  ///< false when the directory could not be read

 private:
  /// The reply that the library has stored, from whichever server.
  std::wstring StoredReply();
  uint32_t CacheFlags() const;
  /// Adds the entries in the server's order; false when not even a first one can be read.
  bool ReadDirectory(std::vector<FindData>& entries);
  FtpFile ToFtpFile(const FindData& entry);
  std::string Ansi(const std::wstring& text) { return codePage_.ToAnsi(text); }

  Wininet& wininet_;
  CodePage& codePage_;
  InternetHandle session_;
  InternetHandle connection_;
  std::wstring earlierReply_;  ///< the reply stored before the latest Connect
  uint32_t connectError_ = 0;
  bool hasReplied_ = false;  ///< the server of the latest Connect is known to have replied
};

}  // namespace tarvik
