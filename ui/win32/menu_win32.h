#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/windows_win32.h"
#include "ui/control.h"

namespace tarvik::ui {

/// A menu in the menu bar, a command in a menu, or the separator between two commands.
class Win32MenuItem final : public MenuItem {
 public:
  /// `container`: the menu that shows the item and outlives it.
  Win32MenuItem(class Win32Menu& container, int id, const std::wstring& caption);
  ~Win32MenuItem() override;

  void SetCaption(const std::wstring& caption) override;
  std::wstring Caption() const override { return caption_; }
  void SetVisible(bool visible) override;
  bool Visible() const override { return visible_; }
  void SetEnabled(bool enabled) override;
  bool Enabled() const override { return enabled_; }

  int Id() const { return id_; }
  /// The menu that the item opens. The first call creates it and so turns a command into a menu.
  Win32Menu& SubMenu();
  /// The same menu, or null for a command.
  const Win32Menu* OwnSubMenu() const { return subMenu_.get(); }

 private:
  Win32Menu& container_;
  int id_;
  std::wstring caption_;
  bool visible_ = true;
  bool enabled_ = true;
  std::unique_ptr<Win32Menu> subMenu_;
};

/// The menu bar of a window, or one menu of it.
class Win32Menu {
 public:
  static constexpr int kSeparatorId = 0;

  /// Owns `menu`. `bar`: the window whose menu bar it is; null for a drop-down menu. Throws RuntimeError when
  /// `menu` is null.
  Win32Menu(HMENU menu, HWND bar);
  ~Win32Menu();
  Win32Menu(const Win32Menu&) = delete;
  Win32Menu& operator=(const Win32Menu&) = delete;

  HMENU Handle() const { return menu_; }
  /// Adds an item at the end.
  Win32MenuItem& Add(int id, const std::wstring& caption);
  /// The first item, here or in a submenu, of which the condition is true; null when not found.
  template <typename Condition>
  Win32MenuItem* FindIf(const Condition& condition) const {
    for (const auto& item : items_) {
      if (condition(*item)) return item.get();
      if (item->OwnSubMenu() == nullptr) continue;
      if (Win32MenuItem* found = item->OwnSubMenu()->FindIf(condition)) return found;
    }
    return nullptr;
  }
  /// Fills the menu with the visible items. In a hidden window, the menu bar shows them after UpdateBar.
  void Refresh();
  /// Adds an item to a menu, at the end; null = a separator. Throws RuntimeError when Windows rejects it.
  static void Insert(HMENU menu, const Win32MenuItem* item);
  /// Redraws the menu bar if its items have changed, which may change the size of the client area.
  void UpdateBar();

 private:
  void RemoveAll();

  HMENU menu_;
  HWND bar_;
  std::vector<std::unique_ptr<Win32MenuItem>> items_;
  bool barOutdated_ = false;  ///< items have changed since the last UpdateBar
};

}  // namespace tarvik::ui
