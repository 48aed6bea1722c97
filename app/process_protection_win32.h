#pragma once

namespace tarvik {

/// Settings of the whole process: no ghost window, no error boxes of Windows, nothing loaded or started from
/// the current folder. Call once, before anything else.
void ProtectProcess();

}  // namespace tarvik
