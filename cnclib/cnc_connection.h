#pragma once

#include <string>

#include "cnclib/cnc_library.h"
#include "platform/code_page.h"

namespace tarvik {

/// A number as the user typed it, and the box's name for the words about it.
struct TypedNumber {
  std::wstring text;
  std::wstring boxName;
};

/// The controller and its library service, as the main window's boxes hold them.
struct CncTarget {
  std::wstring address;  ///< host name or dotted address
  TypedNumber port;      ///< 16 bits, signed
  TypedNumber timeOut;   ///< seconds, 16 bits, signed
};

/// A connection to a controller. Frees its handle when destroyed, even one that came with a failure.
class CncConnection {
 public:
  /// Nothing is opened yet. Throws NumberError when port or time-out is not a number of 16 bits.
  CncConnection(CncLibrary& library, CodePage& codePage, const CncTarget& target);
  ~CncConnection() { Release(); }
  CncConnection(const CncConnection&) = delete;
  CncConnection& operator=(const CncConnection&) = delete;

  /// nx_allochandle3. Frees the handle of an earlier attempt first, as OpenWithCode does. 0 on success.
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
