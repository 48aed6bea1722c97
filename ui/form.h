#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/runtime_error.h"
#include "report/message_boxes.h"
#include "resources/messages.h"
#include "ui/control.h"

namespace tarvik::ui {

enum class Pointer { Default, Hourglass };

/// A page of a tab strip as the parent of a new control; kNoPage = the window itself.
inline constexpr int kNoPage = -1;

/// How a text box takes its text.
enum class TextBoxStyle { Plain, Password };

/// Whether a combo box takes typed text beside its list.
enum class ComboBoxStyle { Editable, DropDownList };

/// A top-level window and the maker of its controls. Controls live as long as their form and come in the
/// order of the Tab key in which they are made. Ids are those of app/control_ids.h.
class Form {
 public:
  virtual ~Form() = default;

  virtual Label& AddLabel(int id, int page, const std::wstring& caption) = 0;
  /// The first button of a page is its default button: Enter in another control of the page presses it.
  virtual Button& AddButton(int id, int page, const std::wstring& caption) = 0;
  virtual CheckBox& AddCheckBox(int id, int page, const std::wstring& caption) = 0;
  virtual TextBox& AddTextBox(int id, int page, TextBoxStyle style) = 0;
  virtual ComboBox& AddComboBox(int id, int page, ComboBoxStyle style) = 0;
  virtual ListBox& AddListBox(int id, int page, const std::wstring& toolTip) = 0;
  /// One strip a form; its pages are the parents of the controls with that page number.
  virtual TabStrip& AddTabStrip(int id, const std::vector<std::wstring>& captions) = 0;
  /// A menu in the menu bar.
  virtual MenuItem& AddMenu(int id, const std::wstring& caption) = 0;
  /// A command in a menu that AddMenu made.
  virtual MenuItem& AddMenuCommand(int id, MenuItem& menu, const std::wstring& caption) = 0;

  // Controls whose caption is a message; its built-in English text is the first caption.
  Label& AddLabel(int id, int page, Message message);
  Button& AddButton(int id, int page, Message message);
  CheckBox& AddCheckBox(int id, int page, Message message);
  /// One message a page.
  TabStrip& AddTabStrip(int id, const std::vector<Message>& messages);
  MenuItem& AddMenu(int id, Message message);
  MenuItem& AddMenuCommand(int id, MenuItem& menu, Message message);

  /// The elements that were created with a message, in the order of their creation.
  const std::vector<Element*>& Captioned() const { return captioned_; }

  /// The event boundary: calls one of the program's handlers and shows its RuntimeError in a critical box of
  /// this form. Every handler is called this way.
  void Guarded(const std::function<void()>& handler);

  /// Puts an error into the words of that box; empty for the error's own text.
  std::function<std::wstring(const RuntimeError& error)> errorText;

  /// The boxes that this window owns. They live as long as the form.
  virtual report::MessageBoxes& Boxes() = 0;

  virtual void SetCaption(const std::wstring& caption) = 0;
  virtual std::wstring Caption() const = 0;
  virtual void Show() = 0;
  virtual bool Visible() const = 0;
  /// What the close button does: asks onQueryClose, then unloads. False when that was refused; a disabled
  /// window refuses. The object and its controls stay for whoever still holds them, without a window.
  virtual bool Close() = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool Enabled() const = 0;
  virtual bool Minimised() const = 0;
  /// SetWindowPos with HWND_TOPMOST, SWP_NOMOVE and SWP_NOSIZE.
  virtual void MakeTopmost() = 0;
  virtual void SetPointer(Pointer pointer) = 0;
  virtual Pointer CurrentPointer() const = 0;

  /// Outer size of the window, in pixels of its present scaling.
  virtual Size WindowSize() const = 0;
  virtual void SetWindowSize(Size size) = 0;
  virtual Size ClientSize() const = 0;
  /// The user cannot change the window's size; it keeps no button that would.
  virtual void FixSize() = 0;
  /// The user cannot drag the window below this outer size.
  virtual void SetMinimumWindowSize(Size size) = 0;
  /// Dots per inch of the monitor that the window is on; 96 = 100 percent.
  virtual int Dpi() const = 0;
  /// The height of one line of the message font; the unit of the layout's grid.
  virtual int LineHeight() const = 0;

  /// The window becomes the active one, also when one of its message boxes has closed.
  std::function<void()> onActivate;
  std::function<void()> onResize;
  /// The scaling, the message font or the colours changed; controls have their new font already. Raised when
  /// the window is restored if it was minimised, because a minimised window has no room to measure.
  std::function<void()> onScalingChanged;
  /// The user asks to close; false refuses.
  std::function<bool()> onQueryClose;
  /// Windows asks whether its session may end (WM_QUERYENDSESSION); false refuses. Without a handler it may.
  std::function<bool()> onQueryEndSession;
  /// The session ends, also against a refusal (WM_ENDSESSION), and the process may be ended at any moment.
  /// Code of any window may be on the stack.
  std::function<void()> onEndSession;
  /// The window is about to be destroyed.
  std::function<void()> onUnload;
  /// The Esc key, wherever the focus is.
  std::function<void()> onEscape;

 protected:
  /// Guarded, for a question: a handler that fails has not agreed. Without a handler the answer is yes.
  bool Agrees(const std::function<bool()>& question);

 private:
  template <typename Type>
  Type& WithMessage(Type& element, Message message);

  std::vector<Element*> captioned_;
};

}  // namespace tarvik::ui
