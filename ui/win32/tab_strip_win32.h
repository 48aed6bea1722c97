#pragma once

#include <string>
#include <vector>

#include "platform/system_library_win32.h"
#include "ui/win32/control_window_win32.h"

namespace tarvik::ui {

/// The row of tabs, and one panel per page, the parent of the page's controls. The panels are siblings of the
/// row and follow it in the z-order, so that Tab moves from the tabs to the page below them.
class Win32TabStrip final : public UncaptionedControl<TabStrip> {
 public:
  Win32TabStrip(Win32Form& form, int page, int id, const std::vector<std::wstring>& captions);

  void SetVisible(bool visible) override;
  void SetEnabled(bool enabled) override;
  /// The size of the row with the tabs of all pages, even those that are switched off. `caption` is ignored.
  Size SizeFor(const std::wstring& caption) const override;

  int PageCount() const override { return static_cast<int>(pages_.size()); }
  void SetPageCaption(int page, const std::wstring& caption) override;
  std::wstring PageCaption(int page) const override { return At(page).caption; }
  void SetPageOn(int page, bool on) override;
  bool PageOn(int page) const override { return At(page).on; }
  void BringToFront(int page) override;
  int FrontPage() const override { return front_; }
  Size FrameSize() const override;

  /// The parent of the page's controls; null until it is created.
  HWND Panel(int page) const { return At(page).panel; }
  /// Creates the panel, hidden. Throws RuntimeError when that fails.
  void CreatePanel(int page);
  /// Shows the panel of the front page, if it exists.
  void ShowFrontPanel();
  /// Brings the next or previous page that is switched on to the front and moves the focus there.
  void CyclePages(bool backwards) noexcept;

  void ApplyFont() override;
  void ApplyPlace() override;
  void OnNotify(const NMHDR& notification) override;
  bool AcceptsFocusAt(POINT place) const override;
  bool HasMnemonic(wchar_t letter) const override { return PageOfMnemonic(letter) != kNone; }
  void OnMnemonic(wchar_t letter) override;

 protected:
  void OnCreated() override;

 private:
  static constexpr int kNone = -1;       ///< no page; the front page when all are switched off
  static constexpr int kTabPadding = 8;  ///< on each side of a caption, in pixels at 96 dots per inch

  struct Page {
    HWND panel = nullptr;
    std::wstring caption;
    bool on = true;
  };

  const Page& At(int page) const;
  Page& At(int page);
  /// The index of the page's tab in the row. Pages that are switched off have none and are not counted.
  int TabOf(int page) const;
  int PageOfTab(int tab) const;
  int PageOfMnemonic(wchar_t letter) const;
  void InsertTab(int page);
  void Show(int page);
  /// The front page was switched off: brings the first page that is on to the front.
  void ReplaceFrontPage();
  void SwitchTo(int page) noexcept;
  /// The area of the pages in a strip of that size (TCM_ADJUSTRECT).
  RECT PageArea(int width, int height) const;
  void PlacePanel(HWND panel) const;

  std::vector<Page> pages_;
  SystemLibrary themes_;
  int front_ = 0;
};

}  // namespace tarvik::ui
