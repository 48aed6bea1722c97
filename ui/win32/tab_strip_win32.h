#pragma once

#include <string>
#include <vector>

#include "platform/system_library_win32.h"
#include "ui/win32/control_window_win32.h"

namespace tarvik::ui {

/// The row of tabs, and one panel a page that holds the page's controls. The panels are siblings of the row,
/// right behind it, so that the order of the Tab key follows the eye.
class Win32TabStrip final : public UncaptionedControl<TabStrip> {
 public:
  Win32TabStrip(Win32Form& form, int page, int id, const std::vector<std::wstring>& captions);

  void SetVisible(bool visible) override;
  void SetEnabled(bool enabled) override;
  /// The room that the row needs to show every page's tab, whatever the caption asked about.
  Size SizeFor(const std::wstring& caption) const override;

  int PageCount() const override { return static_cast<int>(pages_.size()); }
  void SetPageCaption(int page, const std::wstring& caption) override;
  std::wstring PageCaption(int page) const override { return At(page).caption; }
  void SetPageOn(int page, bool on) override;
  bool PageOn(int page) const override { return At(page).on; }
  void BringToFront(int page) override;
  int FrontPage() const override { return front_; }
  Size FrameSize() const override;

  /// The parent of the page's controls; null until it is made.
  HWND Panel(int page) const { return At(page).panel; }
  /// Makes it where it belongs, hidden.
  void MakePanel(int page);
  /// Shows the panel of the page in front, if it is made.
  void ShowFrontPanel();
  /// Brings the next page that is switched on to front, or the one before, and moves the focus there.
  void Walk(bool backwards) noexcept;

  void ApplyFont() override;
  void ApplyPlace() override;
  void OnNotify(const NMHDR& notification) override;
  bool TakesFocusAt(POINT place) const override;
  bool HasMnemonic(wchar_t letter) const override { return PageOfMnemonic(letter) != kNone; }
  void OnMnemonic(wchar_t letter) override;

 protected:
  void OnMade() override;

 private:
  static constexpr int kNone = -1;
  static constexpr int kTabPadding = 8;  ///< left and right of a caption, at 96 dots per inch

  struct Page {
    HWND panel = nullptr;
    std::wstring caption;
    bool on = true;
  };

  const Page& At(int page) const;
  Page& At(int page);
  /// The place in the row of a page's tab, which moves when a page before it is switched off.
  int TabOf(int page) const;
  int PageOfTab(int tab) const;
  int PageOfMnemonic(wchar_t letter) const;
  void InsertTab(int page);
  void Show(int page);
  /// The page in front was switched off: the first that is not comes there.
  void LeaveFront();
  void GoTo(int page) noexcept;
  /// The area of the pages inside a strip of that size.
  RECT PageArea(int width, int height) const;
  void PlacePanel(HWND panel) const;

  std::vector<Page> pages_;
  SystemLibrary themes_;
  int front_ = 0;
};

}  // namespace tarvik::ui
