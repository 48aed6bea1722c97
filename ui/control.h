#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "resources/messages.h"

namespace tarvik::ui {

/// Pixels of the window's present scaling.
struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

/// Pixels of the window's present scaling, measured from the client area of the control's parent.
struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  bool operator==(const Rect&) const = default;
};

/// Mouse buttons and shift states as events report them.
inline constexpr int16_t kLeftButton = 1;
inline constexpr int16_t kShiftHeld = 1;
inline constexpr int16_t kCtrlHeld = 2;
inline constexpr int16_t kAltHeld = 4;

/// A mouse button going down: the button's code and the sum of the shift states.
using MouseDown = std::function<void(int16_t button, int16_t shift)>;

/// One typed character, in and out: set to 0 it is swallowed. Backspace comes as 8; the other control
/// characters (the clipboard's keys among them) are the control's own and raise no event.
using KeyPress = std::function<void(int16_t& keyAscii)>;

/// A control or a menu item. Operations throw RuntimeError when the platform refuses them. All texts of a
/// caption may hold "&" before the letter that is its mnemonic.
class Element {
 public:
  virtual ~Element() = default;

  /// "Label", "TextBox", "CommandButton", "CheckBox", "ComboBox", "ListBox", "SSTab" or "Menu".
  virtual std::wstring_view TypeName() const = 0;

  virtual void SetCaption(const std::wstring& caption) = 0;
  virtual std::wstring Caption() const = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual bool Visible() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool Enabled() const = 0;

  /// The message that is its caption; nothing when it has none, or another caption.
  std::optional<Message> captionMessage;
};

/// An element with a place in the window.
class Control : public Element {
 public:
  virtual void SetFocus() = 0;
  /// True when the control has the focus, or gets it once its window is the active one again.
  virtual bool HasFocus() const = 0;
  virtual void SetBounds(const Rect& bounds) = 0;
  virtual Rect Bounds() const = 0;

  /// What the control needs to show `caption` uncut (boxes: their height, and the width of the text).
  virtual Size SizeFor(const std::wstring& caption) const = 0;
};

class Label : public Control {
 public:
  std::wstring_view TypeName() const final { return L"Label"; }
  /// Shown while the pointer rests on the label; empty for none. Set once, before the label is first shown.
  virtual void SetToolTip(const std::wstring& text) = 0;
  std::function<void()> onClick;
  MouseDown onMouseDown;
};

class Button : public Control {
 public:
  std::wstring_view TypeName() const final { return L"CommandButton"; }
  std::function<void()> onClick;
  /// False lets the user leave a text box for this button without onValidate being asked.
  bool causesValidation = true;
};

class CheckBox : public Control {
 public:
  std::wstring_view TypeName() const final { return L"CheckBox"; }
  virtual bool Checked() const = 0;
  /// Raises onClick when the state changes, as a click does.
  virtual void SetChecked(bool checked) = 0;
  std::function<void()> onClick;
};

class TextBox : public Control {
 public:
  std::wstring_view TypeName() const final { return L"TextBox"; }
  virtual std::wstring Text() const = 0;
  virtual void SetText(const std::wstring& text) = 0;
  /// Shows the text in clear, or as password characters.
  virtual void SetPasswordMask(bool masked) = 0;
  virtual bool PasswordMask() const = 0;
  virtual void SetSelection(int start, int length) = 0;
  std::function<void()> onGotFocus;
  KeyPress onKeyPress;
  MouseDown onMouseDown;
  /// Asked before the focus moves to another control of the window; false keeps it here.
  std::function<bool()> onValidate;
};

/// An edit field with a drop-down list, or a drop-down list alone.
class ComboBox : public Control {
 public:
  std::wstring_view TypeName() const final { return L"ComboBox"; }
  virtual std::wstring Text() const = 0;
  /// A drop-down list alone refuses it.
  virtual void SetText(const std::wstring& text) = 0;
  virtual int Count() const = 0;
  /// The item's text; empty beyond the last item.
  virtual std::wstring Item(int index) const = 0;
  virtual void InsertItem(int index, const std::wstring& text) = 0;
  virtual void Clear() = 0;
  /// Makes the item the current one: its text is the field's.
  virtual void Select(int index) = 0;
  /// The item that was last selected, and not typed over since; -1 = none.
  virtual int SelectedIndex() const = 0;
  /// The keys of the edit field.
  KeyPress onKeyPress;
  std::function<void(int16_t keyCode, int16_t shift)> onKeyDown;
};

/// A single-selection list of lines.
class ListBox : public Control {
 public:
  std::wstring_view TypeName() const final { return L"ListBox"; }
  virtual int Count() const = 0;
  virtual std::wstring Item(int index) const = 0;
  virtual void AddItem(const std::wstring& text) = 0;
  virtual void Clear() = 0;
  /// Selects the line and scrolls it into view.
  virtual void Select(int index) = 0;
  /// -1 = none.
  virtual int SelectedIndex() const = 0;
  virtual int ClientWidth() const = 0;
  virtual void SetHorizontalExtent(int pixels) = 0;
  /// Between true and false nothing is painted, so that a batch of lines costs one painting.
  virtual void SetRedraw(bool redraw) = 0;
  std::function<void()> onDoubleClick;
};

/// A row of tabs with one page of controls each. The pages' indices never move; a page that is switched
/// off is hidden from the row and cannot be brought to front.
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
  /// The messages that are the pages' captions; empty when they have others.
  std::vector<Message> pageMessages;
  /// What the strip adds around its pages: the row of tabs and the frame.
  virtual Size FrameSize() const = 0;
  /// Where a page's controls start inside the strip's bounds; they are placed relative to the page.
  std::function<void(int page)> onPageFront;
};

class MenuItem : public Element {
 public:
  std::wstring_view TypeName() const final { return L"Menu"; }
  std::function<void()> onClick;
};

}  // namespace tarvik::ui
