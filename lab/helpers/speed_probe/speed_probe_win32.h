#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/windows_win32.h"

namespace tarvik::lab {

/// The arguments after the command's name.
using Words = std::vector<std::wstring>;

/// Runs the work and returns its duration in milliseconds.
double Milliseconds(const std::function<void()>& work);

/// Writes one figure to the output file. The name must not contain spaces.
void Report(const std::string& name, double milliseconds);

// In the names of the figures "own" is the product and "bare" the simplest code.

/// "lines COUNT": adds lines to a visible list through the result list ("own"), with LB_ADDSTRING alone
/// ("bare"), and with LB_ADDSTRING and LB_SETCURSEL, which keeps the last line in view
/// ("selecting"). Each figure is the fastest of five rounds.
void MeasureLines(const Words& words);

/// "sort COUNT": sorts names in several initial orders, by the product ("own-...") and by std::sort with the
/// same keys ("bare-...").
void MeasureSort(const Words& words);

/// "listing HOST": lists the anonymous user's FTP directory with the FTP test ("own") and with a bare loop
/// over the same WinINet calls ("bare").
void MeasureListing(const Words& words);

/// "pmc HOST LENGTH": reads PMC bytes once and lists them in a simple loop with the product's calls and
/// lines. The product's own figure is measured from outside.
void MeasurePmcPass(const Words& words);

}  // namespace tarvik::lab
