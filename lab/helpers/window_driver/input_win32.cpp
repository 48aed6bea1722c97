// Keyboard and mouse input. Keys are really pressed (SendInput), because a program may ask for the state of
// modifiers; clicks are posted, because the real pointer makes the screen release held keys.

#include <algorithm>
#include <memory>

#include "lab/helpers/window_driver/driver_win32.h"

namespace tarvik::lab {
namespace {

constexpr int64_t kInputTimeOutMs = 15000;

struct KeyName {
  const wchar_t* name;
  WORD key;
};
constexpr KeyName kKeyNames[] = {
    {L"Tab", VK_TAB},      {L"Enter", VK_RETURN},  {L"Esc", VK_ESCAPE},  {L"Space", VK_SPACE},
    {L"Back", VK_BACK},    {L"Delete", VK_DELETE}, {L"Up", VK_UP},       {L"Down", VK_DOWN},
    {L"Left", VK_LEFT},    {L"Right", VK_RIGHT},   {L"Home", VK_HOME},   {L"End", VK_END},
    {L"PageUp", VK_PRIOR}, {L"PageDown", VK_NEXT}, {L"Shift", VK_SHIFT}, {L"Ctrl", VK_CONTROL},
    {L"Alt", VK_MENU},     {L"Apps", VK_APPS},     {L"F1", VK_F1},       {L"F4", VK_F4},
    {L"F6", VK_F6},        {L"F10", VK_F10},       {L"F24", VK_F24},
};

/// The keys of a combination such as "Shift+Tab" or "Alt+P", in the order of pressing.
std::vector<WORD> KeysOf(const std::wstring& combination) {
  std::vector<WORD> keys;
  for (size_t start = 0; start <= combination.size();) {
    const size_t end = std::min(combination.find(L'+', start), combination.size());
    const std::wstring name = combination.substr(start, end - start);
    start = end + 1;
    WORD key = 0;
    for (const KeyName& known : kKeyNames) {
      if (name == known.name) key = known.key;
    }
    if (key == 0 && name.size() == 1) key = LOBYTE(VkKeyScanW(name[0]));
    if (key == 0 && !name.empty()) throw CommandError("no such key: " + ToUtf8(name));
    if (key != 0) keys.push_back(key);
  }
  return keys;
}

INPUT KeyInput(WORD key, bool up) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
  const bool extended = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_DELETE || key == VK_APPS;
  if (extended) input.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
  return input;
}

void Send(std::vector<INPUT> inputs) {
  if (inputs.empty()) return;
  if (SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT)) != inputs.size()) {
    throw CommandError("the input was rejected: error " + NumberText(GetLastError()));
  }
}

/// Holds keys down during its lifetime.
class HeldKeys {
 public:
  explicit HeldKeys(std::vector<WORD> keys) : keys_(std::move(keys)) {
    std::vector<INPUT> inputs;
    for (const WORD key : keys_) inputs.push_back(KeyInput(key, false));
    Send(inputs);
  }
  HeldKeys(const HeldKeys&) = delete;
  HeldKeys& operator=(const HeldKeys&) = delete;
  ~HeldKeys() {
    std::vector<INPUT> inputs;
    for (auto key = keys_.rbegin(); key != keys_.rend(); ++key) inputs.push_back(KeyInput(*key, true));
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
  }

 private:
  std::vector<WORD> keys_;
};

/// Attaches to the input state of a window's thread, so that its focus can be set and its key state be read.
/// Attaching resets that key state: every key counts as released.
class SharedInput {
 public:
  explicit SharedInput(HWND window)
      : thread_(GetWindowThreadProcessId(window, nullptr)),
        shared_(AttachThreadInput(GetCurrentThreadId(), thread_, TRUE) != FALSE) {
    if (!shared_)
      throw CommandError("cannot attach to the input of the window: error " + NumberText(GetLastError()));
  }
  SharedInput(const SharedInput&) = delete;
  SharedInput& operator=(const SharedInput&) = delete;
  ~SharedInput() { AttachThreadInput(GetCurrentThreadId(), thread_, FALSE); }

 private:
  DWORD thread_;
  bool shared_;
};

/// Polls for at most 250 ms.
bool BecomesTrue(const std::function<bool()>& condition) {
  const double deadline = PreciseMilliseconds() + 250;
  while (!condition()) {
    if (PreciseMilliseconds() >= deadline) return false;
    Sleep(1);
  }
  return true;
}

/// Returns when the window's thread has processed all earlier input. To see that, it presses and releases
/// F24, which no program uses, and waits until the thread's key state shows it. The screen releases keys that
/// are not physically down when the pointer or the focus enters a window, so several tries may be needed.
void SettleShared(const SharedInput&, int64_t timeOutMs) {
  const auto isDown = [] { return GetKeyState(VK_F24) < 0; };
  WaitFor(timeOutMs, "end of the input", [&] {
    const HeldKeys held({VK_F24});
    return BecomesTrue(isDown);
  });
  WaitFor(timeOutMs, "end of the input", [&] { return !isDown(); });
}

void Settle(HWND window, int64_t timeOutMs) {
  BringToForeground(window);
  const SharedInput shared(window);
  SettleShared(shared, timeOutMs);
}

/// Holds keys; returns once the window's thread sees them all as pressed.
std::unique_ptr<HeldKeys> Hold(const SharedInput& shared, const std::vector<WORD>& keys) {
  std::unique_ptr<HeldKeys> held;
  WaitFor(kInputTimeOutMs, "modifiers", [&] {
    held = std::make_unique<HeldKeys>(keys);
    SettleShared(shared, kInputTimeOutMs);
    if (std::all_of(keys.begin(), keys.end(), [](WORD key) { return GetKeyState(key) < 0; })) return true;
    held.reset();
    return false;
  });
  return held;
}

void GiveFocus(HWND control) {
  // A new window sets its initial focus shortly after it appears; wait for that first.
  Settle(control, kInputTimeOutMs);
  const SharedInput shared(control);
  ::SetFocus(control);
}

/// Focuses the control and returns the window that has the focus then: a combo box's is in the edit field
/// inside it, which receives the characters.
HWND Focused(HWND control) {
  GiveFocus(control);
  GUITHREADINFO information{};
  information.cbSize = sizeof information;
  GetGUIThreadInfo(GetWindowThreadProcessId(control, nullptr), &information);
  const HWND focused = information.hwndFocus;
  if (focused != control && !IsChild(control, focused))
    throw CommandError("the control did not get the focus");
  return focused;
}

/// type <window> <id> <characters>
Fields Type(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  const HWND focused = Focused(control);
  for (const wchar_t character : arguments.Text(2)) PostMessageW(focused, WM_CHAR, character, 1);
  Settle(control, kInputTimeOutMs);
  return {};
}

/// decimal_comma <window> <id>: the messages of the keypad's decimal key on a keyboard where it is a comma
Fields DecimalComma(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  const HWND focused = Focused(control);
  PostMessageW(focused, WM_KEYDOWN, VK_DECIMAL, 0x530001);
  PostMessageW(focused, WM_CHAR, L',', 0x530001);
  PostMessageW(focused, WM_KEYUP, VK_DECIMAL, static_cast<LPARAM>(0xC0530001));
  Settle(control, kInputTimeOutMs);
  return {};
}

/// keys <window> <combination>...
Fields Keys(const Arguments& arguments) {
  const HWND window = arguments.Window(0);
  std::vector<WORD> keys = KeysOf(arguments.Text(1));
  Settle(window, kInputTimeOutMs);
  const bool withAlt = std::find(keys.begin(), keys.end(), VK_MENU) != keys.end();
  if (keys.size() == 1 || withAlt) {
    // The key message itself contains the state of Alt.
    const HeldKeys pressed(keys);
    return {};
  }
  // The program queries the other modifiers when it handles the key, so they stay held until then.
  const std::vector<WORD> key = {keys.back()};
  keys.pop_back();
  const SharedInput shared(window);
  const std::unique_ptr<HeldKeys> held = Hold(shared, keys);
  { const HeldKeys pressed(key); }
  SettleShared(shared, kInputTimeOutMs);
  return {};
}

/// click <window> <id> [<modifiers, such as Ctrl+Alt>]
Fields Click(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  const std::vector<WORD> modifiers = KeysOf(arguments.Text(2));
  if (modifiers.empty()) {
    PostClick(control, CentreOf(control));
    return {};
  }
  BringToForeground(control);
  const SharedInput shared(control);
  const std::unique_ptr<HeldKeys> held = Hold(shared, modifiers);
  PostClick(control, CentreOf(control));
  SettleShared(shared, kInputTimeOutMs);
  return {};
}

Fields DoubleClick(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  const POINT point = CentreOf(control);
  const LPARAM place = MAKELPARAM(point.x, point.y);
  PostClick(control, point);
  PostMessageW(control, WM_LBUTTONDBLCLK, MK_LBUTTON, place);
  PostMessageW(control, WM_LBUTTONUP, 0, place);
  return {};
}

/// right_click <window> <id> <line>: clicks a line of a list box with the right button
Fields RightClick(const Arguments& arguments) {
  const HWND list = arguments.Control(0);
  const LRESULT height = SendWithTimeOut(list, LB_GETITEMHEIGHT);
  const int64_t row = arguments.Number(2) - SendWithTimeOut(list, LB_GETTOPINDEX);
  const LPARAM place = MAKELPARAM(10, row * height + height / 2);
  PostMessageW(list, WM_RBUTTONDOWN, MK_RBUTTON, place);
  PostMessageW(list, WM_RBUTTONUP, 0, place);
  return {};
}

/// hover <window> <id>: moves the pointer over the control
Fields Hover(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  POINT centre = CentreOf(control);
  ClientToScreen(control, &centre);
  // Two positions: a pointer that is already at the centre would not move, so no message would be sent.
  SetCursorPos(centre.x + 1, centre.y);
  SetCursorPos(centre.x, centre.y);
  return {};
}

/// park_pointer: moves the pointer into the screen's corner, away from the windows
Fields ParkPointer(const Arguments&) {
  SetCursorPos(GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1);
  return {};
}

/// measure_click <window> <id> <caption> <time-out> -> milliseconds until the control shows the caption
Fields MeasureClick(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  const std::wstring caption = arguments.Text(2);
  const double before = PreciseMilliseconds();
  PostClick(control, CentreOf(control));
  WaitClosely(arguments.Number(3), "caption " + ToUtf8(caption), [&] { return TextOf(control) == caption; });
  return {MillisecondsText(PreciseMilliseconds() - before)};
}

/// For when Windows refuses SetForegroundWindow, because the user or another program has the foreground.
void TakeForeground(HWND window) {
  const DWORD own = GetCurrentThreadId();
  const DWORD other = GetWindowThreadProcessId(GetForegroundWindow(), nullptr);
  if (AttachThreadInput(own, other, TRUE)) {
    SetForegroundWindow(window);
    AttachThreadInput(own, other, FALSE);
  }
  if (GetForegroundWindow() == window) return;
  // While Alt is down, Windows lets every program set the foreground.
  keybd_event(VK_MENU, 0, 0, 0);
  SetForegroundWindow(window);
  keybd_event(VK_MENU, 0, KEYEVENTF_KEYUP, 0);
}

}  // namespace

void BringToForeground(HWND window) {
  const HWND root = GetAncestor(window, GA_ROOT);
  // A window shown just before may still take the foreground, so try again.
  WaitFor(kInputTimeOutMs, "foreground", [root] {
    // An open message box keeps the foreground. Ask at each try: one that is closing is still found at first.
    const HWND active = GetLastActivePopup(root);
    if (GetForegroundWindow() == active) return true;
    if (!SetForegroundWindow(active)) TakeForeground(active);
    return BecomesTrue([active] { return GetForegroundWindow() == active; });
  });
}

POINT CentreOf(HWND control) {
  RECT rect;
  GetClientRect(control, &rect);
  return {rect.right / 2, rect.bottom / 2};
}

void PostClick(HWND control, POINT point) {
  const LPARAM place = MAKELPARAM(point.x, point.y);
  if (!PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, place) ||
      !PostMessageW(control, WM_LBUTTONUP, 0, place)) {
    throw CommandError("cannot click: error " + NumberText(GetLastError()));
  }
}

void AddInputCommands() {
  AddCommand("type", Type);
  AddCommand("decimal_comma", DecimalComma);
  AddCommand("keys", Keys);
  AddCommand("click", Click);
  AddCommand("double_click", DoubleClick);
  AddCommand("right_click", RightClick);
  AddCommand("hover", Hover);
  AddCommand("park_pointer", ParkPointer);
  AddCommand("measure_click", MeasureClick);
  AddCommand("set_focus", [](const Arguments& a) {
    GiveFocus(a.Control(0));
    return Fields{};
  });
  AddCommand("foreground", [](const Arguments& a) {
    BringToForeground(a.Window(0));
    return Fields{};
  });
  AddCommand("settle", [](const Arguments& a) {
    Settle(a.Window(0), a.Number(1));
    return Fields{};
  });
}

}  // namespace tarvik::lab
