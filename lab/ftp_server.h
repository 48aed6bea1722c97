#pragma once

#include <memory>
#include <string>

#include "lab/laboratory.h"
#include "lab/leavings.h"
#include "lab/process.h"

namespace tarvik::lab {

inline constexpr char kFtpUser[] = "cnc";
inline constexpr char kFtpPassword[] = "secret";

/// A real FTP server on port 21 of a host, in active mode only. It lets in anonymous users and the one
/// above, who may write, and serves one folder. Its end ends it. Everything throws LabError when the system
/// refuses.
class FtpServer {
 public:
  enum class Product { Vsftpd, Pyftpdlib };

  /// Why this machine cannot run it; empty when it can.
  static std::string UnsupportedReason(Product product);

  FtpServer(const Laboratory& net, Host host, Product product, const std::string& cacheFolder);

  /// Puts an empty directory, or a file of that many bytes, into the folder. Names are raw bytes.
  void AddDirectory(const std::string& name) const;
  void AddFile(const std::string& name, size_t bytes = 0) const;

  /// The folder as this machine sees it.
  const std::string& Folder() const { return files_; }

 private:
  TempDirectory work_;
  std::string files_;
  std::unique_ptr<Process> process_;
};

/// An FTP server that does something wrong. Its end ends it.
class FaultyFtpServer {
 public:
  /// `fault`: "silent" = says nothing at all; "drop VERB" = hangs up at that command, "drop LIST" in the
  /// middle of the listing's second line; "greeting N" = a greeting of N bytes without a line end, then hangs
  /// up; "says TEXT" = says that in the place of a greeting, then hangs up.
  FaultyFtpServer(const Laboratory& net, Host host, const std::string& fault);

 private:
  std::unique_ptr<Process> process_;
};

}  // namespace tarvik::lab
