#pragma once

#include <string>
#include <utility>

namespace tarvik {

/// Thrown when a conversion fails, a control rejects a change, or a library cannot be called. Unwinds the
/// running check, whose owners release everything, up to the event boundary, which shows the text in the
/// standard error dialog.
class RuntimeError {
 public:
  explicit RuntimeError(std::wstring text) : text_(std::move(text)) {}
  RuntimeError(const RuntimeError&) = default;
  RuntimeError& operator=(const RuntimeError&) = default;
  virtual ~RuntimeError() = default;

  /// What went wrong, in one or two plain sentences for the user.
  const std::wstring& Text() const { return text_; }

 private:
  std::wstring text_;
};

}  // namespace tarvik
