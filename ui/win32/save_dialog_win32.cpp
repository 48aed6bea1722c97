// The save dialog of Windows (comdlg32). It is loaded when it is first needed.

#include <algorithm>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "ui/win32/form_win32.h"
// After windows.h.
#include <commdlg.h>

namespace tarvik::ui {
namespace {

/// Longer than every path that Windows accepts.
constexpr size_t kMaxPath = 32768;

/// The kinds as the dialog expects them: name and pattern in turn, each ending in a NUL, then one more.
std::wstring FilterOf(const std::vector<FileKind>& kinds) {
  std::wstring filter;
  for (const FileKind& kind : kinds) {
    filter += kind.name + L'\0';
    filter += L"*." + kind.extension + L'\0';
  }
  return filter;
}

}  // namespace

std::optional<SavePlace> Win32Form::AskWhereToSave(const SavePrompt& prompt) {
  SystemLibrary library;
  library.Load(L"comdlg32.dll");
  const auto ask = library.Find<BOOL(WINAPI*)(OPENFILENAMEW*)>("GetSaveFileNameW");
  const auto error = library.Find<DWORD(WINAPI*)()>("CommDlgExtendedError");
  if (ask == nullptr || error == nullptr) throw RuntimeError(L"This Windows has no save dialog.");
  std::vector<wchar_t> path(kMaxPath);
  std::copy_n(prompt.name.begin(), std::min(prompt.name.size(), kMaxPath - 1), path.begin());
  const std::wstring filter = FilterOf(prompt.kinds);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = window_;
  dialog.lpstrFilter = filter.c_str();
  dialog.nFilterIndex = 1;
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  dialog.lpstrInitialDir = prompt.folder.empty() ? nullptr : prompt.folder.c_str();
  dialog.lpstrDefExt = prompt.kinds.front().extension.c_str();
  dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY |
                 OFN_ENABLESIZING | OFN_DONTADDTORECENT;
  const OtherFormsDisabled others(window_);
  if (ask(&dialog)) return SavePlace{path.data(), std::max<DWORD>(dialog.nFilterIndex, 1) - 1};
  const DWORD code = error();
  if (code != 0) throw RuntimeError(L"The save dialog could not be opened. (" + Decimal(code) + L")");
  return std::nullopt;
}

}  // namespace tarvik::ui
