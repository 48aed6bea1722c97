#include "report/sheet.h"

#include "platform/text.h"
#include "report/report_text.h"

namespace tarvik::report {
namespace {

/// The policy forbids scripts and references, should a text ever come through as markup.
constexpr const char* kHead =
    "<head>\n<meta charset=\"utf-8\">\n"
    "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src "
    "'unsafe-inline'\">\n"
    "<meta name=\"viewport\" content=\"width=device-width\">\n<style>\n"
    ":root{color-scheme:light}\n"
    "body{font:15px/1.4 \"Segoe UI\",Meiryo,sans-serif;color:#111;background:#fff;max-width:60em;"
    "margin:1em auto;padding:0 1em}\n"
    "h1{font-size:1.5em;margin:0 0 .3em}h2{font-size:1.1em;margin:1.2em 0 .3em;"
    "border-bottom:1px solid #888}\n"
    "p,ol,ul{margin:.3em 0}table{border-collapse:collapse}\n"
    "th,td{text-align:left;vertical-align:top;padding:.15em .8em .15em 0;white-space:pre-wrap;"
    "overflow-wrap:anywhere}th{white-space:nowrap}\n"
    "pre{font:13px/1.35 Consolas,\"MS Gothic\",monospace;white-space:pre-wrap;overflow-wrap:anywhere;"
    "margin:.3em 0}\n"
    "svg{width:100%;max-height:16em;margin-top:.5em}rect{fill:#f6f6f6;stroke:#333;stroke-width:2}\n"
    "line{stroke-width:4}.good{stroke:#1a7f37}.doubt{stroke:#9a6700}.fail{stroke:#b3261e}\n"
    ".branch{stroke:#333}.unknown{stroke:#666;stroke-dasharray:7 5}\n"
    "text{font-size:13px;text-anchor:middle;fill:#111;paint-order:stroke;stroke:#fff;stroke-width:4px}\n"
    ".name,.fact{stroke:none}.name{font-weight:bold}.sign{font-size:22px;font-weight:bold}"
    "\n"
    "@page{size:A4;margin:15mm}\n"
    "@media print{body{font-size:11pt;margin:0;padding:0;max-width:none}.page{break-before:page}"
    "tr,li,svg{break-inside:avoid}h2{break-after:avoid}}\n"
    "</style>\n<title>";

}  // namespace

Sheet::Sheet(Form form, AnswerLanguage language, std::wstring_view title) : form_(form) {
  if (!IsHtml()) {
    out_ = "\xEF\xBB\xBF";
    return;
  }
  Tag("<!DOCTYPE html>\n<html lang=\"");
  Tag(language == AnswerLanguage::Japanese ? "ja" : "en");
  Tag("\">\n");
  Tag(kHead);
  Show(title);
  Tag("</title>\n</head>\n<body>\n");
}

void Sheet::Tag(const char* tag) {
  if (IsHtml()) out_ += tag;
}

void Sheet::Show(std::wstring_view text, std::string_view lineBreak) {
  AppendUtf8(out_, text.substr(0, kMaxSheetText), IsHtml(), lineBreak);
  if (text.size() > kMaxSheetText) out_ += "...";
}

void Sheet::ShowLine(const char* before, std::wstring_view text, const char* after) {
  Tag(before);
  Show(text);
  Tag(after);
  EndLine();
}

void Sheet::Headline(std::wstring_view text) { ShowLine("<h1>", text, "</h1>"); }
void Sheet::Paragraph(std::wstring_view text) { ShowLine("<p>", text, "</p>"); }
void Sheet::BlockLine(std::wstring_view text) { ShowLine("", text, ""); }

void Sheet::Section(std::wstring_view heading, bool newPage) {
  if (!IsHtml()) EndLine();
  ShowLine(newPage ? "<h2 class=\"page\">" : "<h2>", heading, "</h2>");
  if (IsHtml()) return;
  out_.append(Columns(heading), '-');
  EndLine();
}

void Sheet::BeginRows(size_t width) {
  width_ = width;
  Tag("<table>\n");
}

void Sheet::Row(std::wstring_view name, std::wstring_view value) {
  Tag("<tr><th scope=\"row\">");
  Show(name);
  Tag("</th><td>");
  std::string lineBreak = "\n";
  if (!IsHtml()) {
    const size_t columns = Columns(name);
    out_.append(columns < width_ ? width_ - columns : 1, ' ');
    lineBreak.assign(2 + width_, ' ').replace(0, 2, "\r\n");
  }
  Show(value, lineBreak);
  Tag("</td></tr>");
  EndLine();
}

void Sheet::List(const std::vector<std::wstring>& items, bool numbered) {
  Tag(numbered ? "<ol>\n" : "<ul>\n");
  int64_t number = 0;
  for (const std::wstring& item : items) {
    ++number;
    if (!IsHtml()) out_ += numbered ? NarrowAscii(Decimal(number)) + ". " : "- ";
    ShowLine("<li>", item, "</li>");
  }
  Tag(numbered ? "</ol>\n" : "</ul>\n");
}

std::string Sheet::Finish() {
  Tag("</body>\n</html>\n");
  return std::move(out_);
}

}  // namespace tarvik::report
