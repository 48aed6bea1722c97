#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "lab/pc/windows_pc.h"

namespace tarvik::lab {

/// A top-level window of a program and its controls, which are named by their ids; id 0 is the window itself.
/// Texts are UTF-8, rectangles in pixels of the screen. Methods throw LabError when the window or control
/// does not exist or does not answer, and on a time-out. They wait up to 15 seconds for a control to be
/// created.
class WindowUnderTest {
 public:
  WindowUnderTest(WindowsPc& pc, std::string handle) : pc_(&pc), handle_(std::move(handle)) {}

  struct ControlInfo {
    int id = 0;
    std::string windowClass;
    std::string text;
    bool visible = false;
    bool enabled = false;
    ScreenRect rect;
  };
  struct ListState {
    int lines = 0;
    int selected = -1;
    int firstShown = 0;
    int horizontalExtent = 0;  ///< pixels
  };
  struct Tabs {
    int front = -1;                     ///< index among the visible tabs
    std::vector<std::string> captions;  ///< of the visible tabs
  };
  struct MenuItem {
    int depth = 0;  ///< 0 = in the menu bar
    int id = 0;     ///< -1 = opens a submenu
    std::string caption;
    bool enabled = false;
  };
  enum class Pointer { Arrow, Hourglass, Other };

  const std::string& Handle() const { return handle_; }

  std::string Text(int id) const;
  int TextLength(int id) const;
  void SetText(int id, const std::string& text) const;
  void WaitForText(int id, const std::string& text, milliseconds timeOut = kSoon) const;
  /// For measurements: sees the text within about a millisecond, but takes processor time while it waits.
  void WaitCloselyForText(int id, const std::string& text, milliseconds timeOut) const;
  std::string ClassName(int id) const;
  /// The handle of the owner window (GW_OWNER), such as a message box has; "0" = none.
  std::string Owner() const;
  bool Enabled(int id) const;
  bool Visible(int id) const;
  bool Checked(int id) const;
  bool Minimised() const;
  bool Topmost() const;
  bool InForeground() const;
  uint32_t Style(int id) const;
  uint32_t ExtendedStyle(int id) const;

  /// The outer rectangle.
  ScreenRect Rect(int id) const;
  /// The client area.
  ScreenRect ClientRect(int id) const;
  /// All descendants of the window in Tab order. A combo box is one control.
  std::vector<ControlInfo> Controls() const;
  struct TextSize {
    int width = 0;
    int height = 0;
  };
  /// The size of the control's text in its font, on one line.
  TextSize NeededFor(int id) const;
  /// The control before this one in Tab order, in which screen readers look for a label. Only id, class and
  /// text are filled in.
  ControlInfo Previous(int id) const;

  /// The id of the focused control; 0 = none.
  int Focus() const;
  void WaitForFocus(int id, milliseconds timeOut = kSoon) const;
  void SetFocus(int id) const;

  /// Focuses the control and types characters as a keyboard does. Returns when the program has handled them.
  void Type(int id, const std::string& characters) const;
  /// Focuses the control and sends what the keypad's decimal key sends on a keyboard where it is a comma. On
  /// the PC's keyboard the key must not be a dot, or both are typed.
  void TypeDecimalComma(int id) const;
  /// Presses a key combination such as "Shift+Tab", "Alt+P", "Enter", "Esc".
  void Press(const std::string& keys) const;
  /// Clicks the centre of the control by posted messages. With modifiers ("Ctrl+Alt") it is real input: the
  /// mouse moves and the keys are held.
  void Click(int id, const std::string& modifiers = {}) const;
  void DoubleClick(int id) const;
  /// Clicks a line of the list with the right button. Lines count from 0; one after the last is empty space.
  void RightClickLine(int id, int line) const;
  /// Returns when the program has handled all input so far. The click that started a run counts as handled as
  /// soon as the run lets events run.
  void Settle(milliseconds timeOut = kSoon) const;
  /// Clicks the control and returns the milliseconds until it shows the caption.
  double MillisecondsFromClickTo(int id, const std::string& caption, milliseconds timeOut) const;

  std::vector<std::string> Lines(int id) const;
  int LineCount(int id) const;
  ListState StateOfList(int id) const;
  void WaitForLine(int id, const std::string& line, milliseconds timeOut) const;
  void WaitForLastLine(int id, const std::string& line, milliseconds timeOut) const;
  /// Brings `known`, an earlier result of Lines, up to date. Reads only the lines added since, unless the
  /// last of the known ones is no longer there: then it reads all lines and returns false.
  bool ReadNewLines(int id, std::vector<std::string>& known) const;
  /// Waits until the number of lines or the last line differs from `known`.
  void WaitForChange(int id, const std::vector<std::string>& known, milliseconds timeOut) const;
  /// Clears the list box (LB_RESETCONTENT) without the program's knowledge.
  void EmptyList(int id) const;
  /// Adds the line `count` times without the program's knowledge.
  void AddLines(int id, int count, const std::string& line) const;
  /// What the line needs in the list, whose tab stop is that many dialog units away.
  int WidthOfLine(int id, const std::string& line, int tabStop) const;
  std::vector<std::string> ComboItems(int id) const;

  struct StatusField {
    std::string text;
    ScreenRect rect;  ///< in the status bar
  };
  std::vector<StatusField> StatusFields(int id) const;
  /// Moves the pointer over the control, which then creates its tool tips.
  void Hover(int id) const;
  /// The tool tip of a field of the status bar; empty while it does not exist.
  std::string ToolTipOfField(int id, int field) const;

  Tabs StateOfTabs(int id) const;
  /// The tab's rectangle in the tab strip's client area. `index`: among the visible tabs.
  ScreenRect RectOfTab(int id, int index) const;
  /// `index`: among the visible tabs.
  void SelectTab(int id, int index, milliseconds timeOut = kSoon) const;

  /// The menu bar and its menus; for the window of an open menu (class kOpenMenuClass), what it shows.
  std::vector<MenuItem> Menu() const;
  /// Does what choosing the menu command does (WM_COMMAND).
  void InvokeCommand(int commandId) const;

  Pointer CurrentPointer() const;
  void BringToForeground() const;
  void Move(const ScreenRect& outer) const;
  /// Gives the control another place, size and font, as the dialog manager of Windows may.
  void Disarrange(int id) const;
  void Minimise() const;
  void Restore() const;
  /// Sends WM_DPICHANGED, as for a move to a monitor with that many dots per inch.
  void ChangeDpi(int dpi, const ScreenRect& suggested) const;
  /// Sends WM_THEMECHANGED, or WM_SYSCOLORCHANGE, as after a change of the settings.
  void ChangeTheme() const;
  void ChangeColours() const;
  /// Does what the close button does; returns at once.
  void Close() const;
  /// Waits until the window is destroyed or hidden.
  void WaitUntilGone(milliseconds timeOut = kSoon) const;

 private:
  std::vector<std::string> Ask(const char* command, int id, std::vector<std::string> more = {},
                               milliseconds timeOut = kUnblocked) const;
  std::vector<std::string> AskWindow(const char* command, std::vector<std::string> more = {},
                                     milliseconds timeOut = kUnblocked) const;

  WindowsPc* pc_;
  std::string handle_;
};

/// A message box of the program.
struct BoxUnderTest {
  std::string handle;
  std::string title;
  std::string text;
  std::string icon;                                  ///< "none", "exclamation", "critical", ...
  std::vector<std::pair<int, std::string>> buttons;  ///< id and caption
};

/// Buttons of a message box, by their Windows ids.
enum class BoxButton { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// A program started on a WindowsPc, which is killed on destruction. Methods throw LabError, on a time-out
/// too.
class ProgramUnderTest {
 public:
  /// `program`: path on this machine. `commandLine`: raw text after the program's name. `workingFolder`: path
  /// on this machine; empty = the driver's.
  ProgramUnderTest(WindowsPc& pc, const std::string& program, const std::string& commandLine = {},
                   const std::string& workingFolder = {});
  ProgramUnderTest(const ProgramUnderTest&) = delete;
  ProgramUnderTest& operator=(const ProgramUnderTest&) = delete;
  ~ProgramUnderTest();

  /// Milliseconds from the start until the program first waited for input (WaitForInputIdle).
  double WaitForFirstIdle(milliseconds timeOut = 2 * kSoon);
  /// Waits for a visible top-level window of that class.
  WindowUnderTest WaitForWindow(const std::string& windowClass, milliseconds timeOut = 2 * kSoon);
  bool HasWindow(const std::string& windowClass);
  BoxUnderTest WaitForBox(milliseconds timeOut = kSoon);
  bool HasBox();
  /// The handles of all message boxes, also of hidden ones: not shown yet, or answered and waiting for one
  /// that was opened from within.
  std::vector<std::string> Boxes();
  void Answer(const BoxUnderTest& box, BoxButton button);
  /// Asks every window of the program, as Windows does before its session ends; true when all agree.
  bool SessionMayEnd();
  /// Sends WM_ENDSESSION to every window, as Windows does when the user forces the end after a refusal.
  void EndSession();
  bool Runs();
  /// Throws LabError with the exit code when the program has ended.
  void RequireRunning();
  /// Waits for the end and returns the exit code.
  uint32_t WaitForEnd(milliseconds timeOut = kSoon);
  /// Working set in bytes.
  int64_t Memory();
  /// Number of open kernel handles. USER and GDI objects are not among them.
  int64_t Handles();
  void Kill();

 private:
  WindowsPc& pc_;
  std::string id_;
};

}  // namespace tarvik::lab
