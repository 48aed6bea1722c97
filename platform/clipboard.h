#pragma once

#include <string>

namespace tarvik {

/// The system's clipboard, as plain text. Each call throws RuntimeError when the clipboard cannot be
/// opened or written because another program holds it.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void Clear() = 0;
  virtual void SetText(const std::wstring& text) = 0;
  /// The clipboard's text; empty when it holds none.
  virtual std::wstring GetText() = 0;
};

}  // namespace tarvik
