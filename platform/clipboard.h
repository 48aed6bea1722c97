#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tarvik {

/// The system clipboard, as plain text. A call waits up to a second while another program has the clipboard
/// open, and throws RuntimeError when it cannot be opened or written.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  /// Replaces the clipboard's content. A failure keeps the old content, except when Windows rejects the text
  /// after the clipboard was emptied.
  virtual void SetText(const std::wstring& text) = 0;
  /// The clipboard's text; empty when the clipboard has no text.
  virtual std::wstring GetText() = 0;
};

/// The clipboard of user32, opened for the window whose handle is `owner`.
std::unique_ptr<Clipboard> MakeClipboard(std::intptr_t owner);

}  // namespace tarvik
