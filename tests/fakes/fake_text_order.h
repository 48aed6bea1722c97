#pragma once

#include <string>

#include "platform/text.h"
#include "platform/text_order.h"

namespace tarvik::test {

/// An order by ASCII letters without their case, then by the characters' numbers.
class FakeTextOrder final : public TextOrder {
 public:
  std::string SortKey(std::wstring_view text) override {
    ++keysMade;
    std::string key;
    for (const wchar_t character : UpperCaseAscii(text)) {
      key.push_back(static_cast<char>(static_cast<uint32_t>(character) >> 8 & 0xFF));
      key.push_back(static_cast<char>(character & 0xFF));
    }
    return key;
  }

  int keysMade = 0;
};

}  // namespace tarvik::test
