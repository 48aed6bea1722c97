#include "platform/clipboard_win32.h"

#include <cstring>
#include <string_view>

#include "platform/fixed_buffer.h"
#include "platform/runtime_error.h"

namespace tarvik {
namespace {

constexpr int kTries = 10;
constexpr DWORD kBetweenTries = 20;  // milliseconds

/// Holds the clipboard open. Another program's clipboard viewer often has it for a moment, hence the tries.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    for (int i = 0; i < kTries; ++i) {
      if (::OpenClipboard(owner)) return;
      ::Sleep(kBetweenTries);
    }
    throw RuntimeError(L"The clipboard is in use by another program. Try again.");
  }
  ~OpenedClipboard() { ::CloseClipboard(); }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
};

}  // namespace

void Win32Clipboard::Clear() {
  const OpenedClipboard opened(owner_);
  ::EmptyClipboard();
}

void Win32Clipboard::SetText(const std::wstring& text) {
  const OpenedClipboard opened(owner_);
  const size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes);
  void* const target = memory == nullptr ? nullptr : ::GlobalLock(memory);
  if (target == nullptr) throw RuntimeError(L"There is not enough memory for the clipboard.");
  std::memcpy(target, text.c_str(), bytes);
  ::GlobalUnlock(memory);
  if (::SetClipboardData(CF_UNICODETEXT, memory) == nullptr) {
    ::GlobalFree(memory);
    throw RuntimeError(L"The clipboard does not take the text.");
  }
}

std::wstring Win32Clipboard::GetText() {
  const OpenedClipboard opened(owner_);
  const HANDLE memory = ::GetClipboardData(CF_UNICODETEXT);
  const auto* const text = memory == nullptr ? nullptr : static_cast<const wchar_t*>(::GlobalLock(memory));
  if (text == nullptr) return {};
  const std::wstring copy(TrimNull(std::wstring_view(text, ::GlobalSize(memory) / sizeof(wchar_t))));
  ::GlobalUnlock(memory);
  return copy;
}

}  // namespace tarvik
