#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "report/finding_texts.h"
#include "ui/save_prompt.h"

namespace tarvik {

/// The kinds of report, in the order of the save dialog.
enum class ReportKind : size_t { Html, Text };

/// What the save dialog shows: the kinds, HTML first, and the name `name` with its extension.
ui::SavePrompt ReportPrompt(const std::wstring& folder, const std::wstring& name,
                            report::AnswerLanguage language);

/// What the user chose: the kind by the extension that was typed, otherwise by the kind that was shown, whose
/// extension is then appended.
struct ReportPlace {
  std::wstring path;
  ReportKind kind = ReportKind::Html;
  bool appended = false;  ///< so that the dialog has not asked whether the file may be replaced
};
ReportPlace PlaceOfReport(const ui::SavePlace& chosen);

/// The part before the last backslash, or the drive with its backslash; and the part after it.
std::wstring FolderOf(const std::wstring& path);
std::wstring FileNameOf(const std::wstring& path);

/// Writes the file next to its place and then renames it, so that a failure keeps the file that it would
/// replace. Returns the Windows error; 0 = saved.
uint32_t SaveSafely(Files& files, const std::wstring& path, std::string_view bytes);

/// Asks whether an existing file may be replaced.
std::wstring ReplaceQuestion(const std::wstring& name, report::AnswerLanguage language);

/// What the user reads when SaveSafely has failed: what to do, and the error's number.
std::wstring SaveFailureText(uint32_t error, report::AnswerLanguage language);

}  // namespace tarvik
