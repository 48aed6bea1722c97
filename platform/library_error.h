#pragma once

#include <string>
#include <utility>

#include "platform/runtime_error.h"

namespace tarvik {

/// A library cannot be loaded or does not export a function. Text() is English; the event boundary builds the
/// message from the parts in the user's language.
class LibraryError : public RuntimeError {
 public:
  enum class Kind { CannotBeLoaded, DoesNotExport };

  /// `reason`: the Windows error with its number, see ErrorLine.
  static LibraryError CannotBeLoaded(const std::wstring& library, const std::wstring& reason) {
    return {Kind::CannotBeLoaded, library, reason, library + L" cannot be loaded.\r\n" + reason};
  }
  static LibraryError DoesNotExport(const std::wstring& library, const std::wstring& call) {
    return {Kind::DoesNotExport, library, call, library + L" does not export " + call + L"."};
  }

  Kind Which() const { return kind_; }
  const std::wstring& Library() const { return library_; }
  /// The reason, or the name of the missing function.
  const std::wstring& Detail() const { return detail_; }

 private:
  LibraryError(Kind kind, std::wstring library, std::wstring detail, std::wstring text)
      : RuntimeError(std::move(text)),
        kind_(kind),
        library_(std::move(library)),
        detail_(std::move(detail)) {}

  Kind kind_;
  std::wstring library_;
  std::wstring detail_;
};

}  // namespace tarvik
