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

/// A connection to a controller. Its end gives the handle back, whatever the library answered with it.
class CncConnection {
 public:
  CncConnection(CncLibrary& library, CodePage& codePage) : library_(library), codePage_(codePage) {}
  ~CncConnection() { Release(); }
  CncConnection(const CncConnection&) = delete;
  CncConnection& operator=(const CncConnection&) = delete;

  /// nx_allochandle3. Throws RuntimeError when port or time-out is no number of 16 bits.
  int16_t Open(const CncTarget& target);
  /// nx_allochandle_code; the handle of an earlier try is given back first.
  int16_t OpenWithCode(const CncTarget& target, const std::wstring& accessCode);

  CncLibrary::Handle Handle() const { return handle_; }

 private:
  void Release() noexcept;

  CncLibrary& library_;
  CodePage& codePage_;
  CncLibrary::Handle handle_ = 0;
};

}  // namespace tarvik
