// Stand-in for the CNC library's Ethernet companion. The product only looks for the file, so it exports
// nothing.

#include "platform/windows_win32.h"

BOOL WINAPI DllMain(HINSTANCE, DWORD, void*) { return TRUE; }
