#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/system_library_win32.h"
#include "platform/windows_win32.h"
#include "ui/form.h"
#include "ui/win32/annotations_win32.h"
#include "ui/win32/com_win32.h"
#include "ui/win32/control_window_win32.h"
#include "ui/win32/menu_win32.h"
#include "ui/win32/message_boxes_win32.h"
#include "ui/win32/message_font_win32.h"
#include "ui/win32/tab_strip_win32.h"
#include "ui/win32/taskbar_button_win32.h"

// How main creates the program's window:
//
//   ui::MessageFilter filter;
//   ui::Win32Form form(L"Form1", ui::FormRole::Main);
//   ui::Win32Pump pump(filter, [&] { return ...the stop request...; });
//   ... create the controls, set the event handlers, start up ...
//   if (!form.Visible()) form.Show();
//   return ui::RunMainLoop(filter);

namespace tarvik::ui {

/// Destroying the main window ends the program.
enum class FormRole { Main, Secondary };

class Win32Form final : public Form {
 public:
  /// Creates the window, hidden. Throws RuntimeError when that fails.
  Win32Form(const wchar_t* className, FormRole role);
  ~Win32Form() override;
  Win32Form(const Win32Form&) = delete;
  Win32Form& operator=(const Win32Form&) = delete;

  /// The form that the window is or belongs to; null for a window that is not ours.
  static Win32Form* Of(HWND window);

  Label& AddLabel(int id, int page, const std::wstring& caption) override;
  Label& AddLiveLabel(int id) override;
  Button& AddButton(int id, int page, const std::wstring& caption) override;
  CheckBox& AddCheckBox(int id, int page, const std::wstring& caption) override;
  TextBox& AddTextBox(int id, int page, TextBoxStyle style) override;
  ComboBox& AddComboBox(int id, int page, ComboBoxStyle style) override;
  ListBox& AddListBox(int id, int page, const std::wstring& toolTip) override;
  TabStrip& AddTabStrip(int id, const std::vector<std::wstring>& captions) override;
  StatusBar& AddStatusBar(int id, int fields) override;
  TextView& AddTextView(int id) override;
  MenuItem& AddMenu(int id, const std::wstring& caption) override;
  MenuItem& AddMenuCommand(int id, MenuItem& menu, const std::wstring& caption) override;
  void AddMenuSeparator(MenuItem& menu) override;

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

  void StartTimer(int timer, int milliseconds, std::function<void()> handler) override;
  void StopTimer(int timer) override;
  void SetTaskbarState(TaskbarState state) override;

  Size WindowSize() const override;
  void SetWindowSize(Size size) override;
  Size ClientSize() const override;
  void FixSize() override;
  Size WorkArea() const override;
  void SetMinimumWindowSize(Size size) override { minimumSize_ = size; }
  void PlaceBeside(const Form& other, const Control& keep) override;
  int Dpi() const override { return dpi_; }
  int LineHeight() const override { return Font().LineHeight(); }
  std::optional<SavePlace> AskWhereToSave(const SavePrompt& prompt) override;

  /// The window; null once it is destroyed.
  HWND Window() const { return window_; }
  const MeasuredFont& Font() const { return *font_; }
  const Annotations& ScreenReaders() const { return annotations_; }
  /// Converts pixels at 96 dots per inch to pixels at the window's current scaling.
  int Scaled(int length) const { return MulDiv(length, dpi_, USER_DEFAULT_SCREEN_DPI); }
  const Scaling& DpiScaling() const { return scaling_; }
  /// GetSystemMetrics at the window's current scaling.
  int Metric(int index) const { return scaling_.Metric(index, dpi_); }

  /// Moves the focus to the control's window: now, or when the form is active and enabled again. Does nothing
  /// when the control or one of its parents is hidden or disabled.
  void FocusOn(HWND control);
  /// True when the control has the focus, or will have it when the form is active again.
  bool FocusIsIn(HWND control) const;
  /// Moves the focus to the first tab stop after the label and selects its text. For the label's mnemonic.
  void FocusOnFieldOf(const ControlWindow& label);
  /// The same for the first tab stop on the panel; without one, the row of tabs gets the focus.
  void FocusOnFirstOf(HWND panel);
  /// Moves the focus out of the window, to the next tab stop, before the window is hidden or disabled.
  void MoveFocusFrom(HWND window);

  /// Keeps the input method (IME) away from an edit window.
  void RemoveInputMethod(HWND edit);

  /// Creates the panel and the controls of the page that do not exist yet, unless the form was never shown.
  void CreatePage(int page);

  /// Handles an input message as a dialog would; true when it must not be dispatched any more.
  bool FilterMessage(MSG& message);

 private:
  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  void OnCommand(WPARAM wParam, LPARAM lParam) noexcept;
  bool OnContextMenu(HWND control, LPARAM place) noexcept;
  /// Shows the commands in a menu at that point of the screen. Returns the id of the chosen one; 0 = none.
  int AskForCommand(const std::vector<MenuItem*>& commands, POINT place) const;
  void OnClose() noexcept;
  bool SessionMayEnd() noexcept;
  bool UserMayClose(const std::function<bool()>& question) noexcept;
  void OnDestroy() noexcept;
  void Unload() noexcept;
  void OnDpiChanged(int dpi, const RECT& suggested) noexcept;
  void OnAppearanceChanged(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  bool ApplyMessageFont() noexcept;
  /// Sets the window's icons at its current scaling.
  void SetIcons() noexcept;
  void UpdateLayout() noexcept;
  bool ShowHourglassCursor() const;
  void SetMinTrackSize(MINMAXINFO& info) const;
  void KeepOnScreen();
  void OnTimer(UINT_PTR timer) noexcept;
  void Finish() noexcept;
  void RestoreFocus();

  bool FilterKeyDown(MSG& message);
  bool FilterHelp(const MSG& message);
  bool FilterEscape(const MSG& message);
  bool FilterEnter(const MSG& message);
  void PressDefaultButton(int page);
  bool FilterTab(MSG& message);
  bool FilterMnemonic(const MSG& message);
  bool FilterShortcut(const MSG& message);
  /// The item of the menu bar of which the condition is true; null when not found.
  template <typename Condition>
  const Win32MenuItem* FindCommand(const Condition& condition) const;
  void RunCommand(const Win32MenuItem* command) noexcept;
  bool MayMoveFocusTo(const ControlWindow* target);

  template <typename Type, typename... Arguments>
  Type& Add(int id, int page, Arguments&&... arguments);
  /// The control that the window is, or is a part of; null for any other window.
  ControlWindow* ControlOf(HWND window) const;
  ControlWindow* ControlWithId(int id) const;
  /// True when the control is a reachable stop of the Tab key.
  bool IsTabStop(HWND control) const;
  /// True when the control and its parents inside the form are visible and enabled.
  bool IsReachable(HWND control) const;
  void FocusByKey(HWND control);

  const wchar_t* className_;
  FormRole role_;
  Win32MessageBoxes boxes_{*this};
  Scaling scaling_;
  SystemLibrary commonControls_;
  SystemLibrary inputMethods_;
  ComObjects com_;
  Annotations annotations_;
  TaskbarButton taskbarButton_;
  HWND window_ = nullptr;
  int dpi_ = USER_DEFAULT_SCREEN_DPI;
  std::unique_ptr<MeasuredFont> font_;
  std::unique_ptr<Win32Menu> menuBar_;
  std::vector<std::unique_ptr<ControlWindow>> controls_;
  Win32TabStrip* tabStrip_ = nullptr;
  HICON largeIcon_ = nullptr;
  HICON smallIcon_ = nullptr;
  Size minimumSize_;
  struct Timer {
    int number;
    std::function<void()> handler;
  };
  std::vector<Timer> timers_;  ///< those that are running
  Pointer pointer_ = Pointer::Default;
  HWND lastFocus_ = nullptr;  ///< where the focus was when the window last lost it
  bool everShown_ = false;
  bool layoutDue_ = false;  ///< scaling, font or colours changed while the window was minimised
  bool unloaded_ = false;
};

}  // namespace tarvik::ui
