#pragma once

#include "platform/scope_guard.h"
#include "ui/control.h"

namespace tarvik::ui {

/// Suspends painting of the list until the returned guard is destroyed, to paint a batch of lines once.
inline auto PauseRedraw(ListBox& list) {
  list.SetRedraw(false);
  return ScopeGuard([&list] { list.SetRedraw(true); });
}

}  // namespace tarvik::ui
