#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/windows_win32.h"
#include "ui/control.h"

namespace tarvik::ui {

/// A menu in the menu bar, or a command in a menu.
class Win32MenuItem final : public MenuItem {
 public:
  /// The item belongs to `container`, which shows its items in the order in which they were made.
  Win32MenuItem(class Win32Menu& container, int id, const std::wstring& caption);
  ~Win32MenuItem() override;

  void SetCaption(const std::wstring& caption) override;
  std::wstring Caption() const override { return caption_; }
  void SetVisible(bool visible) override;
  bool Visible() const override { return visible_; }
  void SetEnabled(bool enabled) override;
  bool Enabled() const override { return enabled_; }

  int Id() const { return id_; }
  /// The menu that the item opens; an item that is never asked for one is a command.
  Win32Menu& SubMenu();
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
  /// `bar`: the window whose menu bar the menu is; null for a menu that opens, which the system reads then.
  Win32Menu(HMENU menu, HWND bar);
  ~Win32Menu();
  Win32Menu(const Win32Menu&) = delete;
  Win32Menu& operator=(const Win32Menu&) = delete;

  HMENU Handle() const { return menu_; }
  Win32MenuItem& Add(int id, const std::wstring& caption);
  /// The item with the id, here or in a menu below; null when there is none.
  Win32MenuItem* Find(int id) const;
  /// Shows the visible items as they are now; those in the bar of a hidden window once it takes its room.
  void Refresh();
  /// The menu bar's: the window's client area becomes what the items leave of it.
  void TakeItsRoom();

 private:
  void Empty();

  HMENU menu_;
  HWND bar_;
  std::vector<std::unique_ptr<Win32MenuItem>> items_;
  bool barIsOld_ = false;  ///< the window was not told yet that items have changed
};

}  // namespace tarvik::ui
