// Stand-in for the CNC library's Ethernet companion. It is only ever looked for, so it has no calls.

#include "platform/windows_win32.h"

BOOL WINAPI DllMain(HINSTANCE, DWORD, void*) { return TRUE; }
