#include "ui/win32/taskbar_button_win32.h"

// After windows.h.
#include <shobjidl.h>

namespace tarvik::ui {
namespace {

constexpr GUID kTaskbarListClass{
    0x56fdf344, 0xfd6d, 0x11d0, {0x95, 0x8a, 0x00, 0x60, 0x97, 0xc9, 0xa0, 0x90}};
constexpr GUID kTaskbarList3Interface{
    0xea1afb91, 0x9e28, 0x4b86, {0x90, 0xe9, 0x9e, 0x9f, 0x8a, 0x5e, 0xef, 0xaf}};

}  // namespace

TaskbarButton::TaskbarButton() : createdMessage_(RegisterWindowMessageW(L"TaskbarButtonCreated")) {}

TaskbarButton::~TaskbarButton() = default;

void TaskbarButton::ExpectButton(HWND window) const {
  ChangeWindowMessageFilterEx(window, createdMessage_, MSGFLT_ALLOW, nullptr);
}

void TaskbarButton::OnCreated(HWND window, ComObjects& com) {
  exists_ = true;
  // A new button shows nothing.
  if (state_ != TaskbarState::None) Show(window, com, state_);
}

void TaskbarButton::Show(HWND window, ComObjects& com, TaskbarState state) {
  const bool same = state == TaskbarState::None && state_ == TaskbarState::None;
  state_ = state;
  if (!exists_ || same) return;
  if (taskbar_ == nullptr) {
    taskbar_ = com.Create<ITaskbarList3>(kTaskbarListClass, kTaskbarList3Interface);
    if (taskbar_ != nullptr && FAILED(taskbar_->HrInit())) taskbar_.reset();
  }
  if (taskbar_ != nullptr) Apply(window);
}

void TaskbarButton::Apply(HWND window) const {
  switch (state_) {
    case TaskbarState::None:
      taskbar_->SetProgressState(window, TBPF_NOPROGRESS);
      break;
    case TaskbarState::Running:
      taskbar_->SetProgressState(window, TBPF_INDETERMINATE);
      break;
    case TaskbarState::Failed:
      taskbar_->SetProgressState(window, TBPF_ERROR);
      taskbar_->SetProgressValue(window, 1, 1);  // fills the button
      break;
  }
}

}  // namespace tarvik::ui
