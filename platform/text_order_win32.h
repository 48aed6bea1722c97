#pragma once

#include "platform/text_order.h"

namespace tarvik {

/// The order of kernel32.
class Win32TextOrder final : public TextOrder {
 public:
  std::string SortKey(std::wstring_view text) override;
};

}  // namespace tarvik
