#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik::report::test {

/// A strict reader of the two forms of a saved report. It accepts only what Tarvik itself writes.
class ReportReader {
 public:
  /// What is wrong with an HTML report; empty = nothing.
  static std::string HtmlProblem(std::string_view html) {
    if (std::string problem = CharacterProblem(html); !problem.empty()) return problem;
    ReportReader reader(html);
    return reader.ReadDocument() && reader.open_.empty() ? std::string() : reader.Where();
  }

  /// What is wrong with a text in one line or several; empty = nothing. Halves of a surrogate pair count as
  /// what they are.
  static std::string WideProblem(std::wstring_view text) {
    for (size_t at = 0; at < text.size(); ++at) {
      auto unit = static_cast<uint32_t>(text[at]);
      const auto next = at + 1 < text.size() ? static_cast<uint32_t>(text[at + 1]) : 0;
      if (unit >> 10 == 0xD800 >> 10 && next >> 10 == 0xDC00 >> 10) {
        unit = 0x10000 + ((unit & 0x3FF) << 10) + (next & 0x3FF);
        ++at;
      }
      if (unit != L'\r' && unit != L'\n' && IsForbidden(unit))
        return "forbidden character " + std::to_string(unit);
    }
    return {};
  }

  /// What is wrong with a plain text report; empty = nothing.
  static std::string TextProblem(std::string_view text) {
    if (!text.starts_with("\xEF\xBB\xBF")) return "no byte order mark";
    std::string lines(text.substr(3));
    for (size_t at = 0; at < lines.size(); ++at) {
      if (lines[at] == '\r' && lines.compare(at, 2, "\r\n") != 0) return "CR without LF";
      if (lines[at] == '\n' && (at == 0 || lines[at - 1] != '\r')) return "LF without CR";
    }
    std::erase(lines, '\r');
    return CharacterProblem(lines);
  }

 private:
  explicit ReportReader(std::string_view html) : rest_(html), whole_(html) {}

  /// Valid UTF-8, and no character that a browser or an editor obeys instead of showing it.
  static std::string CharacterProblem(std::string_view bytes) {
    for (size_t at = 0; at < bytes.size();) {
      const auto first = static_cast<unsigned char>(bytes[at]);
      const size_t length = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
      if (length == 0 || first > 0xF4 || at + length > bytes.size()) return "not UTF-8";
      uint32_t character = length == 1 ? first : first & (0x7FU >> length);
      for (size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[at + i]);
        if ((byte & 0xC0) != 0x80) return "not UTF-8";
        character = character << 6 | (byte & 0x3FU);
      }
      constexpr std::array<uint32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
      if (character < kSmallest[length] || character > 0x10FFFF) return "not UTF-8";
      if (IsForbidden(character)) return "forbidden character " + std::to_string(character);
      at += length;
    }
    return {};
  }
  static bool IsForbidden(uint32_t character) {
    const auto isIn = [character](uint32_t first, uint32_t last) {
      return character >= first && character <= last;
    };
    return (character < 0x20 && character != '\n') || isIn(0x7F, 0x9F) || isIn(0xD800, 0xDFFF) ||
           character == 0xAD || character == 0x061C || isIn(0x200B, 0x200F) || isIn(0x2028, 0x202E) ||
           isIn(0x2066, 0x2069) || character == 0xFEFF || isIn(0xFFF9, 0xFFFB) || isIn(0xE0000, 0xE007F) ||
           (character & 0xFFFE) == 0xFFFE;
  }

  bool Take(std::string_view text) {
    if (!rest_.starts_with(text)) return false;
    rest_.remove_prefix(text.size());
    return true;
  }
  std::string_view TakeName() {
    const size_t end =
        std::min(rest_.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-"),
                 rest_.size());
    const std::string_view name = rest_.substr(0, end);
    rest_.remove_prefix(end);
    return name;
  }
  std::string Where() const {
    return "unexpected at " + std::to_string(whole_.size() - rest_.size()) + ": " +
           std::string(rest_.substr(0, 60));
  }

  bool ReadDocument() {
    if (!Take("<!DOCTYPE html>\n")) return false;
    while (!rest_.empty()) {
      if (rest_[0] == '<' ? !ReadTag() : rest_[0] == '&' ? !ReadEntity() : rest_[0] == '>') return false;
      rest_.remove_prefix(std::min(rest_.find_first_of("<>&"), rest_.size()));
    }
    return true;
  }

  bool ReadEntity() {
    return Take("&amp;") || Take("&lt;") || Take("&gt;") || Take("&quot;") || Take("&#39;");
  }

  template <size_t N>
  static bool IsOneOf(std::string_view name, const std::array<std::string_view, N>& names) {
    return std::find(names.begin(), names.end(), name) != names.end();
  }

  bool ReadTag() {
    constexpr std::array<std::string_view, 21> kTags = {
        "html", "head", "meta", "style", "title", "body", "h1",  "h2",   "p",    "table", "tr",
        "th",   "td",   "ol",   "ul",    "li",    "pre",  "svg", "rect", "text", "line"};
    if (Take("</")) {
      if (open_.empty() || !Take(open_.back()) || !Take(">")) return false;
      open_.pop_back();
      return true;
    }
    Take("<");
    const std::string_view tag = TakeName();
    if (!IsOneOf(tag, kTags)) return false;
    while (Take(" "))
      if (!ReadAttribute()) return false;
    if (!Take(">")) return false;
    if (tag != "meta") open_.emplace_back(tag);
    return tag != "style" || ReadStyle();
  }
  bool ReadAttribute() {
    constexpr std::array<std::string_view, 18> kAttributes = {
        "lang", "charset", "http-equiv", "content", "name", "class", "scope",  "role", "viewBox",
        "x",    "y",       "x1",         "y1",      "x2",   "y2",    "height", "rx",   "width"};
    if (!IsOneOf(TakeName(), kAttributes) || !Take("=\"")) return false;
    const size_t end = rest_.find_first_of("<>&\"");
    if (end == std::string_view::npos || rest_[end] != '"') return false;
    rest_.remove_prefix(end + 1);
    return true;
  }
  bool ReadStyle() {
    const std::string_view style = rest_.substr(0, rest_.find('<'));
    rest_.remove_prefix(style.size());
    return style.find("url") == std::string_view::npos && style.find("import") == std::string_view::npos;
  }

  std::string_view rest_;
  std::string_view whole_;
  std::vector<std::string> open_;
};

}  // namespace tarvik::report::test
