#include "platform/code_page.h"

#include <algorithm>

#include "platform/windows_win32.h"

namespace tarvik {
namespace {

/// The calls take lengths as int. Longer texts are truncated, counted in bytes or UTF-16 units.
constexpr size_t kMaxUnits = 0x10000000;

std::wstring Widen(std::string_view bytes, UINT codePage) {
  const int length = static_cast<int>(std::min(bytes.size(), kMaxUnits));
  if (length == 0) return {};
  const int needed = ::MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
  if (needed <= 0) return {};
  std::wstring text(static_cast<size_t>(needed), L'\0');
  ::MultiByteToWideChar(codePage, 0, bytes.data(), length, text.data(), needed);
  return text;
}

std::string Narrow(std::wstring_view text, UINT codePage) {
  const int length = static_cast<int>(std::min(text.size(), kMaxUnits));
  if (length == 0) return {};
  const int needed = ::WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  if (needed <= 0) return {};
  std::string bytes(static_cast<size_t>(needed), '\0');
  ::WideCharToMultiByte(codePage, 0, text.data(), length, bytes.data(), needed, nullptr, nullptr);
  return bytes;
}

UINT CodePageOf(int32_t language) {
  DWORD codePage = 0;
  const int got =
      ::GetLocaleInfoW(static_cast<LCID>(language), LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                       reinterpret_cast<wchar_t*>(&codePage), sizeof codePage / sizeof(wchar_t));
  return got > 0 && codePage != 0 ? codePage : CP_ACP;
}

class Win32CodePage final : public CodePage {
 public:
  std::string ToAnsi(std::wstring_view text) override { return Narrow(text, CP_ACP); }
  std::string ToOem(std::wstring_view text) override { return Narrow(text, CP_OEMCP); }
  std::wstring FromAnsi(std::string_view bytes) override { return Widen(bytes, CP_ACP); }
  std::wstring FromLanguage(std::string_view bytes, int32_t language) override {
    return Widen(bytes, CodePageOf(language));
  }
};

}  // namespace

std::unique_ptr<CodePage> MakeCodePage() { return std::make_unique<Win32CodePage>(); }

}  // namespace tarvik
