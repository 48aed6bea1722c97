#pragma once

#include "ui/form.h"
#include "ui/win32/com_win32.h"

struct ITaskbarList3;

namespace tarvik::ui {

/// The state that the taskbar button of a window shows. Where there is no taskbar, nothing happens.
class TaskbarButton {
 public:
  TaskbarButton();
  TaskbarButton(const TaskbarButton&) = delete;
  TaskbarButton& operator=(const TaskbarButton&) = delete;
  ~TaskbarButton();

  /// Shows the state now, or once the button exists.
  void Show(HWND window, ComObjects& com, TaskbarState state);
  TaskbarState State() const { return state_; }

  /// Lets the message below reach the window when the program runs as administrator and the taskbar does not.
  void ExpectButton(HWND window) const;
  /// True for the message by which the taskbar announces that the window has a button, or has a new one.
  bool IsCreatedMessage(UINT message) const { return message == createdMessage_; }
  void OnCreated(HWND window, ComObjects& com);

 private:
  void Apply(HWND window) const;

  UINT createdMessage_;
  bool exists_ = false;
  TaskbarState state_ = TaskbarState::None;
  ComPointer<ITaskbarList3> taskbar_;
};

}  // namespace tarvik::ui
