#pragma once

#include <functional>
#include <string>
#include <vector>

#include "lab/windows_pc.h"

namespace tarvik::lab {

using Lines = std::vector<std::string>;

/// What `./run` shows with, and where it leaves pictures.
struct ShownProgram {
  std::string program;
  std::string driver;
  std::string bench;   ///< folder of the stand-in libraries
  std::string output;  ///< folder of the pictures

  std::string CacheFolder() const;
  /// A PC for it, on the user's screen where there is one.
  WindowsPc::Options PcOptions() const;
};

/// One start of the program.
struct ShownRun {
  std::string title;
  std::string commandLine;
  std::string picture;  ///< name of the screenshot, without its end
  /// What is wrong with the lines of the run; empty when nothing is.
  std::function<std::string(const Lines&)> fault;
};

/// Starts the program, prints its lines and message boxes as they come, leaves a screenshot, closes the
/// program and prints the verdict. True when nothing was wrong. Throws LabError.
bool Show(WindowsPc& pc, const ShownProgram& shown, const ShownRun& run);

/// A fault when one of the parts stands in no line.
std::function<std::string(const Lines&)> Expecting(const std::vector<std::string>& parts);

}  // namespace tarvik::lab
