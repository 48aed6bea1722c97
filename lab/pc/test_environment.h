#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lab/host/leftovers.h"
#include "lab/pc/windows_pc.h"

namespace tarvik::lab {

// The environment of the tests of the shipped program. CTest sets these variables: TARVIK_EXE and
// TARVIK_DRIVER (programs), TARVIK_BENCH and TARVIK_CACHE (folders).

/// Why tests with real windows cannot run here (Wine or Xvfb missing, a program not built); nothing when they
/// can.
std::optional<std::string> WindowsUnsupportedReason();

/// The shipped program under test.
std::string ProgramPath();

/// The general edition, which is always 32-bit.
std::string GeneralProgramPath();

/// The folder with the stand-in for an old system's ipconfig command, to put into WINEPATH.
std::string OldSystemFolder();

/// The lines of a text file; none when it does not exist.
std::vector<std::string> LinesOfFile(const std::string& path);

/// A copy of the program in a new directory, deleted on destruction.
class ProgramCopy {
 public:
  enum class LanguageFiles { Beside, Absent };

  explicit ProgramCopy(LanguageFiles files);

  const std::string& Folder() const { return directory_.Path(); }
  std::string Path() const { return Folder() + "/Tarvik.exe"; }

 private:
  TempDirectory directory_;
};

/// The PC that most tests need: English, 96 dpi, on an invisible display, with the stand-in libraries. It has
/// no theme: under Wine, drawing it takes a fifth of a program's processor time. Tests of what is drawn set
/// `themed`.
WindowsPc::Options PcForTests();

}  // namespace tarvik::lab
