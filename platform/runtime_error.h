#pragma once

#include <string>
#include <utility>

namespace tarvik {

/// A conversion that cannot be made, a control that refuses, a call into a library that is not there.
/// Passes through a test routine, whose owners give everything back, up to the event boundary, which
/// shows the text in the standard error dialog.
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
