#pragma once

#include "platform/scope_guard.h"
#include "ui/control.h"

namespace tarvik::ui {

/// Keeps the list from painting as long as the returned guard exists, so that a batch of lines is painted
/// once.
inline auto PauseRedraw(ListBox& list) {
  list.SetRedraw(false);
  return ScopeGuard([&list] { list.SetRedraw(true); });
}

}  // namespace tarvik::ui
