#include "platform/text_order.h"

#include "platform/windows_win32.h"

namespace tarvik {
namespace {

class Win32TextOrder final : public TextOrder {
 public:
  std::string SortKey(std::wstring_view text) override {
    constexpr DWORD flags = LCMAP_SORTKEY | NORM_IGNORECASE;
    const auto length = static_cast<int>(text.size());
    // With LCMAP_SORTKEY the call writes, and counts, bytes. Asking for the size first would double the time
    // that a long listing takes.
    char usual[1024];
    const int size = ::LCMapStringW(LOCALE_USER_DEFAULT, flags, text.data(), length,
                                    reinterpret_cast<wchar_t*>(usual), sizeof usual);
    if (size > 0) return std::string(usual, static_cast<size_t>(size));
    const int needed = ::LCMapStringW(LOCALE_USER_DEFAULT, flags, text.data(), length, nullptr, 0);
    if (needed <= 0) return {};
    std::string key(static_cast<size_t>(needed), '\0');
    ::LCMapStringW(LOCALE_USER_DEFAULT, flags, text.data(), length, reinterpret_cast<wchar_t*>(key.data()),
                   needed);
    return key;
  }
};

}  // namespace

std::unique_ptr<TextOrder> MakeTextOrder() { return std::make_unique<Win32TextOrder>(); }

}  // namespace tarvik
