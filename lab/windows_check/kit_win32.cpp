#include "lab/windows_check/kit_win32.h"

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

void Cancel() { cancelled = true; }

bool IsCancelled() { return cancelled; }

bool WaitUntil(int timeOutMs, const std::function<bool()>& condition) {
  const ULONGLONG deadline = ::GetTickCount64() + static_cast<ULONGLONG>(timeOutMs);
  while (!condition()) {
    if (cancelled) throw CheckError("cancelled by the user");
    if (::GetTickCount64() >= deadline) return false;
    ::Sleep(10);
  }
  return true;
}

}  // namespace tarvik::check
