#pragma once

#include "platform/windows_win32.h"

// Needs the types of windows.h, and its place must not be left to the sorting of includes.
#include <commctrl.h>
