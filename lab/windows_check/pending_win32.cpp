// Sections that are still being written. Delete this file once all of them exist.

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

#if !__has_include("lab/windows_check/looks_win32.cpp")
void CheckLooks(Kit&) {}
#endif
#if !__has_include("lab/windows_check/hands_win32.cpp")
void CheckHands(Kit&) {}
#endif
#if !__has_include("lab/windows_check/blocking_win32.cpp")
void CheckBlocking(Kit&) {}
#endif
#if !__has_include("lab/windows_check/rights_win32.cpp")
void CheckRights(Kit&) {}
#endif
#if !__has_include("lab/windows_check/network_win32.cpp")
void CheckNetwork(Kit&) {}
#endif
#if !__has_include("lab/windows_check/ftp_win32.cpp")
void CheckFtp(Kit&) {}
#endif

}  // namespace tarvik::check
