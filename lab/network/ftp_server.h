#pragma once

#include <memory>
#include <optional>
#include <string>

#include "lab/host/leftovers.h"
#include "lab/host/process.h"
#include "lab/network/laboratory.h"

namespace tarvik::lab {

inline constexpr char kFtpUser[] = "cnc";
inline constexpr char kFtpPassword[] = "secret";

/// A real FTP server on port 21 of a host, in active mode only. It serves one folder to anonymous users and
/// to kFtpUser, who may also write. It listens once constructed and stops on destruction. Methods throw
/// LabError.
class FtpServer {
 public:
  enum class Product { Vsftpd, Pyftpdlib };
  /// The port from which the server opens data connections. Only Vsftpd has the choice.
  enum class DataPort { Twenty, High };

  /// Why this machine cannot run it; nothing when it can.
  static std::optional<std::string> UnsupportedReason(Product product);

  FtpServer(const Laboratory& net, Host host, Product product, const std::string& cacheFolder,
            DataPort dataPort = DataPort::Twenty);

  /// Adds an empty directory, or a file of `bytes` bytes, to the folder. Names are raw bytes in any code
  /// page.
  void AddDirectory(const std::string& name) const;
  void AddFile(const std::string& name, size_t bytes = 0) const;

  /// Path of the served folder on this machine.
  const std::string& Folder() const { return files_; }

 private:
  TempDirectory work_;
  std::string files_;
  std::unique_ptr<Process> process_;
};

/// An FTP server with a fault. It listens on port 21 once constructed and stops on destruction.
class FaultyFtpServer {
 public:
  /// `fault`: "silent" = accepts connections and sends nothing; "drop VERB" = closes the connection at that
  /// command, "drop LIST" in the middle of the listing's second line; "greeting N" = sends N bytes without a
  /// line end and closes; "says TEXT" = sends that instead of a greeting and closes; "answers VERB TEXT" =
  /// answers that command with that text. Throws LabError.
  FaultyFtpServer(const Laboratory& net, Host host, const std::string& fault);

 private:
  std::unique_ptr<Process> process_;
};

}  // namespace tarvik::lab
