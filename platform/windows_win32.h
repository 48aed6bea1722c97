#pragma once

// The product includes windows.h only through this file. Its macros would rename functions of ours that share
// a name with a Windows call, such as MessageBox, so they are undefined here. Call the Windows functions by
// their suffixed names, such as MessageBoxW.

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif

#include <winsock2.h>

#include <windows.h>

#undef LoadString
#undef MessageBox
#undef GetMessage
#undef GetVersionEx
#undef GetPrivateProfileString
#undef CreateWindow
#undef GetObject
#undef SetPort
#undef Yield
