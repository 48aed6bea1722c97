// Faults in the internet library's calls, which the product finds by name.

#include <map>
#include <string>

#include "lab/windows_check/saboteur/saboteur_win32.h"

namespace tarvik::check {
namespace {

constexpr DWORD kPassiveFlag = 0x08000000;
constexpr DWORD kExtendedError = 12003;
constexpr DWORD kInternetTimeout = 12002;
/// Shorter than the delays of the unattended check, but longer than an ordinary listing on a busy machine.
constexpr ULONGLONG kPatienceMs = 3600;

constexpr char kConnect[] = "InternetConnectA";
constexpr char kFindFirst[] = "FtpFindFirstFileA";

using Connect = HANDLE(WINAPI*)(HANDLE, LPCSTR, WORD, LPCSTR, LPCSTR, DWORD, DWORD, DWORD_PTR);
using FindFirst = HANDLE(WINAPI*)(HANDLE, LPCSTR, void*, DWORD, DWORD_PTR);

FARPROC(WINAPI* realGetProcAddress)(HMODULE, LPCSTR) = nullptr;

struct SpoiledCall {
  void* replacement = nullptr;
  void* real = nullptr;
};
std::map<std::string, SpoiledCall> spoiledCalls;

template <typename Call>
Call Real(const char* name) {
  return reinterpret_cast<Call>(spoiledCalls.at(name).real);
}

FARPROC WINAPI FindSpoiled(HMODULE module, LPCSTR name) {
  const FARPROC found = realGetProcAddress(module, name);
  const bool isOrdinal = reinterpret_cast<uintptr_t>(name) <= MAXWORD;
  const auto spoiled = isOrdinal ? spoiledCalls.end() : spoiledCalls.find(name);
  if (spoiled == spoiledCalls.end()) return found;
  spoiled->second.real = reinterpret_cast<void*>(found);
  return reinterpret_cast<FARPROC>(spoiled->second.replacement);
}

template <typename Function>
void Spoil(const char* call, Function* replacement) {
  spoiledCalls[call].replacement = reinterpret_cast<void*>(replacement);
  if (realGetProcAddress == nullptr) ReplaceImport("GetProcAddress", FindSpoiled, &realGetProcAddress);
}

HANDLE WINAPI ConnectPassively(HANDLE session, LPCSTR host, WORD port, LPCSTR user, LPCSTR password,
                               DWORD service, DWORD flags, DWORD_PTR context) {
  return Real<Connect>(kConnect)(session, host, port, user, password, service, flags | kPassiveFlag, context);
}

/// Reports each failure as a refusal by the server.
HANDLE WINAPI ConnectOrSeemRefused(HANDLE session, LPCSTR host, WORD port, LPCSTR user, LPCSTR password,
                                   DWORD service, DWORD flags, DWORD_PTR context) {
  const HANDLE connection =
      Real<Connect>(kConnect)(session, host, port, user, password, service, flags, context);
  if (connection == nullptr) ::SetLastError(kExtendedError);
  return connection;
}

HANDLE WINAPI FindImpatiently(HANDLE connection, LPCSTR pattern, void* found, DWORD flags,
                              DWORD_PTR context) {
  const ULONGLONG begin = ::GetTickCount64();
  const HANDLE search = Real<FindFirst>(kFindFirst)(connection, pattern, found, flags, context);
  if (::GetTickCount64() - begin < kPatienceMs) return search;
  ::SetLastError(kInternetTimeout);
  return nullptr;
}

BOOL WINAPI FindNothingMore(HANDLE, void*) {
  ::SetLastError(ERROR_NO_MORE_FILES);
  return FALSE;
}

BOOL WINAPI LeaveOpen(HANDLE) { return TRUE; }

BOOL WINAPI GetEmptyReply(DWORD* error, LPSTR, DWORD* length) {
  *error = 0;
  *length = 0;
  return TRUE;
}

}  // namespace

const Fault kFtpFaults[] = {
    {"ftp_earlier_reply", [] { Spoil(kConnect, ConnectOrSeemRefused); }},
    {"ftp_first_entry_only", [] { Spoil("InternetFindNextFileA", FindNothingMore); }},
    {"ftp_impatient", [] { Spoil(kFindFirst, FindImpatiently); }},
    {"ftp_left_open", [] { Spoil("InternetCloseHandle", LeaveOpen); }},
    {"ftp_no_reply", [] { Spoil("InternetGetLastResponseInfoA", GetEmptyReply); }},
    {"ftp_passive", [] { Spoil(kConnect, ConnectPassively); }},
    {nullptr, nullptr},
};

}  // namespace tarvik::check
