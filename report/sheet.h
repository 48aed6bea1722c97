#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "report/finding_texts.h"

namespace tarvik::report {

/// Writes a document from top to bottom, either as HTML or as plain text. Each text is shown as it is, but
/// without characters that could do harm, and cut after kMaxSheetText.
class Sheet {
 public:
  enum class Form { Html, Text };

  Sheet(Form form, AnswerLanguage language, std::wstring_view title);

  bool IsHtml() const { return form_ == Form::Html; }
  /// What has been written so far. Only for markup that has no form in plain text.
  std::string& Out() { return out_; }

  void Headline(std::wstring_view text);
  void Paragraph(std::wstring_view text);
  /// Begins a section. `newPage`: on paper, too.
  void Section(std::wstring_view heading, bool newPage = false);
  /// A table: first BeginRows, then one Row for each name and what is said about it, then EndRows. `width`:
  /// of the names, in columns of plain text. A "\n" in the value begins a new line.
  void BeginRows(size_t width);
  void Row(std::wstring_view name, std::wstring_view value);
  void EndRows() { Tag("</table>\n"); }
  void List(const std::vector<std::wstring>& items, bool numbered);
  /// Text with fixed columns: first BeginBlock, then one BlockLine for each line, then EndBlock.
  void BeginBlock() { Tag("<pre>\n"); }
  void BlockLine(std::wstring_view text);
  void EndBlock() { Tag("</pre>\n"); }
  /// Ends the document.
  std::string Finish();

 private:
  /// Nothing in plain text.
  void Tag(const char* tag);
  void Show(std::wstring_view text, std::string_view lineBreak = " ");
  /// A line of text between two tags.
  void ShowLine(const char* before, std::wstring_view text, const char* after);
  void EndLine() { out_ += IsHtml() ? "\n" : "\r\n"; }

  Form form_;
  size_t width_ = 0;
  std::string out_;
};

/// Enough for each text that a person reads, in characters.
inline constexpr size_t kMaxSheetText = 2000;

}  // namespace tarvik::report
