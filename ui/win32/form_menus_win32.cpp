// The form's menus: its menu bar, the shortcuts of the bar's commands, and the context menu of a list box,
// which shows some of these commands. A context menu exists only while it is open.

#include "platform/scope_guard.h"
#include "ui/win32/controls_win32.h"
#include "ui/win32/form_win32.h"

namespace tarvik::ui {

MenuItem& Win32Form::AddMenu(int id, const std::wstring& caption) {
  if (menuBar_ == nullptr) menuBar_ = std::make_unique<Win32Menu>(CreateMenu(), window_);
  return menuBar_->Add(id, caption);
}

MenuItem& Win32Form::AddMenuCommand(int id, MenuItem& menu, const std::wstring& caption) {
  return static_cast<Win32MenuItem&>(menu).SubMenu().Add(id, caption);
}

void Win32Form::AddMenuSeparator(MenuItem& menu) {
  static_cast<Win32MenuItem&>(menu).SubMenu().Add(Win32Menu::kSeparatorId, std::wstring());
}

template <typename Condition>
const Win32MenuItem* Win32Form::FindCommand(const Condition& condition) const {
  return menuBar_ == nullptr ? nullptr : menuBar_->FindIf(condition);
}

void Win32Form::RunCommand(const Win32MenuItem* command) noexcept {
  if (command == nullptr || !command->onClick) return;
  if (onUpdateCommands) RunHandler(*this, onUpdateCommands);
  if (command->Enabled()) RunHandler(*this, command->onClick);
}

void Win32Form::OnCommand(WPARAM wParam, LPARAM lParam) noexcept {
  const int id = LOWORD(wParam);
  if (lParam != 0) {
    if (ControlWindow* control = ControlWithId(id)) control->OnCommand(HIWORD(wParam));
    return;
  }
  // A hidden command still works when its WM_COMMAND is sent, except to a disabled window.
  if (Enabled()) RunCommand(FindCommand([id](const Win32MenuItem& item) { return item.Id() == id; }));
}

bool Win32Form::FilterShortcut(const MSG& message) {
  const ControlWindow* focus = ControlOf(message.hwnd);
  const auto fits = [&](const Win32MenuItem& item) {
    const Shortcut& shortcut = item.shortcut;
    return shortcut.keyCode != 0 && message.wParam == static_cast<WPARAM>(shortcut.keyCode) &&
           shortcut.shift == HeldShiftStates() &&
           (shortcut.focus == nullptr || dynamic_cast<const ControlWindow*>(shortcut.focus) == focus);
  };
  const Win32MenuItem* command = FindCommand(fits);
  // Not for the repeats of a key that is held down: one press is one copy.
  if (command != nullptr && !IsRepeat(message)) RunCommand(command);
  return command != nullptr;
}

bool Win32Form::OnContextMenu(HWND control, LPARAM place) noexcept {
  auto* list = dynamic_cast<Win32ListBox*>(ControlOf(control));
  if (list == nullptr || list->contextMenu.empty() || !Enabled()) return false;
  const POINT point{static_cast<SHORT>(LOWORD(place)), static_cast<SHORT>(HIWORD(place))};
  // The keyboard gives no place.
  if (place != -1) list->SelectAt(point);
  int id = 0;
  RunHandler(*this, [&] {
    if (onUpdateCommands) onUpdateCommands();
    id = AskForCommand(list->contextMenu, place == -1 ? list->PlaceForMenu() : point);
  });
  if (id != 0) OnCommand(static_cast<WPARAM>(id), 0);
  return true;
}

int Win32Form::AskForCommand(const std::vector<MenuItem*>& commands, POINT place) const {
  HMENU menu = CreatePopupMenu();
  if (menu == nullptr) ThrowLastError(L"A menu could not be created.");
  const ScopeGuard end([menu] { DestroyMenu(menu); });
  for (const MenuItem* command : commands)
    Win32Menu::Insert(menu, static_cast<const Win32MenuItem*>(command));
  return TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, static_cast<int>(place.x),
                        static_cast<int>(place.y), 0, window_, nullptr);
}

}  // namespace tarvik::ui
