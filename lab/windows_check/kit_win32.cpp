#include "lab/windows_check/kit_win32.h"

#include <algorithm>
#include <atomic>

namespace tarvik::check {
namespace {

std::atomic<bool> cancelled = false;

}  // namespace

std::string ToUtf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  std::string bytes(text.size() * 3, '\0');
  const int count = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                          static_cast<int>(bytes.size()), nullptr, nullptr);
  bytes.resize(static_cast<size_t>(count));
  return bytes;
}

std::wstring FromUtf8(const std::string& text) {
  std::wstring wide(text.size(), L'\0');
  const int count = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                                          static_cast<int>(wide.size()));
  wide.resize(static_cast<size_t>(count));
  return wide;
}

void ThrowStartError(const std::string& what, DWORD error) {
  constexpr DWORD kVirus = 225;
  constexpr DWORD kBlockedBySmartAppControl = 4551;
  const std::string text = what + " cannot be started: error " + std::to_string(error);
  if (error == ERROR_ACCESS_DISABLED_BY_POLICY || error == kVirus || error == kBlockedBySmartAppControl)
    throw BlockedError(text);
  throw CheckError(text);
}

void EndWithThisCheck(HANDLE process) {
  // Never closed: its end with this process ends the others.
  static const HANDLE job = [] {
    const HANDLE created = ::CreateJobObjectW(nullptr, nullptr);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    ::SetInformationJobObject(created, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return created;
  }();
  // Fails on Windows 7 when this check is in a job itself; the objects of the check then end the process.
  ::AssignProcessToJobObject(job, process);
}

void Cancel() { cancelled = true; }

bool IsCancelled() { return cancelled; }

bool WaitUntil(int timeOutMs, const std::function<bool()>& condition) {
  const ULONGLONG begin = ::GetTickCount64();
  while (!condition()) {
    if (cancelled) throw CheckError("cancelled by the user");
    const ULONGLONG waited = ::GetTickCount64() - begin;
    if (waited >= static_cast<ULONGLONG>(timeOutMs)) return false;
    ::Sleep(static_cast<DWORD>(std::clamp<ULONGLONG>(waited / 10, 5, 30)));
  }
  return true;
}

}  // namespace tarvik::check
