// Windows and controls: finding, reading, waiting, moving, closing.

#include "lab/helpers/window_driver/driver_win32.h"

namespace tarvik::lab {
namespace {

std::string Flag(bool flag) { return flag ? "1" : "0"; }

Fields RectFields(const RECT& rect) {
  return {NumberText(rect.left), NumberText(rect.top), NumberText(rect.right - rect.left),
          NumberText(rect.bottom - rect.top)};
}

/// wait_window <process> <class> <time-out> -> handle of the visible top-level window
Fields WaitWindow(const Arguments& arguments) {
  const auto process = static_cast<DWORD>(arguments.Number(0));
  const std::wstring windowClass = arguments.Text(1);
  HWND found = nullptr;
  WaitFor(arguments.Number(2), "window " + ToUtf8(windowClass), [&] {
    found = FindTopLevel(process, windowClass);
    return found != nullptr;
  });
  return {HandleText(found)};
}

/// wait_gone <handle> <time-out>: waits until the window is destroyed or hidden
Fields WaitGone(const Arguments& arguments) {
  const HWND window = reinterpret_cast<HWND>(static_cast<intptr_t>(arguments.Number(0)));
  WaitFor(arguments.Number(1), "closed window",
          [window] { return !IsWindow(window) || !IsWindowVisible(window); });
  return {};
}

/// wait_text <window> <id> <text> <time-out>, also wait_text_closely. `wait`: WaitFor or WaitClosely.
Fields WaitText(const Arguments& arguments, decltype(WaitFor) wait) {
  const HWND control = arguments.Control(0);
  const std::wstring wanted = arguments.Text(2);
  wait(arguments.Number(3), "text " + ToUtf8(wanted), [&] { return TextOf(control) == wanted; });
  return {};
}

/// The control with the focus in a window's thread; a combo box when its inner edit field has the focus. Null
/// when no control has it.
HWND FocusOf(HWND window) {
  GUITHREADINFO information{};
  information.cbSize = sizeof information;
  if (!GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &information)) return nullptr;
  const HWND focus = information.hwndFocus;
  if (focus != nullptr && ClassOf(GetParent(focus)) == L"ComboBox") return GetParent(focus);
  return focus;
}

/// focus <window> -> id, class, handle of the control with the focus
Fields Focus(const Arguments& arguments) {
  const HWND focus = FocusOf(arguments.Window(0));
  if (focus == nullptr) return {"0", "", "0"};
  return {NumberText(GetDlgCtrlID(focus)), ToUtf8(ClassOf(focus)), HandleText(focus)};
}

/// wait_focus <window> <id> <time-out>
Fields WaitFocus(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  HWND focus = nullptr;
  try {
    WaitFor(arguments.Number(2), "focus", [&] { return (focus = FocusOf(control)) == control; });
  } catch (const CommandError& error) {
    throw CommandError(std::string(error.what()) + " is on " + NumberText(GetDlgCtrlID(focus)));
  }
  return {};
}

/// previous <window> <id> -> id, class, text of the previous control in the tab order
Fields Previous(const Arguments& arguments) {
  const HWND previous = GetWindow(arguments.Control(0), GW_HWNDPREV);
  if (previous == nullptr) return {"0", "", ""};
  return {NumberText(GetDlgCtrlID(previous)), ToUtf8(ClassOf(previous)), ToUtf8(TextOf(previous))};
}

BOOL CALLBACK AppendControl(HWND window, LPARAM parameter) {
  if (ClassOf(GetParent(window)) == L"ComboBox") return TRUE;
  RECT rect;
  GetWindowRect(window, &rect);
  Fields& fields = *reinterpret_cast<Fields*>(parameter);
  fields.push_back(NumberText(GetDlgCtrlID(window)));
  fields.push_back(ToUtf8(ClassOf(window)));
  fields.push_back(ToUtf8(TextOf(window)));
  fields.push_back(Flag(IsWindowVisible(window)));
  fields.push_back(Flag(IsWindowEnabled(window)));
  for (const std::string& number : RectFields(rect)) fields.push_back(number);
  return TRUE;
}

/// controls <window> -> nine fields per control: id, class, text, visible, enabled, left, top, width, height
Fields Controls(const Arguments& arguments) {
  Fields fields;
  EnumChildWindows(arguments.Window(0), AppendControl, reinterpret_cast<LPARAM>(&fields));
  return fields;
}

Fields WindowRect(const Arguments& arguments) {
  RECT rect;
  GetWindowRect(arguments.Control(0), &rect);
  return RectFields(rect);
}

/// client_rect <window> <id> -> left, top (on the screen), width, height
Fields ClientRectangle(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  RECT rect;
  GetClientRect(control, &rect);
  MapWindowPoints(control, nullptr, reinterpret_cast<POINT*>(&rect), 2);
  return RectFields(rect);
}

/// move <window> <left> <top> <width> <height>: sets the outer rectangle
Fields Move(const Arguments& arguments) {
  const auto number = [&arguments](size_t index) { return static_cast<int>(arguments.Number(index)); };
  if (!SetWindowPos(arguments.Window(0), nullptr, number(1), number(2), number(3), number(4),
                    SWP_NOZORDER | SWP_NOACTIVATE)) {
    throw CommandError("error " + NumberText(GetLastError()));
  }
  return {};
}

Fields Post(const Arguments& arguments, UINT message, WPARAM wparam) {
  if (!PostMessageW(arguments.Window(0), message, wparam, 0)) {
    throw CommandError("error " + NumberText(GetLastError()));
  }
  return {};
}

Fields SetText(const Arguments& arguments) {
  SendWithTimeOut(arguments.Control(0), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(arguments.Text(2).c_str()));
  return {};
}

/// state <window> <id> -> enabled, visible, minimised, topmost, foreground
Fields State(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  return {Flag(IsWindowEnabled(control)), Flag(IsWindowVisible(control)), Flag(IsIconic(control)),
          Flag((GetWindowLongPtrW(control, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0),
          Flag(GetForegroundWindow() == control)};
}

Fields Styles(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  return {NumberText(static_cast<uint32_t>(GetWindowLongPtrW(control, GWL_STYLE))),
          NumberText(static_cast<uint32_t>(GetWindowLongPtrW(control, GWL_EXSTYLE)))};
}

/// disarrange <window> <id>: gives the control another place, size and font, as the dialog manager of Windows
/// may when the scaling changes
Fields Disarrange(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  RECT box{};
  GetWindowRect(control, &box);
  MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&box), 2);
  SetWindowPos(control, nullptr, static_cast<int>(box.left) + 7, static_cast<int>(box.top) + 5,
               static_cast<int>(box.right - box.left) + 9, static_cast<int>(box.bottom - box.top) + 3,
               SWP_NOZORDER | SWP_NOACTIVATE);
  PostMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(SYSTEM_FONT)), 0);
  return {};
}

/// list_windows <process> <class> -> the handles of its top-level windows, also of invisible ones
Fields ListWindows(const Arguments& arguments) {
  const auto process = static_cast<DWORD>(arguments.Number(0));
  const std::wstring windowClass = arguments.Text(1);
  Fields handles;
  HWND window = nullptr;
  while ((window = FindWindowExW(nullptr, window, windowClass.c_str(), nullptr)) != nullptr)
    if (ProcessOf(window) == process) handles.push_back(HandleText(window));
  return handles;
}

}  // namespace

HWND FindTopLevel(DWORD process, const std::wstring& windowClass) {
  // Each question about a window costs a request to the window server; this one asks only about windows of
  // the class, and tests that wait call it all the time.
  HWND window = nullptr;
  while ((window = FindWindowExW(nullptr, window, windowClass.c_str(), nullptr)) != nullptr)
    if (ProcessOf(window) == process && IsWindowVisible(window)) return window;
  return nullptr;
}

void AddWindowCommands() {
  AddCommand("wait_window", WaitWindow);
  AddCommand("has_window", [](const Arguments& a) {
    return Fields{Flag(FindTopLevel(static_cast<DWORD>(a.Number(0)), a.Text(1)) != nullptr)};
  });
  AddCommand("list_windows", ListWindows);
  AddCommand("wait_gone", WaitGone);
  AddCommand("text", [](const Arguments& a) { return Fields{ToUtf8(TextOf(a.Control(0)))}; });
  AddCommand("text_length", [](const Arguments& a) {
    return Fields{NumberText(SendWithTimeOut(a.Control(0), WM_GETTEXTLENGTH))};
  });
  AddCommand("set_text", SetText);
  AddCommand("wait_text", [](const Arguments& a) { return WaitText(a, WaitFor); });
  AddCommand("wait_text_closely", [](const Arguments& a) { return WaitText(a, WaitClosely); });
  AddCommand("owner",
             [](const Arguments& a) { return Fields{HandleText(GetWindow(a.Window(0), GW_OWNER))}; });
  AddCommand("class", [](const Arguments& a) { return Fields{ToUtf8(ClassOf(a.Control(0)))}; });
  AddCommand("state", State);
  AddCommand("styles", Styles);
  AddCommand("focus", Focus);
  AddCommand("wait_focus", WaitFocus);
  AddCommand("previous", Previous);
  AddCommand("controls", Controls);
  AddCommand("rect", WindowRect);
  AddCommand("client_rect", ClientRectangle);
  AddCommand("checked", [](const Arguments& a) {
    return Fields{NumberText(SendWithTimeOut(a.Control(0), BM_GETCHECK))};
  });
  AddCommand("move", Move);
  AddCommand("disarrange", Disarrange);
  AddCommand("change_theme", [](const Arguments& a) {
    SendWithTimeOut(a.Window(0), WM_THEMECHANGED);
    return Fields{};
  });
  AddCommand("change_colours", [](const Arguments& a) {
    SendWithTimeOut(a.Window(0), WM_SYSCOLORCHANGE);
    return Fields{};
  });
  AddCommand("close", [](const Arguments& a) { return Post(a, WM_CLOSE, 0); });
  AddCommand("minimise", [](const Arguments& a) { return Post(a, WM_SYSCOMMAND, SC_MINIMIZE); });
  AddCommand("restore", [](const Arguments& a) { return Post(a, WM_SYSCOMMAND, SC_RESTORE); });
  AddCommand("command",
             [](const Arguments& a) { return Post(a, WM_COMMAND, static_cast<WPARAM>(a.Number(1))); });
}

}  // namespace tarvik::lab
