#pragma once

// The one way to windows.h. Its macros rename functions of ours that happen to share a name with a
// platform call, so those names are freed here; the platform's own are called with their suffix.

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
