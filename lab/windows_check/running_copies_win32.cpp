#include "lab/windows_check/running_copies_win32.h"

#include <algorithm>

#include "lab/windows_check/controls_win32.h"
#include "lab/windows_check/windows_facts_win32.h"

namespace tarvik::check {
namespace {

constexpr wchar_t kTarvik[] = L"\\Tarvik.exe";

std::wstring ProgramOf(HWND window) {
  DWORD id = 0;
  GetWindowThreadProcessId(window, &id);
  const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id);
  if (process == nullptr) return {};
  std::wstring path(32767, L'\0');
  auto length = static_cast<DWORD>(path.size());
  if (!QueryFullProcessImageNameW(process, 0, path.data(), &length)) length = 0;
  CloseHandle(process);
  path.resize(length);
  return path;
}

bool EndsWith(const std::wstring& text, const std::wstring& end) {
  return text.size() >= end.size() && lstrcmpiW(text.c_str() + text.size() - end.size(), end.c_str()) == 0;
}

/// Other programs may have windows of this class, too.
BOOL CALLBACK FindTarvik(HWND window, LPARAM parameter) {
  if (ClassOf(window) != L"Form1" || !EndsWith(ProgramOf(window), kTarvik)) return TRUE;
  *reinterpret_cast<bool*>(parameter) = true;
  return FALSE;
}

bool TarvikRuns() {
  bool runs = false;
  EnumWindows(FindTarvik, reinterpret_cast<LPARAM>(&runs));
  return runs;
}

}  // namespace

OnlyCheck::OnlyCheck() : mutex_(CreateMutexW(nullptr, TRUE, L"Global\\Tarvik WindowsCheck")) {
  // That of another user cannot be opened.
  only_ = mutex_ != nullptr && GetLastError() != ERROR_ALREADY_EXISTS;
}

OnlyCheck::~OnlyCheck() {
  if (mutex_ != nullptr) CloseHandle(mutex_);
}

bool UserHasClosedTarvik() {
  while (TarvikRuns()) {
    if (MessageBoxW(nullptr,
                    L"Tarvik is running. Please close it, then click Retry.\n\n"
                    L"It saves its address history when it closes. The check would lose that.",
                    L"Windows check", MB_RETRYCANCEL | MB_ICONWARNING) != IDRETRY)
      return false;
  }
  return true;
}

bool CanStart(Kit& kit) {
  try {
    Driver driver(kit);
    RunningProduct product(kit, driver);
    product.WaitForMainWindow();
    for (const std::wstring& module : Modules(product.Process())) {
      if (!EndsWith(module, L"\\NxLib32.dll") || EndsWith(module, L"\\bench\\NxLib32.dll")) continue;
      kit.usesBench = false;
      kit.report.Observe("frame.makers_software",
                         "The maker's software is installed, so what needs the bench is not checked",
                         ToUtf8(module));
    }
  } catch (const BlockedError& error) {
    kit.report.Observe("frame.blocked", "A rule of this PC does not let the check start its programs",
                       error.what());
    return false;
  } catch (const CheckError&) {
    // The sections say what is wrong with the product.
    if (IsCancelled()) throw;
  }
  return true;
}

}  // namespace tarvik::check
