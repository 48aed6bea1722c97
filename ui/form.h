#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/runtime_error.h"
#include "report/message_boxes.h"
#include "resources/messages.h"
#include "ui/control.h"
#include "ui/save_prompt.h"

namespace tarvik::ui {

enum class Pointer { Default, Hourglass };

/// What the window's button in the taskbar shows over its icon.
enum class TaskbarState { None, Running, Failed };

/// As the page of a new control: the control is on the window itself.
inline constexpr int kNoPage = -1;

/// What a text box is for. Only a plain one works with an input method (IME), whose full-width digits nobody
/// wants in a number or a password.
enum class TextBoxStyle { Plain, Number, Password };

enum class ComboBoxStyle { Editable, DropDownList };

/// A top-level window, which creates and owns its controls. Tab moves through them in the order of their
/// creation. Ids are those of app/control_ids.h. `page` is a page of the tab strip or kNoPage.
class Form {
 public:
  virtual ~Form() = default;

  virtual Label& AddLabel(int id, int page, const std::wstring& caption) = 0;
  /// A label of the window for one line of changing text. Text that is too long ends in an ellipsis, "&" is
  /// an ordinary character, and screen readers announce each change.
  virtual Label& AddLiveLabel(int id) = 0;
  /// The first button of a page is its default button: Enter in another control of the page presses it.
  virtual Button& AddButton(int id, int page, const std::wstring& caption) = 0;
  virtual CheckBox& AddCheckBox(int id, int page, const std::wstring& caption) = 0;
  virtual TextBox& AddTextBox(int id, int page, TextBoxStyle style) = 0;
  virtual ComboBox& AddComboBox(int id, int page, ComboBoxStyle style) = 0;
  virtual ListBox& AddListBox(int id, int page, const std::wstring& toolTip) = 0;
  /// At most one per form. Its pages are the parents of the controls with that page number.
  virtual TabStrip& AddTabStrip(int id, const std::vector<std::wstring>& captions) = 0;
  /// A status bar with that many empty fields.
  virtual StatusBar& AddStatusBar(int id, int fields) = 0;
  virtual TextView& AddTextView(int id) = 0;
  /// Adds a menu to the menu bar.
  virtual MenuItem& AddMenu(int id, const std::wstring& caption) = 0;
  /// Adds a command to a menu that AddMenu returned.
  virtual MenuItem& AddMenuCommand(int id, MenuItem& menu, const std::wstring& caption) = 0;
  /// Adds a line between the commands before and after it.
  virtual void AddMenuSeparator(MenuItem& menu) = 0;

  // The same with a message as the caption, at first in its built-in English text.
  Label& AddLabel(int id, int page, Message message);
  Button& AddButton(int id, int page, Message message);
  CheckBox& AddCheckBox(int id, int page, Message message);
  /// One message per page.
  TabStrip& AddTabStrip(int id, const std::vector<Message>& messages);
  MenuItem& AddMenu(int id, Message message);
  MenuItem& AddMenuCommand(int id, MenuItem& menu, Message message);

  /// The elements created with a message, in the order of their creation.
  const std::vector<Element*>& Captioned() const { return captioned_; }

  /// The event boundary: calls one of the program's handlers and reports a RuntimeError from it in a critical
  /// message box of this form, or in its caption. Every handler is called this way.
  void Guarded(const std::function<void()>& handler);

  /// Words an error for that box. When not set, the box shows RuntimeError::Text().
  std::function<std::wstring(const RuntimeError& error)> errorText;

  /// Shows errors in the caption instead of a message box. For a window that can be used while a message box
  /// of another one is open: with two boxes, the user could answer the outer one first.
  bool errorsInCaption = false;

  /// The message boxes of this window. Valid for the lifetime of the form.
  virtual report::MessageBoxes& Boxes() = 0;

  virtual void SetCaption(const std::wstring& caption) = 0;
  virtual std::wstring Caption() const = 0;
  virtual void Show() = 0;
  virtual bool Visible() const = 0;
  /// What the close button does: calls onQueryClose, then destroys the window. False when the handler refuses
  /// or the window is disabled. The form and its controls still exist afterwards, without a window.
  virtual bool Close() = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool Enabled() const = 0;
  virtual bool Minimised() const = 0;
  /// SetWindowPos with HWND_TOPMOST, SWP_NOMOVE and SWP_NOSIZE.
  virtual void MakeTopmost() = 0;
  virtual void SetPointer(Pointer pointer) = 0;
  virtual Pointer CurrentPointer() const = 0;

  /// Calls the handler once, when the window handles messages that many milliseconds later or more. Timers
  /// are numbered by the caller. Starting one that is running already replaces it.
  virtual void StartTimer(int timer, int milliseconds, std::function<void()> handler) = 0;
  /// Does nothing when the timer is not running.
  virtual void StopTimer(int timer) = 0;

  /// Without a taskbar nothing happens. Failed lasts until the window becomes active; an active window shows
  /// None instead.
  virtual void SetTaskbarState(TaskbarState state) = 0;

  /// Outer size of the window, in pixels at its current scaling.
  virtual Size WindowSize() const = 0;
  virtual void SetWindowSize(Size size) = 0;
  virtual Size ClientSize() const = 0;
  /// The size of the work area (the screen without its task bars) of the monitor that the window is on, in
  /// pixels.
  virtual Size WorkArea() const = 0;
  /// Removes the sizing border and the minimise and maximise buttons.
  virtual void FixSize() = 0;
  /// The outer size below which the user cannot drag the window.
  virtual void SetMinimumWindowSize(Size size) = 0;
  /// Moves the hidden window next to the other one, where it covers as little as possible of `keep`, a
  /// control on the other window itself. It becomes narrower, down to its minimum size, where the screen is
  /// too small. Does nothing while the other window is hidden or minimised.
  virtual void PlaceBeside(const Form& other, const Control& keep) = 0;
  /// Dots per inch at the window's current scaling; 96 = 100 percent.
  virtual int Dpi() const = 0;
  /// Height of one line of the message font in pixels; the layout's spacing is derived from it.
  virtual int LineHeight() const = 0;

  /// Asks for a place to save a file in the dialog of Windows, which also asks before a file is replaced.
  /// Until the user answers, every form is disabled, as with a message box. Nothing when the user cancels.
  /// Throws RuntimeError when the dialog cannot be opened.
  virtual std::optional<SavePlace> AskWhereToSave(const SavePrompt& prompt) = 0;

  /// The window has become the active one, for example after one of its message boxes has closed.
  std::function<void()> onActivate;
  std::function<void()> onResize;
  /// The scaling, the message font or the colours have changed; the controls already have their new font. For
  /// a minimised window, which cannot be laid out, this is raised when it is restored.
  std::function<void()> onScalingChanged;
  /// The user wants to close the window; false refuses.
  std::function<bool()> onQueryClose;
  /// Windows asks whether its session may end (WM_QUERYENDSESSION); false refuses.
  std::function<bool()> onQueryEndSession;
  /// Why the session must not end when onQueryEndSession refuses, in the user's language. Windows shows it.
  std::wstring shutdownBlockReason;
  /// The session ends, even if onQueryEndSession refused (WM_ENDSESSION). Windows may end the process at any
  /// moment, and handlers of any window may be on the stack.
  std::function<void()> onEndSession;
  /// The window is about to be destroyed.
  std::function<void()> onUnload;
  /// Esc was pressed in any control of the window.
  std::function<void()> onEscape;
  /// A menu is about to open, or a command to run. The handler enables and disables the commands.
  std::function<void()> onUpdateCommands;
  /// F1 was pressed, and no command of the window has it as its shortcut.
  std::function<void()> onHelp;
  /// F1 was pressed while a message box of this window is open. A window that the handler enables can be used
  /// before the box is answered. An error is not reported: a second box could be answered after the first.
  std::function<void(const std::wstring& boxText)> onBoxHelp;

 protected:
  /// Calls the question inside the event boundary. True when it is empty, false when it throws RuntimeError.
  bool Agrees(const std::function<bool()>& question);

 private:
  template <typename Type>
  Type& WithMessage(Type& element, Message message);

  std::vector<Element*> captioned_;
};

}  // namespace tarvik::ui
