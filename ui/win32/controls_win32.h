#pragma once

#include <memory>
#include <string>

#include "ui/form.h"
#include "ui/win32/control_window_win32.h"
#include "ui/win32/message_font_win32.h"
#include "ui/win32/tool_tip_win32.h"

namespace tarvik::ui {

/// Code of the right mouse button in events.
inline constexpr int16_t kRightButton = 2;

enum class LabelKind { Caption, LiveRegion };

class Win32Label final : public CaptionedControl<Label> {
 public:
  Win32Label(Win32Form& form, int page, int id, LabelKind kind);

  Size SizeFor(const std::wstring& caption) const override;
  bool AcceptsFocusAt(POINT) const override { return false; }
  void SetCaption(const std::wstring& caption) override;
  bool HasMnemonic(wchar_t letter) const override;
  void Annotate() override;
  void OnCommand(WORD notification) override;
  void OnMnemonic(wchar_t letter) override;
  void SetToolTip(const std::wstring& text) override { toolTip_.SetText(text); }
  void OnPointerOver() override;

 protected:
  void OnCreated() override { Subclass(Window()); }
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  LabelKind kind_;
  ToolTip toolTip_;
};

class Win32Button final : public CaptionedControl<Button> {
 public:
  Win32Button(Win32Form& form, int page, int id, bool startsGroup);

  Size SizeFor(const std::wstring& caption) const override;
  bool CausesValidation() const override { return causesValidation; }
  void OnCommand(WORD notification) override;
  void OnMnemonic(wchar_t letter) override;
};

class Win32CheckBox final : public CaptionedControl<CheckBox> {
 public:
  Win32CheckBox(Win32Form& form, int page, int id);

  Size SizeFor(const std::wstring& caption) const override;
  bool Checked() const override;
  void SetChecked(bool checked) override;
  void OnCommand(WORD notification) override;
  void OnMnemonic(wchar_t letter) override;

 protected:
  void OnCreated() override;

 private:
  bool checked_ = false;  ///< until the window exists
};

class Win32TextBox final : public UncaptionedControl<TextBox> {
 public:
  Win32TextBox(Win32Form& form, int page, int id, TextBoxStyle style);

  Size SizeFor(const std::wstring& caption) const override;
  std::wstring Text() const override { return WindowText(); }
  void SetText(const std::wstring& text) override { SetWindowCaption(text); }
  void SetPasswordMask(bool masked) override;
  bool PasswordMask() const override;
  void SetSelection(int start, int length) override;
  void OnCommand(WORD notification) override;
  bool Validate() override;

 protected:
  void OnCreated() override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void OnButtonDown(int16_t button, UINT message, WPARAM wParam, LPARAM lParam);

  bool masked_;
  bool takesInputMethod_;
};

class Win32ComboBox final : public UncaptionedControl<ComboBox> {
 public:
  Win32ComboBox(Win32Form& form, int page, int id, ComboBoxStyle style);

  Size SizeFor(const std::wstring& caption) const override;
  void SetBounds(const Rect& bounds) override;
  bool IsListOpen() const { return Send(CB_GETDROPPEDSTATE) != 0; }
  std::wstring Text() const override { return WindowText(); }
  void SetText(const std::wstring& text) override { SetWindowCaption(text); }
  int Count() const override;
  std::wstring Item(int index) const override;
  void InsertItem(int index, const std::wstring& text) override;
  void Clear() override;
  void Select(int index) override;
  int SelectedIndex() const override { return static_cast<int>(Send(CB_GETCURSEL)); }
  void OnCommand(WORD notification) override;

 protected:
  void OnCreated() override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  /// Closes the open list and copies its selected entry, if any, to the field.
  void AcceptListEntry();
  /// WM_PASTE without the spaces around the text.
  void Paste();

  bool decimalKeyDown_ = false;  ///< the last key pressed in the field was the keypad's decimal key
};

class Win32ListBox final : public UncaptionedControl<ListBox> {
 public:
  Win32ListBox(Win32Form& form, int page, int id, const std::wstring& toolTip);

  void ApplyFont() override;

  Size SizeFor(const std::wstring& caption) const override;
  void SetBounds(const Rect& bounds) override { Move(bounds); }
  int Count() const override;
  std::wstring Item(int index) const override;
  void AddItem(const std::wstring& text) override;
  void Clear() override;
  void Select(int index) override;
  int SelectedIndex() const override;
  int ClientWidth() const override;
  void SetHorizontalExtent(int pixels) override;
  void UseFixedPitch(bool japanese) override;
  void SetRedraw(bool redraw) override;
  void OnCommand(WORD notification) override;
  void OnPointerOver() override;

  /// Selects the line at that point of the screen, if there is one.
  void SelectAt(POINT place);
  /// Where the keyboard opens the context menu: below the selected line, or at the list's corner when the
  /// line is not visible or no line is selected.
  POINT PlaceForMenu() const;

 private:
  const MeasuredFont& Font() const;

  ToolTip toolTip_;
  const wchar_t* face_ = nullptr;             ///< the fixed-pitch face; null for the message font
  std::unique_ptr<MeasuredFont> fixedPitch_;  ///< the font of that face
};

}  // namespace tarvik::ui
