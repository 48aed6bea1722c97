#include "lab/faults/guide_texts.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <vector>

#include "lab/faults/scenario_words.h"
#include "report/explanations.h"
#include "resources/messages.h"

namespace tarvik::lab {
namespace {

constexpr unsigned kTailBits = 0x3F;

std::string Utf8(const std::wstring& text) {
  std::string bytes;
  for (const wchar_t wide : text) {
    const auto character = static_cast<char32_t>(wide);
    if (character < 0x80) {
      bytes += static_cast<char>(character);
    } else if (character < 0x800) {
      bytes += static_cast<char>(0xC0 | character >> 6);
      bytes += static_cast<char>(0x80 | (character & kTailBits));
    } else {
      bytes += static_cast<char>(0xE0 | character >> 12);
      bytes += static_cast<char>(0x80 | (character >> 6 & kTailBits));
      bytes += static_cast<char>(0x80 | (character & kTailBits));
    }
  }
  return bytes;
}

std::string ReadWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw GuideError("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> LinesOf(const std::filesystem::path& path) {
  std::ifstream file(path);
  if (!file) throw GuideError("cannot read " + path.string());
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line.substr(0, line.find('\r')));
  return lines;
}

/// A text of a language file, for the messages that have no built-in Japanese.
std::optional<std::string> InFile(const std::vector<std::string>& lines, int32_t id) {
  const std::string begin = std::to_string(id) + "=";
  for (const std::string& line : lines)
    if (line.starts_with(begin)) return Replaced(line.substr(begin.size()), "\\n", "\r\n");
  return std::nullopt;
}

}  // namespace

GuideTexts ReadGuideTexts(const std::string& sources) {
  const std::filesystem::path resources = std::filesystem::path(sources) / "resources";
  GuideTexts texts;
  const std::vector<std::string> japanese = LinesOf(resources / "language/Tarvik.exe_1041.ini");
  for (int i = 0; i < static_cast<int>(Message::Count); ++i) {
    const MessageRow& row = RowOf(static_cast<Message>(i));
    texts.messages[row.id] = {Utf8(row.english), row.japanese != nullptr
                                                     ? Utf8(row.japanese)
                                                     : InFile(japanese, row.id).value_or(std::string())};
  }
  std::string name;
  for (const std::string& line : LinesOf(resources / "explanations/1_shared.txt")) {
    const size_t colon = line.find(": ");
    if (line.starts_with("@") && colon != std::string::npos) {
      name = line.substr(1, colon - 1);
      texts.steps[name].english = line.substr(colon + 2);
    } else if (line.starts_with("= ") && !name.empty()) {
      texts.steps[name].japanese = line.substr(2);
    }
  }
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(resources / "explanations"))
    if (entry.path().extension() == ".txt") files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  report::Explanations explanations;
  for (const auto& file : files) explanations.Add(ReadWhole(file));
  for (int i = 0; i < static_cast<int>(Message::Count); ++i) {
    const report::FoundExplanation found = explanations.Of(static_cast<Message>(i));
    if (found.explanation == nullptr) continue;
    const report::BothLanguages& title = found.explanation->title;
    texts.titles[RowOf(static_cast<Message>(i)).id] = {Utf8(title.english), Utf8(title.japanese)};
  }
  return texts;
}

std::string Caption(std::string text) {
  if (const size_t key = text.find("(&"); key != std::string::npos) text.erase(key, 4);
  text = Replaced(text, "&", "");
  if (text.ends_with(":") || text.ends_with("=")) text.pop_back();
  return text;
}

size_t ColumnsOf(std::string_view text) {
  size_t columns = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0) == 0x80) continue;  // not the first byte of a character
    ++columns;
    if (byte < 0xE3) continue;
    // Half-width katakana are U+FF61 to U+FF9F: EF BD A1 to EF BE 9F.
    const std::string_view character = text.substr(i, 3);
    if (character < "\xEF\xBD\xA1" || character > "\xEF\xBE\x9F") ++columns;
  }
  return columns;
}

}  // namespace tarvik::lab
