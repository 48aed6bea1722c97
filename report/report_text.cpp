// Makes texts of servers and libraries harmless for a report.

#include "report/report_text.h"

#include <cstdint>

namespace tarvik::report {
namespace {

constexpr uint32_t kNotShown = 0xFFFD;

struct CharacterRange {
  uint32_t first;
  uint32_t last;
};

/// Control characters, those without width and those that change the direction of writing. A terminal, a
/// browser or Notepad would obey them.
constexpr CharacterRange kUnsafe[] = {{0x00, 0x1F},     {0x7F, 0x9F},     {0xAD, 0xAD},
                                      {0x061C, 0x061C}, {0x200B, 0x200F}, {0x2028, 0x202E},
                                      {0x2060, 0x206F}, {0xD800, 0xDFFF}, {0xFDD0, 0xFDEF},
                                      {0xFEFF, 0xFEFF}, {0xFFF9, 0xFFFB}, {0xE0000, 0xE007F}};

bool IsUnsafe(uint32_t character) {
  for (const CharacterRange& range : kUnsafe)
    if (character >= range.first && character <= range.last) return true;
  return character > 0x10FFFF || (character & 0xFFFE) == 0xFFFE;
}

bool IsHalf(wchar_t unit, wchar_t first) { return unit >= first && unit <= first + 0x3FF; }

uint32_t CodeOf(wchar_t unit) { return static_cast<uint32_t>(unit); }

/// Removes one character from the text. A surrogate pair is one.
uint32_t TakeShown(std::wstring_view& text) {
  auto character = CodeOf(text[0]);
  const bool isPair = text.size() > 1 && IsHalf(text[0], 0xD800) && IsHalf(text[1], 0xDC00);
  if (isPair) character = 0x10000 + ((character & 0x3FF) << 10) + (CodeOf(text[1]) & 0x3FF);
  text.remove_prefix(isPair ? 2 : 1);
  if (character >= 0x20 && character < 0x7F) return character;
  if (character == '\n') return character;
  if (character == '\t' || character == '\r') return ' ';
  return IsUnsafe(character) ? kNotShown : character;
}

const char* EntityOf(uint32_t character) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return nullptr;
  }
}

bool IsPlain(wchar_t letter, bool html) {
  return letter >= 0x20 && letter < 0x7F && !(html && EntityOf(CodeOf(letter)) != nullptr);
}

void AppendCharacter(std::string& out, uint32_t character) {
  if (character < 0x80) {
    out += static_cast<char>(character);
    return;
  }
  const int following = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
  constexpr uint32_t kFirst[] = {0, 0xC0, 0xE0, 0xF0};
  out += static_cast<char>(kFirst[following] | character >> (6 * following));
  for (int left = following - 1; left >= 0; --left)
    out += static_cast<char>(0x80 | (character >> (6 * left) & 0x3F));
}

wchar_t LowerAscii(wchar_t letter) {
  return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter + (L'a' - L'A')) : letter;
}

bool IsWordLetter(wchar_t letter) {
  const wchar_t lower = LowerAscii(letter);
  return (lower >= L'a' && lower <= L'z') || (lower >= L'0' && lower <= L'9');
}

bool IsDecimalDigit(wchar_t letter) { return letter >= L'0' && letter <= L'9'; }

/// The secret is at that place, whatever its case, and not a part of a longer word or of a dotted address.
bool HasSecret(std::wstring_view text, size_t at, std::wstring_view secret) {
  const size_t end = at + secret.size();
  if (end > text.size()) return false;
  for (size_t i = 0; i < secret.size(); ++i)
    if (LowerAscii(text[at + i]) != LowerAscii(secret[i])) return false;
  const bool before = at > 0 && IsWordLetter(text[at - 1]) && IsWordLetter(text[at]);
  const bool after = end < text.size() && IsWordLetter(text[end]) && IsWordLetter(text[end - 1]);
  const bool inAddress =
      (IsDecimalDigit(text[at]) && at > 1 && text[at - 1] == L'.' && IsDecimalDigit(text[at - 2])) ||
      (IsDecimalDigit(text[end - 1]) && end + 1 < text.size() && text[end] == L'.' &&
       IsDecimalDigit(text[end + 1]));
  return !before && !after && !inAddress;
}

}  // namespace

std::wstring Joined(std::initializer_list<const wchar_t*> parts) {
  std::wstring all;
  for (const wchar_t* const part : parts) all += part;
  return all;
}

void AppendOneLine(std::wstring& out, std::wstring_view text, size_t maxLength) {
  const size_t end = out.size() + maxLength;
  while (!text.empty()) {
    if (out.size() >= end) {
      out += L"...";
      return;
    }
    const std::wstring_view before = text;
    const uint32_t character = TakeShown(text);
    if (character >= 0x10000)
      out.append(before, 0, before.size() - text.size());
    else
      out += character == '\n' ? L' ' : static_cast<wchar_t>(character);
  }
}

void AppendUtf8(std::string& out, std::wstring_view text, bool html, std::string_view lineBreak) {
  while (true) {
    // Most texts are ASCII, and a list can be large.
    size_t plain = 0;
    while (plain < text.size() && IsPlain(text[plain], html)) ++plain;
    const size_t end = out.size();
    out.resize(end + plain);
    for (size_t i = 0; i < plain; ++i) out[end + i] = static_cast<char>(text[i]);
    text.remove_prefix(plain);
    if (text.empty()) return;
    const uint32_t character = TakeShown(text);
    const char* const entity = html ? EntityOf(character) : nullptr;
    if (entity != nullptr)
      out += entity;
    else if (character == '\n')
      out += lineBreak;
    else
      AppendCharacter(out, character);
  }
}

std::wstring Masked(std::wstring_view text, const std::vector<std::wstring>& secrets) {
  std::wstring masked(text);
  for (const std::wstring& secret : secrets) {
    if (secret.empty()) continue;
    const std::wstring before = std::move(masked);
    masked.clear();
    for (size_t at = 0; at < before.size();) {
      if (HasSecret(before, at, secret)) {
        masked += L"***";
        at += secret.size();
      } else {
        masked += before[at++];
      }
    }
  }
  return masked;
}

}  // namespace tarvik::report
