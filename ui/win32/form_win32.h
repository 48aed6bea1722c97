#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/system_library_win32.h"
#include "platform/windows_win32.h"
#include "ui/form.h"
#include "ui/win32/control_window_win32.h"
#include "ui/win32/menu_win32.h"
#include "ui/win32/message_boxes_win32.h"
#include "ui/win32/message_font_win32.h"
#include "ui/win32/tab_strip_win32.h"

// How main makes the program's window:
//
//   ui::MessageFilter filter;
//   ui::Win32Form form(L"Form1", ui::FormRole::Main);
//   ui::Win32Pump pump(filter, [&] { return ...the stop request...; });
//   ... make the controls, wire the events, do the start-up ...
//   if (!form.Visible()) form.Show();
//   return ui::RunMainLoop(filter);

namespace tarvik::ui {

/// The main window's end is the program's end.
enum class FormRole { Main, Secondary };

class Win32Form final : public Form {
 public:
  /// Creates the window, hidden. Throws RuntimeError when the system refuses.
  Win32Form(const wchar_t* className, FormRole role);
  ~Win32Form() override;
  Win32Form(const Win32Form&) = delete;
  Win32Form& operator=(const Win32Form&) = delete;

  /// The form whose window, or whose control, that window is; null when it is none of ours.
  static Win32Form* Of(HWND window);

  Label& AddLabel(int id, int page, const std::wstring& caption) override;
  Button& AddButton(int id, int page, const std::wstring& caption) override;
  CheckBox& AddCheckBox(int id, int page, const std::wstring& caption) override;
  TextBox& AddTextBox(int id, int page, TextBoxStyle style) override;
  ComboBox& AddComboBox(int id, int page, ComboBoxStyle style) override;
  ListBox& AddListBox(int id, int page, const std::wstring& toolTip) override;
  TabStrip& AddTabStrip(int id, const std::vector<std::wstring>& captions) override;
  MenuItem& AddMenu(int id, const std::wstring& caption) override;
  MenuItem& AddMenuCommand(int id, MenuItem& menu, const std::wstring& caption) override;

  report::MessageBoxes& Boxes() override { return boxes_; }

  void SetCaption(const std::wstring& caption) override;
  std::wstring Caption() const override;
  void Show() override;
  bool Visible() const override;
  /// Show was called.
  bool EverShown() const { return everShown_; }
  bool Close() override;
  void SetEnabled(bool enabled) override;
  bool Enabled() const override;
  bool Minimised() const override;
  void MakeTopmost() override;
  void SetPointer(Pointer pointer) override;
  Pointer CurrentPointer() const override { return pointer_; }

  Size WindowSize() const override;
  void SetWindowSize(Size size) override;
  Size ClientSize() const override;
  void FixSize() override;
  void SetMinimumWindowSize(Size size) override { minimumSize_ = size; }
  int Dpi() const override { return dpi_; }
  int LineHeight() const override { return Font().LineHeight(); }

  /// The window; null once it is destroyed.
  HWND Window() const { return window_; }
  const MeasuredFont& Font() const { return *font_; }
  /// A length at 96 dots per inch, in pixels of the window's present scaling.
  int Scaled(int length) const { return MulDiv(length, dpi_, USER_DEFAULT_SCREEN_DPI); }
  /// GetSystemMetrics at the window's present scaling.
  int Metric(int index) const { return scaling_.Metric(index, dpi_); }

  /// Gives the control's window the focus now, or, when the form is not the active window, once it is. A
  /// control that cannot be reached leaves the focus where it is.
  void FocusOn(HWND control);
  /// True when the control has the focus, or gets it once the form is the active window again.
  bool FocusIsIn(HWND control) const;
  /// The user went by a key to the field that the label stands before: it gets the focus and is ready to be
  /// typed over.
  void FocusOnFieldOf(const ControlWindow& label);
  /// The same for the first control on the panel that takes the focus, or else the row of tabs.
  void FocusOnFirstOf(HWND panel);
  /// The window, or what holds it, is about to be hidden or disabled: a focus in it moves on.
  void MoveFocusFrom(HWND window);

  /// Makes the page's panel and controls, which wait for the form to be shown.
  void MakePage(int page);

  /// Does with an input message what a dialog would do; true when that was all.
  bool FilterMessage(MSG& message);

 private:
  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  void OnCommand(WPARAM wParam, LPARAM lParam) noexcept;
  void OnClose() noexcept;
  bool UserMayClose(const std::function<bool()>& question) noexcept;
  void OnDestroy() noexcept;
  void Unload() noexcept;
  void OnScaling(int dpi, const RECT& suggested) noexcept;
  void OnColoursOrFont(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  bool TakeMessageFont() noexcept;
  void LayOutAnew() noexcept;
  bool ShowHourglass() const;
  void SetMinimumTrack(MINMAXINFO& info) const;
  void KeepOnScreen();
  void MakeOtherPages() noexcept;
  void RestoreFocus();

  bool FilterKeyDown(MSG& message);
  bool FilterEscape(const MSG& message);
  bool FilterEnter(const MSG& message);
  void PressDefaultButton(int page);
  bool FilterTab(MSG& message);
  bool FilterMnemonic(const MSG& message);
  bool MayLeaveFor(const ControlWindow* target);

  template <typename Type, typename... Arguments>
  Type& Add(int id, int page, Arguments&&... arguments);
  /// The control that the window is, or is a part of; null when it is none.
  ControlWindow* ControlOf(HWND window) const;
  ControlWindow* ControlWithId(int id) const;
  /// True when the control can have the focus: it is a stop of the Tab key, shown and enabled.
  bool IsStop(HWND control) const;
  bool IsReachable(HWND control) const;
  void GoByKeyTo(HWND control);

  const wchar_t* className_;
  FormRole role_;
  Win32MessageBoxes boxes_{*this};
  Scaling scaling_;
  SystemLibrary commonControls_;
  HWND window_ = nullptr;
  int dpi_ = USER_DEFAULT_SCREEN_DPI;
  std::unique_ptr<MeasuredFont> font_;
  std::unique_ptr<Win32Menu> menuBar_;
  std::vector<std::unique_ptr<ControlWindow>> controls_;
  Win32TabStrip* tabStrip_ = nullptr;
  Size minimumSize_;
  Pointer pointer_ = Pointer::Default;
  HWND lastFocus_ = nullptr;  ///< where the focus was when the window last lost it
  bool everShown_ = false;
  bool layoutDue_ = false;  ///< scaling, font or colours changed while the window was minimised
  bool unloaded_ = false;
};

}  // namespace tarvik::ui
