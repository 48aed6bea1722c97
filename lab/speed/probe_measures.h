#pragma once

#include <string>

#include "lab/laboratory.h"
#include "lab/windows_pc.h"

namespace tarvik::lab {

/// What the figures with the speed probe are measured on.
struct ProbeGround {
  WindowsPc& pc;
  const Laboratory& laboratory;
  std::string program;
  std::string probe;
  std::string cacheFolder;
};

// Each prints its rows of the table. All throw LabError.

/// Lines added to the result list, beside the bare list-box calls.
void MeasureLines(const ProbeGround& ground);

/// The listing's sort in several orders, beside the standard library's.
void MeasureSort(const ProbeGround& ground);

/// Passes of the PMC window at the greatest length, beside the plainest loop.
void MeasurePmc(const ProbeGround& ground);

/// A large FTP directory, beside a bare loop over the same calls and beside curl.
void MeasureListing(const ProbeGround& ground);

}  // namespace tarvik::lab
