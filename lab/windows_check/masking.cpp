#include "lab/windows_check/masking.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tarvik::check {
namespace {

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

char Lower(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character + 32) : character;
}

bool IsHexDigit(char character) {
  return IsDigit(character) || (Lower(character) >= 'a' && Lower(character) <= 'f');
}

/// Bytes of UTF-8 sequences count as letters.
bool IsWordCharacter(char character) {
  return IsDigit(character) || (Lower(character) >= 'a' && Lower(character) <= 'z') ||
         (static_cast<unsigned char>(character) & 0x80) != 0;
}

char At(const std::string& text, size_t index) { return index < text.size() ? text[index] : '\0'; }

bool BeginsWith(const std::string& text, size_t start, const std::string& word) {
  if (text.size() - start < word.size()) return false;
  return std::equal(word.begin(), word.end(), text.begin() + static_cast<std::ptrdiff_t>(start),
                    [](char a, char b) { return Lower(a) == Lower(b); });
}

/// The length of the MAC address at this place, such as 00-1A-2B-3C-4D-5E; 0 = none.
size_t MacLength(const std::string& text, size_t start) {
  constexpr size_t kBytes = 6;
  const char separator = At(text, start + 2);
  if (separator != '-' && separator != ':') return 0;
  for (size_t i = 0; i < kBytes; ++i) {
    const size_t place = start + 3 * i;
    if (!IsHexDigit(At(text, place)) || !IsHexDigit(At(text, place + 1))) return 0;
    if (i + 1 < kBytes && At(text, place + 2) != separator) return 0;
  }
  const size_t length = 3 * kBytes - 1;
  return IsHexDigit(At(text, start + length)) ? 0 : length;
}

struct Address {
  std::array<int, 4> parts{};
  size_t length = 0;
};

/// The dotted address that begins at `start`; nothing for other numbers, such as one with five parts.
std::optional<Address> AddressAt(const std::string& text, size_t start) {
  Address address;
  size_t place = start;
  for (size_t i = 0; i < address.parts.size(); ++i) {
    if (i > 0 && At(text, place++) != '.') return std::nullopt;
    const size_t first = place;
    while (IsDigit(At(text, place)) && place - first < 3)
      address.parts[i] = 10 * address.parts[i] + (text[place++] - '0');
    if (place == first || address.parts[i] > 255) return std::nullopt;
  }
  if (IsDigit(At(text, place)) || (At(text, place) == '.' && IsDigit(At(text, place + 1))))
    return std::nullopt;
  address.length = place - start;
  return address;
}

/// False for private, loopback and link-local addresses, those reserved for documentation, multicast and
/// masks: they say nothing about the user.
bool IsPublic(const Address& address) {
  const auto& [a, b, c, d] = address.parts;
  const bool isPrivate = a == 10 || (a == 172 && b >= 16 && b < 32) || (a == 192 && b == 168);
  const bool isLocal = a == 0 || a == 127 || (a == 169 && b == 254) || a >= 224;
  const bool isDocumentation =
      (a == 192 && b == 0 && c == 2) || (a == 198 && b == 51 && c == 100) || (a == 203 && b == 0 && c == 113);
  return !isPrivate && !isLocal && !isDocumentation;
}

}  // namespace

void Mask::AddWord(const std::string& word, const std::string& substitute) {
  if (word.size() < 2) return;
  words_.push_back({word, substitute});
  // Longest first: "pc.example.com" before "pc".
  std::stable_sort(words_.begin(), words_.end(),
                   [](const Word& a, const Word& b) { return a.text.size() > b.text.size(); });
}

std::string Mask::Apply(const std::string& text) const {
  static const std::string kUsers = "\\Users\\";
  std::string masked;
  for (size_t i = 0; i < text.size();) {
    const char previous = i == 0 ? '\0' : text[i - 1];
    const auto word = std::find_if(words_.begin(), words_.end(), [&](const Word& candidate) {
      return !IsWordCharacter(previous) && BeginsWith(text, i, candidate.text) &&
             !IsWordCharacter(At(text, i + candidate.text.size()));
    });
    if (word != words_.end()) {
      masked += word->substitute;
      i += word->text.size();
      continue;
    }
    if (BeginsWith(text, i, kUsers)) {
      masked += text.substr(i, kUsers.size()) + "[user]";
      i = std::min(text.find_first_of("\\/|\"\r\n", i + kUsers.size()), text.size());
      continue;
    }
    if (const size_t length = IsWordCharacter(previous) ? 0 : MacLength(text, i); length != 0) {
      masked += "[MAC]";
      i += length;
      continue;
    }
    const bool mayBeAddress = IsDigit(text[i]) && !IsWordCharacter(previous) && previous != '.';
    const std::optional<Address> address = mayBeAddress ? AddressAt(text, i) : std::nullopt;
    if (address && IsPublic(*address)) {
      masked += "[public address]";
      i += address->length;
      continue;
    }
    masked += text[i++];
  }
  return masked;
}

}  // namespace tarvik::check
