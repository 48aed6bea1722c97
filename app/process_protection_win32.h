#pragma once

namespace tarvik {

/// Settings of the whole process: no ghost window, no error boxes of Windows. Call once, before anything else.
void ProtectProcess();

}  // namespace tarvik
