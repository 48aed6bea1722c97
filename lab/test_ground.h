#pragma once

#include <optional>
#include <string>

#include "lab/leavings.h"
#include "lab/windows_pc.h"

namespace tarvik::lab {

// What the tests of the shipped program stand on; where things are, the build tells in the environment:
// TARVIK_EXE, TARVIK_DRIVER, TARVIK_BENCH (a folder), TARVIK_CACHE (a folder).

/// Why no test with real windows can run here; nothing when it can.
std::optional<std::string> WindowsUnsupportedReason();

/// The shipped program.
std::string ProgramPath();

/// The general edition beside it, 32-bit.
std::string GeneralProgramPath();

/// A folder with the ipconfig command of an old system, for the search path.
std::string OldSystemFolder();

/// A copy of the program in a folder of its own.
class ProgramCopy {
 public:
  enum class LanguageFiles { Beside, Absent };

  explicit ProgramCopy(LanguageFiles files);

  const std::string& Folder() const { return work_.Path(); }
  std::string Path() const { return Folder() + "/Tarvik.exe"; }

 private:
  TempDirectory work_;
};

/// A PC as most tests want it: English, 96 dpi, on a screen that nobody sees, with the stand-in libraries.
WindowsPc::Options PcForTests();

}  // namespace tarvik::lab
