#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::report {

/// The parts, one after the other. They end at their first NUL.
std::wstring Joined(std::initializer_list<const wchar_t*> parts);

/// Appends the text in one line that can be shown anywhere: no control characters, no halves of surrogate
/// pairs and nothing that changes the direction of writing; each becomes U+FFFD, and tabs and line breaks
/// become spaces. A text of more than `maxLength` is cut and ends in "...".
void AppendOneLine(std::wstring& out, std::wstring_view text, size_t maxLength);

/// Appends the text in UTF-8, with replacements as in AppendOneLine. `lineBreak` replaces each "\n".
/// `html`: the text cannot be taken for a tag, an attribute or an entity.
void AppendUtf8(std::string& out, std::wstring_view text, bool html, std::string_view lineBreak);

/// The text with every whole word that is one of the secrets, in whatever case, replaced by "***".
std::wstring Masked(std::wstring_view text, const std::vector<std::wstring>& secrets);

}  // namespace tarvik::report
