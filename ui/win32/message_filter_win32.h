#pragma once

#include "platform/windows_win32.h"

namespace tarvik::ui {

/// Dispatches the messages of the queue, both in the main loop and in the pump. The form that an input
/// message belongs to sees it first, for dialog keys and for validation before the focus moves.
class MessageFilter {
 public:
  void Dispatch(MSG& message) const;
};

/// Dispatches messages until WM_QUIT and returns the exit code.
int RunMainLoop(const MessageFilter& filter);

}  // namespace tarvik::ui
