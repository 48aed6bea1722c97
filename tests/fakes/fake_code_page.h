#pragma once

#include <string>

#include "platform/code_page.h"

namespace tarvik::test {

/// A double-byte code page like the Japanese one: ASCII and half-width katakana take one byte, every other
/// character two, which are assigned when the character first occurs.
class FakeCodePage final : public CodePage {
 public:
  std::string ToAnsi(std::wstring_view text) override {
    std::string bytes;
    for (const wchar_t character : text) {
      if (character < 0x80) {
        bytes.push_back(static_cast<char>(character));
      } else if (character >= kFirstKana && character <= kLastKana) {
        bytes.push_back(static_cast<char>(character - kFirstKana + kFirstKanaByte));
      } else {
        size_t index = known_.find(character);
        if (index == std::wstring::npos) {
          index = known_.size();
          known_.push_back(character);
        }
        bytes.push_back(static_cast<char>(kFirstLead + index / kTrails % kLeads));
        bytes.push_back(static_cast<char>(kFirstTrail + index % kTrails));
      }
    }
    return bytes;
  }

  /// Starts with "oem ", so that tests can tell the two code pages apart.
  std::string ToOem(std::wstring_view text) override { return "oem " + ToAnsi(text); }

  std::wstring FromAnsi(std::string_view bytes) override {
    std::wstring text;
    for (size_t i = 0; i < bytes.size(); ++i) {
      const auto byte = static_cast<unsigned char>(bytes[i]);
      if (byte < 0x80) {
        text.push_back(static_cast<wchar_t>(byte));
      } else if (byte >= kFirstKanaByte && byte <= kFirstKanaByte + (kLastKana - kFirstKana)) {
        text.push_back(static_cast<wchar_t>(byte - kFirstKanaByte + kFirstKana));
      } else {
        const auto trail = static_cast<unsigned char>(i + 1 < bytes.size() ? bytes[i + 1] : '\0');
        ++i;
        const size_t index = (byte - kFirstLead) * kTrails + (trail - kFirstTrail);
        text.push_back(index < known_.size() ? known_[index] : L'?');
      }
    }
    return text;
  }

  std::wstring FromLanguage(std::string_view bytes, int32_t) override { return FromAnsi(bytes); }

 private:
  static constexpr wchar_t kFirstKana = 0xFF61;
  static constexpr wchar_t kLastKana = 0xFF9F;
  static constexpr unsigned char kFirstKanaByte = 0xA1;
  static constexpr size_t kFirstLead = 0x81;
  static constexpr size_t kLeads = 0x1F;
  static constexpr size_t kFirstTrail = 0x80;
  static constexpr size_t kTrails = 0x70;

  std::wstring known_;
};

}  // namespace tarvik::test
