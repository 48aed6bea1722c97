#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tarvik {

/// The system's clipboard, as plain text. Each call opens it once, waits up to a second while another program
/// has it open, and throws RuntimeError when it cannot be opened or written.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  /// Replaces the clipboard's content. On failure the old content stays, unless only the text was refused.
  virtual void SetText(const std::wstring& text) = 0;
  /// The clipboard's text; empty when it holds none.
  virtual std::wstring GetText() = 0;
};

/// The clipboard of user32, opened for the window with the handle `owner`.
std::unique_ptr<Clipboard> MakeClipboard(std::intptr_t owner);

}  // namespace tarvik
