#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "lab/windows_pc.h"

namespace tarvik::lab {

/// A top-level window of a program, and the controls in it by their ids; id 0 stands for the window
/// itself. Texts are UTF-8. Every method throws LabError when the window or control is not there, does not
/// answer, or what is waited for does not come.
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
    int front = -1;                     ///< among the visible ones
    std::vector<std::string> captions;  ///< of the visible ones
  };
  struct MenuItem {
    int depth = 0;  ///< 0 = in the menu bar
    int id = 0;     ///< -1 = opens a menu
    std::string caption;
    bool enabled = false;
  };
  enum class Pointer { Arrow, Hourglass, Other };

  const std::string& Handle() const { return handle_; }

  std::string Text(int id) const;
  int TextLength(int id) const;
  void SetText(int id, const std::string& text) const;
  void WaitForText(int id, const std::string& text, milliseconds timeOut = kSoon) const;
  std::string ClassName(int id) const;
  /// The handle of the window to which this one belongs, as a box to its window; "0" = none.
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
  /// The client area, on the screen.
  ScreenRect ClientRect(int id) const;
  /// Every control below the window, in the order of the Tab key; a combo box counts as one.
  std::vector<ControlInfo> Controls() const;
  struct TextSize {
    int width = 0;
    int height = 0;
  };
  /// What the control's text needs in its font, on one line.
  TextSize NeededFor(int id) const;
  /// The control before this one in the order of the Tab key, as a screen reader takes its label: id, class
  /// and text.
  ControlInfo Previous(int id) const;

  /// The id of the control with the focus; 0 = none.
  int Focus() const;
  void WaitForFocus(int id, milliseconds timeOut = kSoon) const;
  void SetFocus(int id) const;

  /// Types characters as a keyboard does, with the focus in the control; returns when all were taken.
  void Type(int id, const std::string& characters) const;
  /// Presses a combination such as "Shift+Tab", "Alt+P", "Enter", "Esc".
  void Press(const std::string& keys) const;
  /// Presses and releases the left button on the control's centre. With modifiers ("Ctrl+Alt") it is the
  /// real mouse, and the modifiers' keys are really held.
  void Click(int id, const std::string& modifiers = {}) const;
  void DoubleClick(int id) const;
  /// Returns when everything that was typed, pressed and clicked so far has been taken by the program. A
  /// run that lets events run counts as having taken the click that began it.
  void Settle(milliseconds timeOut = kSoon) const;
  /// Clicks, and measures the milliseconds until the control shows the caption.
  double MillisecondsFromClickTo(int id, const std::string& caption, milliseconds timeOut) const;

  std::vector<std::string> Lines(int id) const;
  int LineCount(int id) const;
  ListState StateOfList(int id) const;
  void WaitForLine(int id, const std::string& line, milliseconds timeOut) const;
  void WaitForLastLine(int id, const std::string& line, milliseconds timeOut) const;
  /// Until the list is another than `known`, which Lines returned before.
  void WaitForChange(int id, const std::vector<std::string>& known, milliseconds timeOut) const;
  /// Empties the list behind the program's back.
  void EmptyList(int id) const;
  std::vector<std::string> ComboItems(int id) const;

  Tabs StateOfTabs(int id) const;
  /// In the strip's client area. `index`: among the visible tabs.
  ScreenRect RectOfTab(int id, int index) const;
  /// `index`: among the visible tabs.
  void SelectTab(int id, int index, milliseconds timeOut = kSoon) const;

  std::vector<MenuItem> Menu() const;
  /// What choosing the menu command does.
  void InvokeCommand(int commandId) const;

  Pointer CurrentPointer() const;
  void BringToForeground() const;
  void Move(const ScreenRect& outer) const;
  void Minimise() const;
  void Restore() const;
  /// Tells the window that it has come to a monitor with that many dots per inch.
  void ChangeDpi(int dpi, const ScreenRect& suggested) const;
  /// Tells the window that another theme, or other colours, were chosen.
  void ChangeTheme() const;
  void ChangeColours() const;
  /// What the close button does.
  void Close() const;
  /// Until it is closed or hidden.
  void WaitUntilGone(milliseconds timeOut = kSoon) const;

 private:
  std::vector<std::string> Ask(const char* command, int id, std::vector<std::string> more = {},
                               milliseconds timeOut = 2 * kSoon) const;
  std::vector<std::string> AskWindow(const char* command, std::vector<std::string> more = {},
                                     milliseconds timeOut = 2 * kSoon) const;

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

/// Ids of a message box' buttons.
enum class BoxButton { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// A program that was started on a WindowsPc; its end ends it. Every method throws LabError.
class ProgramUnderTest {
 public:
  /// `program`: path on this machine. `commandLine`: the raw text after the program's name.
  ProgramUnderTest(WindowsPc& pc, const std::string& program, const std::string& commandLine = {},
                   const std::string& workingFolder = {});
  ProgramUnderTest(const ProgramUnderTest&) = delete;
  ProgramUnderTest& operator=(const ProgramUnderTest&) = delete;
  ~ProgramUnderTest();

  /// Milliseconds from its start to the first time it waited for input.
  double WaitForFirstIdle(milliseconds timeOut = 2 * kSoon);
  /// The visible top-level window of that class.
  WindowUnderTest WaitForWindow(const std::string& windowClass, milliseconds timeOut = 2 * kSoon);
  bool HasWindow(const std::string& windowClass);
  BoxUnderTest WaitForBox(milliseconds timeOut = kSoon);
  bool HasBox();
  void Answer(const BoxUnderTest& box, BoxButton button);
  /// Asks every window of the program, as Windows does before its session ends; true when all agree.
  bool SessionMayEnd();
  /// Reports to every window that the session ends, as Windows does even after a refusal.
  void EndSession();
  bool Runs();
  /// Throws LabError with the exit code when it has ended.
  void RequireRunning();
  /// The exit code.
  uint32_t WaitForEnd(milliseconds timeOut = kSoon);
  /// Bytes in memory.
  int64_t Memory();
  /// The kernel's objects that it holds; windows, menus and brushes are none.
  int64_t Handles();
  void Kill();

 private:
  WindowsPc& pc_;
  std::string id_;
};

}  // namespace tarvik::lab
