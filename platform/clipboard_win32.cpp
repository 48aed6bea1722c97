#include "platform/clipboard.h"

#include <cstring>
#include <string_view>

#include "platform/fixed_buffer.h"
#include "platform/runtime_error.h"
#include "platform/windows_win32.h"

namespace tarvik {
namespace {

constexpr DWORD kRetryPauseMs = 20;
constexpr int kMaxOpenTries = 1000 / kRetryPauseMs;

/// Keeps the clipboard open. Retries, because clipboard viewers often have it open for a moment.
class OpenedClipboard {
 public:
  explicit OpenedClipboard(HWND owner) {
    for (int i = 0; i < kMaxOpenTries; ++i) {
      if (::OpenClipboard(owner)) return;
      ::Sleep(kRetryPauseMs);
    }
    throw RuntimeError(L"The clipboard is in use by another program. Try again.");
  }
  ~OpenedClipboard() { ::CloseClipboard(); }
  OpenedClipboard(const OpenedClipboard&) = delete;
  OpenedClipboard& operator=(const OpenedClipboard&) = delete;
};

/// A copy of the text in movable memory, as SetClipboardData requires. Throws RuntimeError when there is not
/// enough memory.
class MovableText {
 public:
  explicit MovableText(const std::wstring& text)
      : memory_(::GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(wchar_t))) {
    void* const target = memory_ == nullptr ? nullptr : ::GlobalLock(memory_);
    if (target == nullptr) {
      Free();
      throw RuntimeError(L"There is not enough memory for the clipboard.");
    }
    std::memcpy(target, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
    ::GlobalUnlock(memory_);
  }
  ~MovableText() { Free(); }
  MovableText(const MovableText&) = delete;
  MovableText& operator=(const MovableText&) = delete;

  HGLOBAL Get() const { return memory_; }
  /// Call after SetClipboardData has succeeded: the memory belongs to the clipboard then.
  void Release() { memory_ = nullptr; }

 private:
  void Free() {
    if (memory_ != nullptr) ::GlobalFree(memory_);
  }

  HGLOBAL memory_;
};

class Win32Clipboard final : public Clipboard {
 public:
  explicit Win32Clipboard(HWND owner) : owner_(owner) {}
  void SetText(const std::wstring& text) override {
    // Allocated before the clipboard is emptied, so that a lack of memory keeps the old content.
    MovableText memory(text);
    const OpenedClipboard opened(owner_);
    if (!::EmptyClipboard() || ::SetClipboardData(CF_UNICODETEXT, memory.Get()) == nullptr)
      throw RuntimeError(L"The clipboard does not accept the text.");
    memory.Release();
  }
  std::wstring GetText() override {
    const OpenedClipboard opened(owner_);
    const HANDLE memory = ::GetClipboardData(CF_UNICODETEXT);
    const auto* const text = memory == nullptr ? nullptr : static_cast<const wchar_t*>(::GlobalLock(memory));
    if (text == nullptr) return {};
    const std::wstring copy(TrimNull(std::wstring_view(text, ::GlobalSize(memory) / sizeof(wchar_t))));
    ::GlobalUnlock(memory);
    return copy;
  }

 private:
  HWND owner_;
};

}  // namespace

std::unique_ptr<Clipboard> MakeClipboard(std::intptr_t owner) {
  return std::make_unique<Win32Clipboard>(reinterpret_cast<HWND>(owner));
}

}  // namespace tarvik
