#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/windows_win32.h"

namespace tarvik::lab {

/// The words behind the command's name.
using Words = std::vector<std::wstring>;

/// Milliseconds that the work takes.
double Milliseconds(const std::function<void()>& work);

/// Writes one measured figure: a name without blanks, and milliseconds.
void Report(const std::string& name, double milliseconds);

/// "lines COUNT": so many lines added to a shown list by the result list ("own"), by the bare list-box call
/// ("bare"), and by that call and a selection, which is what a line that stays in sight takes ("selecting").
void MeasureLines(const Words& words);

/// "sort COUNT": so many names in a random, sorted, reversed and hostile order, by the product ("own-...")
/// and by the standard library with the same keys ("bare-...").
void MeasureSort(const Words& words);

/// "listing HOST": the directory that an anonymous user finds, by the FTP test ("own") and by a bare loop
/// over the same calls of the system's library ("bare").
void MeasureListing(const Words& words);

/// "pmc HOST LENGTH": one pass over so many bytes by the plainest loop with the same calls and lines.
void MeasurePmcPass(const Words& words);

}  // namespace tarvik::lab
