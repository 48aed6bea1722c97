#pragma once

namespace tarvik {

/// Settings of the whole process: no ghost window, no error boxes of Windows, nothing loaded or started from
/// the current folder. Call once, before anything else. A program that links it also aborts with a crash
/// report.
void ProtectProcess();

}  // namespace tarvik
