#pragma once

#include "platform/windows_win32.h"

namespace tarvik::check {

/// Replaces a call in the import table of the program: every call that the program makes by name goes to
/// `replacement`, which must have the same arguments. Returns the original; null when the program does not
/// import the call.
void* ReplaceImport(const char* call, void* replacement);

/// The same with the types of the functions: `original` receives the original.
template <typename Function>
void ReplaceImport(const char* call, Function* replacement, Function** original) {
  *original = reinterpret_cast<Function*>(ReplaceImport(call, reinterpret_cast<void*>(replacement)));
}

/// A fault, by the name that Saboteur.txt contains.
struct Fault {
  const char* name;
  void (*plant)();  ///< called before the program's first instruction, while libraries are being loaded
};

// All faults, by subject. The last entry of each list has no name.
extern const Fault kFaults[];
extern const Fault kFtpFaults[];
extern const Fault kWindowFaults[];
extern const Fault kSystemFaults[];

}  // namespace tarvik::check
