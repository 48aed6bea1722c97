#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "resources/messages.h"

namespace tarvik::ui {

/// In pixels at the window's current scaling.
struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

/// In pixels at the window's current scaling, relative to the client area of the control's parent.
struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  bool operator==(const Rect&) const = default;
};

/// Codes of mouse buttons and shift states in events.
inline constexpr int16_t kLeftButton = 1;
inline constexpr int16_t kShiftHeld = 1;
inline constexpr int16_t kCtrlHeld = 2;
inline constexpr int16_t kAltHeld = 4;

/// A mouse button was pressed. `shift` is the sum of the shift states.
using MouseDown = std::function<void(int16_t button, int16_t shift)>;

/// A character was typed. The handler may replace it, or discard it by setting it to 0. Backspace is 8; other
/// control characters, such as those of the clipboard keys, raise no event.
using KeyPress = std::function<void(int16_t& keyAscii)>;

/// A control or a menu item. Operations throw RuntimeError when the platform rejects them. In a caption, "&"
/// marks the next letter as the mnemonic.
class Element {
 public:
  virtual ~Element() = default;

  /// "Label", "TextBox", "CommandButton", "CheckBox", "ComboBox", "ListBox", "SSTab", "StatusBar", "TextView"
  /// or "Menu".
  virtual std::wstring_view TypeName() const = 0;

  virtual void SetCaption(const std::wstring& caption) = 0;
  virtual std::wstring Caption() const = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual bool Visible() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool Enabled() const = 0;

  /// The message shown as the caption; nothing when the caption is not from the message table.
  std::optional<Message> captionMessage;
};

/// An element with a position in the window.
class Control : public Element {
 public:
  virtual void SetFocus() = 0;
  /// True when the control has the focus, or will have it when its window becomes active again.
  virtual bool HasFocus() const = 0;
  virtual void SetBounds(const Rect& bounds) = 0;
  virtual Rect Bounds() const = 0;

  /// The size needed to show `caption` in full. For boxes, `caption` is a sample of their text.
  virtual Size SizeFor(const std::wstring& caption) const = 0;
};

class Label : public Control {
 public:
  std::wstring_view TypeName() const final { return L"Label"; }
  /// The tool tip of the label; empty for none. Must be set before the label is first shown.
  virtual void SetToolTip(const std::wstring& text) = 0;
  std::function<void()> onClick;
  MouseDown onMouseDown;
};

class Button : public Control {
 public:
  std::wstring_view TypeName() const final { return L"CommandButton"; }
  std::function<void()> onClick;
  /// False: the focus may move from a text box to this button without a call of onValidate.
  bool causesValidation = true;
};

class CheckBox : public Control {
 public:
  std::wstring_view TypeName() const final { return L"CheckBox"; }
  virtual bool Checked() const = 0;
  /// Raises onClick if the state changes, as a click does.
  virtual void SetChecked(bool checked) = 0;
  std::function<void()> onClick;
};

class TextBox : public Control {
 public:
  std::wstring_view TypeName() const final { return L"TextBox"; }
  virtual std::wstring Text() const = 0;
  virtual void SetText(const std::wstring& text) = 0;
  /// True shows password characters instead of the text.
  virtual void SetPasswordMask(bool masked) = 0;
  virtual bool PasswordMask() const = 0;
  virtual void SetSelection(int start, int length) = 0;
  std::function<void()> onGotFocus;
  KeyPress onKeyPress;
  MouseDown onMouseDown;
  /// Called before the focus moves to another control of the window; false keeps it here.
  std::function<bool()> onValidate;
};

/// A drop-down list, with or without an edit field. In the field the decimal key of the keypad types a dot on
/// every keyboard layout, and spaces around a pasted text are dropped.
class ComboBox : public Control {
 public:
  std::wstring_view TypeName() const final { return L"ComboBox"; }
  virtual std::wstring Text() const = 0;
  /// Only for combo boxes with an edit field.
  virtual void SetText(const std::wstring& text) = 0;
  virtual int Count() const = 0;
  /// The item's text; empty when the index is out of range.
  virtual std::wstring Item(int index) const = 0;
  virtual void InsertItem(int index, const std::wstring& text) = 0;
  virtual void Clear() = 0;
  /// Selects the item and copies its text to the field.
  virtual void Select(int index) = 0;
  /// The selected item; -1 = none, or the user has typed since it was selected.
  virtual int SelectedIndex() const = 0;
  /// For keys pressed in the edit field.
  KeyPress onKeyPress;
  std::function<void(int16_t keyCode, int16_t shift)> onKeyDown;
  /// The user has changed the field to `text`, by typing, pasting or selecting an item.
  std::function<void(const std::wstring& text)> onChange;
};

/// A single-selection list of lines.
class ListBox : public Control {
 public:
  std::wstring_view TypeName() const final { return L"ListBox"; }
  virtual int Count() const = 0;
  virtual std::wstring Item(int index) const = 0;
  virtual void AddItem(const std::wstring& text) = 0;
  virtual void Clear() = 0;
  /// Selects the line and scrolls it into view; -1 clears the selection.
  virtual void Select(int index) = 0;
  /// -1 = none.
  virtual int SelectedIndex() const = 0;
  virtual int ClientWidth() const = 0;
  virtual void SetHorizontalExtent(int pixels) = 0;
  /// Shows the lines in a fixed-pitch face, for Japanese texts in one whose full-width letters are exactly
  /// two columns wide. Keeps the message font when the PC does not have the face as an outline font.
  virtual void UseFixedPitch(bool japanese) = 0;
  /// False suspends painting, so that a batch of lines is painted once.
  virtual void SetRedraw(bool redraw) = 0;
  std::function<void()> onDoubleClick;
  /// The user selected a line: with the mouse, with the keyboard, or with the click that opens the menu.
  std::function<void()> onSelect;
  /// The commands that a right click, the menu key and Shift+F10 show, in this order; null = a separator.
  std::vector<class MenuItem*> contextMenu;
};

/// A row of tabs, each with a page of controls. A page that is switched off has no tab and cannot be brought
/// to the front; the indices of the other pages stay the same.
class TabStrip : public Control {
 public:
  std::wstring_view TypeName() const final { return L"SSTab"; }
  virtual int PageCount() const = 0;
  virtual void SetPageCaption(int page, const std::wstring& caption) = 0;
  virtual std::wstring PageCaption(int page) const = 0;
  virtual void SetPageOn(int page, bool on) = 0;
  virtual bool PageOn(int page) const = 0;
  /// Throws RuntimeError when the page is switched off.
  virtual void BringToFront(int page) = 0;
  virtual int FrontPage() const = 0;
  /// The messages shown as the pages' captions; empty when they are not from the message table.
  std::vector<Message> pageMessages;
  /// The difference between the strip's size and a page's: the row of tabs and the frame. The bounds of a
  /// page's controls are relative to the page.
  virtual Size FrameSize() const = 0;
  /// Another page has been brought to the front.
  std::function<void(int page)> onPageFront;
};

/// A row of fields along the bottom edge of a window. It is not a stop of the Tab key. Fields are counted
/// from the left.
class StatusBar : public Control {
 public:
  std::wstring_view TypeName() const final { return L"StatusBar"; }
  virtual int FieldCount() const = 0;
  /// The field shows `text`. Its tool tip and its name for screen readers are `whole`. Never throws
  /// RuntimeError: a run must not end because a mark cannot be shown.
  virtual void SetField(int field, const std::wstring& text, const std::wstring& whole) = 0;
  virtual std::wstring FieldText(int field) const = 0;
  virtual std::wstring FieldWhole(int field) const = 0;
  /// One width per field, in pixels at the window's current scaling. What is left of the bar stays empty.
  virtual void SetFieldWidths(const std::vector<int>& widths) = 0;
  /// What the sizing grip covers of the bar's right end.
  virtual int GripWidth() const = 0;
  /// A field was clicked with the left mouse button.
  std::function<void(int field)> onFieldClick;
};

enum class ParagraphKind { Title, Heading, Step, Text };

struct Paragraph {
  ParagraphKind kind;
  std::wstring text;
};

/// A text for reading, a fifth larger than the message font. The user can select it, copy it as plain text,
/// and scroll it.
class TextView : public Control {
 public:
  std::wstring_view TypeName() const final { return L"TextView"; }
  /// Replaces the text and shows its beginning. Steps are numbered from 1. Screen readers use the first
  /// paragraph as the name of the text.
  virtual void SetParagraphs(const std::vector<Paragraph>& paragraphs) = 0;
  /// The whole text, with "\r\n" between paragraphs and no-break spaces after the number of a step.
  virtual std::wstring Text() const = 0;
};

/// A key combination that does what a menu command does.
struct Shortcut {
  int16_t keyCode = 0;  ///< a virtual key code; 0 = no shortcut
  int16_t shift = 0;    ///< the sum of the shift states that are held
  /// The shortcut works only while this control has the focus; null = anywhere in the window.
  const Control* focus = nullptr;
};

/// A menu, or a command in one. In a command's caption, the name of its shortcut follows a tab.
class MenuItem : public Element {
 public:
  std::wstring_view TypeName() const final { return L"Menu"; }
  Shortcut shortcut;
  std::function<void()> onClick;
};

}  // namespace tarvik::ui
