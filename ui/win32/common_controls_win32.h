#pragma once

#include "platform/windows_win32.h"

// Include this instead of <commctrl.h>, which needs windows.h first although it sorts before it.
#include <commctrl.h>
