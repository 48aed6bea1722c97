// Faults in the internet library's calls, which the product finds by name.

#include <map>
#include <string>
#include <vector>

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

FARPROC(WINAPI* realGetProcAddress)(HMODULE, LPCSTR) = nullptr;

/// By name of the call. Each replacement calls the one before it, the first one the library.
std::map<std::string, std::vector<void*>> replacements;
/// What each replacement calls.
std::map<void*, void*> originals;

template <typename Function>
Function* Original(Function* replacement) {
  return reinterpret_cast<Function*>(originals.at(reinterpret_cast<void*>(replacement)));
}

FARPROC WINAPI FindSpoiled(HMODULE module, LPCSTR name) {
  const FARPROC found = realGetProcAddress(module, name);
  const bool isOrdinal = reinterpret_cast<uintptr_t>(name) <= MAXWORD;
  const auto spoiled = isOrdinal ? replacements.end() : replacements.find(name);
  if (found == nullptr || spoiled == replacements.end()) return found;
  void* next = reinterpret_cast<void*>(found);
  for (void* const replacement : spoiled->second) {
    originals[replacement] = next;
    next = replacement;
  }
  return reinterpret_cast<FARPROC>(next);
}

template <typename Function>
void Spoil(const char* call, Function* replacement) {
  replacements[call].push_back(reinterpret_cast<void*>(replacement));
  if (realGetProcAddress == nullptr) ReplaceImport("GetProcAddress", FindSpoiled, &realGetProcAddress);
}

HANDLE WINAPI ConnectPassively(HANDLE session, LPCSTR host, WORD port, LPCSTR user, LPCSTR password,
                               DWORD service, DWORD flags, DWORD_PTR context) {
  return Original(ConnectPassively)(session, host, port, user, password, service, flags | kPassiveFlag,
                                    context);
}

/// Reports each failure as a refusal by the server.
HANDLE WINAPI ConnectOrSeemRefused(HANDLE session, LPCSTR host, WORD port, LPCSTR user, LPCSTR password,
                                   DWORD service, DWORD flags, DWORD_PTR context) {
  const HANDLE connection =
      Original(ConnectOrSeemRefused)(session, host, port, user, password, service, flags, context);
  if (connection == nullptr) ::SetLastError(kExtendedError);
  return connection;
}

HANDLE WINAPI FindImpatiently(HANDLE connection, LPCSTR pattern, void* found, DWORD flags,
                              DWORD_PTR context) {
  const ULONGLONG begin = ::GetTickCount64();
  const HANDLE search = Original(FindImpatiently)(connection, pattern, found, flags, context);
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
