#pragma once

#include <string>

#include "cnclib/cnc_library.h"
#include "platform/code_page.h"

namespace tarvik {

/// A number as the user typed it, and the name of its box for error messages.
struct TypedNumber {
  std::wstring text;
  std::wstring boxName;
};

/// The controller and its library service, as typed in the main window.
struct CncTarget {
  std::wstring address;  ///< host name or dotted address
  TypedNumber port;      ///< 16 bits, signed
  TypedNumber timeOut;   ///< seconds, 16 bits, signed
};

/// A connection to a controller. Frees its handle on destruction, even one that a failed call returned.
class CncConnection {
 public:
  /// Opens nothing yet. Throws NumberError when the port or the time-out is not a 16-bit number.
  CncConnection(CncLibrary& library, CodePage& codePage, const CncTarget& target);
  ~CncConnection() { Release(); }
  CncConnection(const CncConnection&) = delete;
  CncConnection& operator=(const CncConnection&) = delete;

  /// nx_allochandle3. First frees the handle of an earlier attempt, as OpenWithCode does. Returns 0 on
  /// success.
  int16_t Open();
  /// nx_allochandle_code. `accessCode`: up to 8 digits.
  int16_t OpenWithCode(const std::wstring& accessCode);

  CncLibrary::Handle Handle() const { return handle_; }

 private:
  void Release() noexcept;

  CncLibrary& library_;
  CodePage& codePage_;
  std::string address_;  ///< in the ANSI code page
  int16_t port_;
  int16_t timeOut_;  ///< seconds
  CncLibrary::Handle handle_ = 0;
};

}  // namespace tarvik
