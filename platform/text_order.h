#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tarvik {

/// The order of texts in the user's locale, without regard to case.
class TextOrder {
 public:
  virtual ~TextOrder() = default;

  /// LCMapString with LCMAP_SORTKEY: bytes that compare among each other as their texts do. Comparing two
  /// texts costs as much as making a key, so a sort makes each key once.
  virtual std::string SortKey(std::wstring_view text) = 0;
};

/// The order of kernel32.
std::unique_ptr<TextOrder> MakeTextOrder();

}  // namespace tarvik
