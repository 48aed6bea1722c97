#pragma once

#include <optional>
#include <string>

#include "lab/host/leftovers.h"
#include "lab/host/process.h"

namespace tarvik::lab {

/// Why packages cannot be made here (a program not built, a tool missing); nothing when they can.
std::optional<std::string> PackagingUnsupportedReason();

/// The path of a file of the sources.
std::string SourcePath(const std::string& name);

std::string BytesOfFile(const std::string& path);

/// A code-signing certificate made for a test, and its key.
class Certificate {
 public:
  Certificate();

  /// The variables that make packaging/sign use it.
  Environment Variables() const;
  std::string Password() const { return "a secret, not an argument"; }
  /// Throws LabError unless the program has a valid signature of this certificate. Returns the tool's report.
  std::string Verify(const std::string& program) const;

 private:
  std::string In(const std::string& name) const { return directory_.Path() + "/" + name; }

  TempDirectory directory_;
};

/// What packaging/make-packages makes of the built programs, in a new directory.
class Packages {
 public:
  /// `environment`: changes for the script. Throws LabError with its output when it fails.
  explicit Packages(const Environment& environment = {});

  std::string Folder() const { return directory_.Path() + "/package"; }
  std::string Setup() const;
  std::string Portable() const;
  /// What the script wrote to its output.
  const std::string& Output() const { return output_; }
  /// The folder with the unpacked portable archive.
  std::string Unpack() const;

 private:
  TempDirectory directory_;
  std::string output_;
};

}  // namespace tarvik::lab
