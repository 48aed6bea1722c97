#pragma once

#include "platform/scope_guard.h"
#include "ui/form.h"

namespace tarvik::ui {

/// Shows the hourglass over the window until the returned guard is destroyed, which restores the pointer of
/// before: a service command may run inside a test.
inline auto ShowHourglass(Form& form) {
  const Pointer before = form.CurrentPointer();
  form.SetPointer(Pointer::Hourglass);
  return ScopeGuard([&form, before] { form.SetPointer(before); });
}

}  // namespace tarvik::ui
