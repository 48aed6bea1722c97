#include "ui/win32/menu_win32.h"

#include <utility>

#include "ui/win32/event_boundary_win32.h"

namespace tarvik::ui {

Win32MenuItem::Win32MenuItem(Win32Menu& container, int id, const std::wstring& caption)
    : container_(container), id_(id), caption_(caption) {}

Win32MenuItem::~Win32MenuItem() = default;

Win32Menu& Win32MenuItem::SubMenu() {
  if (subMenu_ == nullptr) {
    subMenu_ = std::make_unique<Win32Menu>(CreatePopupMenu(), nullptr);
    container_.Refresh();
  }
  return *subMenu_;
}

void Win32MenuItem::SetCaption(const std::wstring& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  container_.Refresh();
}

void Win32MenuItem::SetVisible(bool visible) {
  visible_ = visible;
  container_.Refresh();
}

void Win32MenuItem::SetEnabled(bool enabled) {
  if (enabled == enabled_) return;
  enabled_ = enabled;
  container_.Refresh();
}

Win32Menu::Win32Menu(HMENU menu, HWND bar) : menu_(menu), bar_(bar) {
  if (menu_ == nullptr) ThrowLastError(L"A menu could not be created.");
}

Win32Menu::~Win32Menu() {
  // DestroyMenu would also destroy the submenus, which their items own.
  RemoveAll();
  DestroyMenu(menu_);
}

void Win32Menu::RemoveAll() {
  while (RemoveMenu(menu_, 0, MF_BYPOSITION)) {
  }
}

Win32MenuItem& Win32Menu::Add(int id, const std::wstring& caption) {
  items_.push_back(std::make_unique<Win32MenuItem>(*this, id, caption));
  Refresh();
  return *items_.back();
}

void Win32Menu::Insert(HMENU menu, const Win32MenuItem* item) {
  std::wstring caption;
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_FTYPE;
  info.fType = MFT_SEPARATOR;
  if (item != nullptr) {
    caption = item->Caption();
    info.fMask =
        MIIM_ID | MIIM_STRING | MIIM_STATE | (item->OwnSubMenu() != nullptr ? UINT{MIIM_SUBMENU} : 0);
    info.fState = item->Enabled() ? MFS_ENABLED : MFS_DISABLED;
    info.wID = static_cast<UINT>(item->Id());
    info.hSubMenu = item->OwnSubMenu() != nullptr ? item->OwnSubMenu()->Handle() : nullptr;
    info.dwTypeData = caption.data();
  }
  if (!InsertMenuItemW(menu, static_cast<UINT>(GetMenuItemCount(menu)), TRUE, &info))
    ThrowLastError(L"An item could not be added to a menu.");
}

void Win32Menu::Refresh() {
  RemoveAll();
  for (const auto& item : items_)
    if (item->Visible()) Insert(menu_, item->Id() == kSeparatorId ? nullptr : item.get());
  barOutdated_ = bar_ != nullptr;
  if (IsWindowVisible(bar_)) UpdateBar();
}

void Win32Menu::UpdateBar() {
  if (!std::exchange(barOutdated_, false)) return;
  if (GetMenu(bar_) == menu_)
    DrawMenuBar(bar_);
  else
    SetMenu(bar_, menu_);
}

}  // namespace tarvik::ui
