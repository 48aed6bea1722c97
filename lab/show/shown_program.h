#pragma once

#include <functional>
#include <string>
#include <vector>

#include "lab/pc/windows_pc.h"

namespace tarvik::lab {

using Lines = std::vector<std::string>;

/// The paths that `./run` works with.
struct ShownProgram {
  std::string program;
  std::string driver;
  std::string bench;   ///< folder of the stand-in libraries
  std::string output;  ///< folder for screenshots

  std::string CacheFolder() const;
  /// A PC on the user's display, or on an invisible one if the user has no display.
  WindowsPc::Options PcOptions() const;
};

/// One start of the program.
struct ShownRun {
  std::string title;
  std::string commandLine;
  std::string screenshot;  ///< file name without extension
  /// Checks the run's lines and message boxes; returns what is wrong, or an empty text.
  std::function<std::string(const Lines&)> check;
};

/// Starts the program, prints its lines and message boxes as they appear, takes a screenshot, closes the
/// program and prints the verdict. True when the check has passed. Throws LabError.
bool Show(WindowsPc& pc, const ShownProgram& shown, const ShownRun& run);

/// A check that every one of these texts is part of some line.
std::function<std::string(const Lines&)> Expecting(const std::vector<std::string>& parts);

}  // namespace tarvik::lab
