#pragma once

#include <optional>
#include <string>

#include "lab/windows_pc.h"

namespace tarvik::lab {

// What the tests of the shipped program stand on; where things are, the build tells in the environment:
// TARVIK_EXE, TARVIK_DRIVER, TARVIK_BENCH (a folder), TARVIK_CACHE (a folder).

/// Why no test with real windows can run here; nothing when it can.
std::optional<std::string> WhyNoWindows();

/// The shipped program.
std::string ProgramPath();

/// A PC as most tests want it: English, 96 dpi, on a screen that nobody sees, with the stand-in libraries.
WindowsPc::Options PcForTests();

}  // namespace tarvik::lab
