#pragma once

#include <string>
#include <vector>

#include "platform/windows_win32.h"

namespace tarvik::check {

/// How the server treats the PC.
struct FtpBehaviour {
  bool silent = false;                  ///< accepts the connection and says nothing
  std::string login = "230 logged in";  ///< the answer to PASS
  /// The first answer to LIST: 1xx announces the listing, anything else ends the command; empty = none.
  std::string list = "150 Here comes the directory listing.";
  int answerDelayMs = 0;  ///< before that answer
  enum class Data {
    Whole,  ///< sends the listing and closes the connection
    Cut,    ///< closes it in the middle of the second line
    Never,  ///< never opens it
  } data = Data::Whole;
  int dataDelayMs = 0;  ///< before it opens the data connection
};

/// A small FTP server on an unused loopback address, port 21, which works in separate threads. It lists
/// kFtpListing and opens data connections from a high port, as an ordinary user's program must. It listens
/// once constructed; destruction ends every connection within a second.
class FtpServer {
 public:
  /// Throws CheckError when no loopback address has port 21 free.
  explicit FtpServer(FtpBehaviour behaviour);
  FtpServer(const FtpServer&) = delete;
  FtpServer& operator=(const FtpServer&) = delete;
  ~FtpServer();

  /// Dotted; nothing listens on it after destruction.
  const std::string& Address() const { return address_; }

  /// What happened so far, one line each: milliseconds since the first connection, then a command of the PC
  /// or an event in brackets.
  std::string Log() const;
  /// The commands of the PC without times.
  std::vector<std::string> Commands() const;
  /// Number of control connections that neither side has closed.
  int OpenConnections() const;

 private:
  class Connection;

  static DWORD WINAPI Listen(LPVOID server);
  static DWORD WINAPI Serve(LPVOID connection);
  void Accept();
  void Record(const std::string& text, bool isCommand);
  /// Waits; false when the server is being destroyed meanwhile.
  bool Pause(int durationMs) const;

  const FtpBehaviour behaviour_;
  std::string address_;
  SOCKET listener_ = INVALID_SOCKET;
  HANDLE stop_;  ///< set by the destructor
  HANDLE thread_ = nullptr;
  std::vector<HANDLE> connections_;  ///< their threads; only Listen's thread adds to it

  mutable CRITICAL_SECTION lock_;  ///< of everything below
  std::string log_;
  std::vector<std::string> commands_;
  ULONGLONG firstEvent_ = 0;
  int open_ = 0;
};

/// The names and sizes of the listing: a directory and two files.
inline constexpr char kFtpListing[] =
    "drwxr-xr-x 2 0 0 0 Jan 01 00:00 PROGRAMS\r\n"
    "-rw-r--r-- 1 0 0 12345 Jan 01 00:00 O1000.NC\r\n"
    "-rw-r--r-- 1 0 0 3 Jan 01 00:00 A.TXT\r\n";

}  // namespace tarvik::check
