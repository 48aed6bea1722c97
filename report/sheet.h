#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "report/finding_texts.h"

namespace tarvik::report {

/// A name and what is said about it. A "\n" in the value begins a new line.
using SheetRow = std::pair<std::wstring, std::wstring>;

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
  void Rows(const std::vector<SheetRow>& rows);
  void Steps(const std::vector<std::wstring>& steps) { List(steps, true); }
  void Points(const std::vector<std::wstring>& points) { List(points, false); }
  /// Text with fixed columns: first BeginBlock, then one BlockLine for each line, then EndBlock.
  void BeginBlock();
  void BlockLine(std::wstring_view text);
  void EndBlock();
  /// Ends the document.
  std::string Finish();

 private:
  void List(const std::vector<std::wstring>& items, bool numbered);
  /// Nothing in plain text.
  void Tag(const char* tag);
  void Show(std::wstring_view text, std::string_view lineBreak = " ");
  void EndLine() { out_ += IsHtml() ? "\n" : "\r\n"; }

  Form form_;
  std::string out_;
};

/// Enough for each text that a person reads, in characters.
inline constexpr size_t kMaxSheetText = 2000;

}  // namespace tarvik::report
