#pragma once

#include <string>

#include "lab/network/laboratory.h"
#include "lab/pc/windows_pc.h"

namespace tarvik::lab {

/// What the measures share: the PC and its network, and paths of the programs and the cache.
struct ProbeContext {
  WindowsPc& pc;
  const Laboratory& laboratory;
  std::string program;
  std::string probe;
  std::string cacheFolder;
};

// Each function prints its rows of the table and throws LabError when it cannot measure.

/// Adding lines to the result list, compared with bare list box messages.
void MeasureLines(const ProbeContext& context);

/// Sorting the FTP listing in several initial orders, compared with std::sort.
void MeasureSort(const ProbeContext& context);

/// Passes of the PMC window at the maximum length, compared with a simple loop.
void MeasurePmc(const ProbeContext& context);

/// Listing a large FTP directory, compared with a bare loop over the same calls and with curl.
void MeasureListing(const ProbeContext& context);

}  // namespace tarvik::lab
