#pragma once

#include "platform/windows_win32.h"

namespace tarvik::ui {

/// The one way of a message from the queue to its window, in the main loop and in the pump alike. The form
/// that a message belongs to sees it first: the keys of a dialog, and the asking before the focus moves.
class MessageFilter {
 public:
  void Dispatch(MSG& message) const;
};

/// Runs the program's window until it ends; the exit code.
int RunMainLoop(const MessageFilter& filter);

}  // namespace tarvik::ui
