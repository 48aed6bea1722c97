#pragma once

#include "platform/scope_guard.h"
#include "ui/form.h"

namespace tarvik::ui {

/// Shows the hourglass over the window until the returned guard is destroyed.
inline auto ShowHourglass(Form& form) {
  form.SetPointer(Pointer::Hourglass);
  return ScopeGuard([&form] { form.SetPointer(Pointer::Default); });
}

}  // namespace tarvik::ui
