#pragma once

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

/// Only one check may run on a PC: two would take the same settings away and restore them in the wrong order.
class OnlyCheck {
 public:
  OnlyCheck();
  OnlyCheck(const OnlyCheck&) = delete;
  OnlyCheck& operator=(const OnlyCheck&) = delete;
  ~OnlyCheck();

  bool IsOnly() const { return only_; }

 private:
  HANDLE mutex_ = nullptr;
  bool only_ = false;
};

/// Asks the user to close a Tarvik of his own: it saves its history when it ends, and the check would then
/// replace that by the older one. False when the user cancels.
bool UserHasClosedTarvik();

/// Whether Windows lets the check start its programs. Otherwise this becomes an item. Also finds out whether
/// the product uses the bench's libraries (Kit::usesBench).
bool CanStart(Kit& kit);

}  // namespace tarvik::check
