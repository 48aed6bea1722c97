// Menus, pointer, fonts, input methods and message boxes. Handles of fonts and input methods are only valid
// in their own process, so these calls are made there through RemoteProcess. On Windows, those of menus,
// cursors and icons are valid everywhere, under Wine they are not: where it is not needed, nothing is called
// inside another process, because virus scanners suspect a program that does so.

#include <map>
#include <optional>
#include <utility>

#include "lab/helpers/window_driver/driver_win32.h"
#include "lab/helpers/window_driver/remote_win32.h"

namespace tarvik::lab {
namespace {

constexpr wchar_t kUser32[] = L"user32.dll";

/// Depth, id, caption and enabled of each item.
Fields ItemsOf(HMENU menu, int depth) {
  Fields items;
  const int count = menu == nullptr ? 0 : GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    std::wstring caption(256, L'\0');
    const auto place = static_cast<UINT>(i);
    const int length =
        GetMenuStringW(menu, place, caption.data(), static_cast<int>(caption.size()), MF_BYPOSITION);
    caption.resize(static_cast<size_t>(length));
    const bool enabled = (GetMenuState(menu, place, MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) == 0;
    items.insert(items.end(), {NumberText(depth), NumberText(static_cast<int32_t>(GetMenuItemID(menu, i))),
                               ToUtf8(caption), enabled ? "1" : "0"});
    const Fields below = ItemsOf(GetSubMenu(menu, i), depth + 1);
    items.insert(items.end(), below.begin(), below.end());
  }
  return items;
}

/// True for the window of an open menu.
bool IsOpenMenu(HWND window) { return ClassOf(window) == L"#32768"; }

/// The menu that such a window shows.
uint64_t MenuOf(HWND openMenu) {
  constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
  return static_cast<uint64_t>(SendWithTimeOut(openMenu, kGetMenu));
}

/// Reads a menu under Wine, with calls inside its process.
class MenuReader {
 public:
  explicit MenuReader(HWND window)
      : process_(ProcessOf(window)), text_(process_, kTextSize * sizeof(wchar_t)) {
    Append(IsOpenMenu(window) ? MenuOf(window)
                              : process_.Call(kUser32, "GetMenu", {reinterpret_cast<uintptr_t>(window)}),
           0);
  }

  const Fields& Items() const { return items_; }

 private:
  static constexpr size_t kTextSize = 256;

  void Append(uint64_t menu, int depth) {
    if (menu == 0) return;
    const auto count = static_cast<int32_t>(process_.Call(kUser32, "GetMenuItemCount", {menu}));
    for (uint64_t i = 0; static_cast<int32_t>(i) < count; ++i) {
      const auto id = static_cast<int32_t>(process_.Call(kUser32, "GetMenuItemID", {menu, i}));
      const uint64_t state = process_.Call(kUser32, "GetMenuState", {menu, i, MF_BYPOSITION});
      const uint64_t length =
          process_.Call(kUser32, "GetMenuStringW", {menu, i, text_.Address(), kTextSize, MF_BYPOSITION});
      std::wstring caption(std::min<size_t>(static_cast<size_t>(length), kTextSize), L'\0');
      process_.Read(text_.Address(), caption.data(), caption.size() * sizeof(wchar_t));
      const bool enabled = (state & (MF_GRAYED | MF_DISABLED)) == 0;
      items_.insert(items_.end(), {NumberText(depth), NumberText(id), ToUtf8(caption), enabled ? "1" : "0"});
      Append(process_.Call(kUser32, "GetSubMenu", {menu, i}), depth + 1);
    }
  }

  RemoteProcess process_;
  RemoteMemory text_;
  Fields items_;
};

Fields Menu(const Arguments& arguments) {
  const HWND window = arguments.Window(0);
  if (IsWine()) return MenuReader(window).Items();
  return ItemsOf(IsOpenMenu(window) ? reinterpret_cast<HMENU>(MenuOf(window)) : GetMenu(window), 0);
}

/// Loads standard cursors and icons as a process sees them.
class StandardPictures {
 public:
  explicit StandardPictures(DWORD process) {
    if (IsWine()) process_.emplace(process);
  }

  uint64_t Cursor(const wchar_t* name) const {
    const auto number = reinterpret_cast<uintptr_t>(name);
    return process_ ? process_->Call(kUser32, "LoadCursorW", {0, number})
                    : reinterpret_cast<uintptr_t>(LoadCursorW(nullptr, name));
  }
  uint64_t Icon(const wchar_t* name) const {
    const auto number = reinterpret_cast<uintptr_t>(name);
    return process_ ? process_->Call(kUser32, "LoadIconW", {0, number})
                    : reinterpret_cast<uintptr_t>(LoadIconW(nullptr, name));
  }

 private:
  std::optional<RemoteProcess> process_;
};

struct StandardPointers {
  uint64_t hourglass = 0;
  uint64_t arrow = 0;
};

/// As the window's process sees them. Remembered, because tests that follow a run ask again and again. By
/// process and window, because the number of either alone can be reused.
const StandardPointers& PointersOf(HWND window) {
  static std::map<std::pair<DWORD, HWND>, StandardPointers> known;
  const DWORD process = ProcessOf(window);
  const auto found = known.find({process, window});
  if (found != known.end()) return found->second;
  const StandardPictures standard(process);
  return known[{process, window}] = {standard.Cursor(reinterpret_cast<LPCWSTR>(IDC_WAIT)),
                                     standard.Cursor(reinterpret_cast<LPCWSTR>(IDC_ARROW))};
}

/// pointer <window> -> "arrow", "hourglass" or "other"
Fields Pointer(const Arguments& arguments) {
  const StandardPointers& standard = PointersOf(arguments.Window(0));
  CURSORINFO information{};
  information.cbSize = sizeof information;
  GetCursorInfo(&information);
  const auto shown = reinterpret_cast<uintptr_t>(information.hCursor);
  if (shown == standard.hourglass) return {"hourglass"};
  if (shown == standard.arrow) return {"arrow"};
  return {"other"};
}

/// Calls `measure` with a device context that has the control's font, and with its description.
template <typename Measure>
void InFontOf(HWND control, Measure measure) {
  // A font handle is only valid in its own process: read its description there, and make a copy here.
  const RemoteProcess process(ProcessOf(control));
  const RemoteMemory memory(process, sizeof(LOGFONTW));
  constexpr int64_t kFontTimeOutMs = 15000;
  // More than once, because a program may replace the font between the two calls when the scaling changes.
  WaitFor(kFontTimeOutMs, "font of the control", [&] {
    const uint64_t font =
        process.Call(kUser32, "SendMessageW", {reinterpret_cast<uintptr_t>(control), WM_GETFONT, 0, 0});
    return process.Call(L"gdi32.dll", "GetObjectW", {font, sizeof(LOGFONTW), memory.Address()}) != 0;
  });
  LOGFONTW description;
  process.Read(memory.Address(), &description, sizeof description);
  const HFONT copy = CreateFontIndirectW(&description);
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, copy);
  measure(screen, description);
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  DeleteObject(copy);
}

/// input_method <window> <id> -> whether the field, or that of a combo box, can be typed in with an input
/// method, such as that for Japanese
Fields InputMethod(const Arguments& arguments) {
  constexpr wchar_t kImm32[] = L"imm32.dll";
  HWND field = arguments.Control(0);
  if (ClassOf(field) == L"ComboBox") field = FindWindowExW(field, nullptr, L"Edit", nullptr);
  const RemoteProcess process(ProcessOf(field));
  const auto window = static_cast<uint64_t>(reinterpret_cast<uintptr_t>(field));
  const uint64_t context = process.Call(kImm32, "ImmGetContext", {window});
  if (context != 0) process.Call(kImm32, "ImmReleaseContext", {window, context});
  return {context != 0 ? "1" : "0"};
}

/// text_size <window> <id> -> width and height of the control's text in its font, on one line; then the
/// font's face, height and weight, as in LOGFONT
Fields TextSize(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  RECT rect{};
  LOGFONTW font{};
  InFontOf(control, [&](HDC screen, const LOGFONTW& description) {
    font = description;
    DrawTextW(screen, TextOf(control).c_str(), -1, &rect, DT_CALCRECT | DT_SINGLELINE);
  });
  return {NumberText(rect.right), NumberText(rect.bottom), ToUtf8(font.lfFaceName), NumberText(font.lfHeight),
          NumberText(font.lfWeight)};
}

/// line_width <window> <id> <line> <tab stop in dialog units> -> width that the line needs in the list
Fields LineWidth(const Arguments& arguments) {
  const std::wstring line = arguments.Text(2);
  DWORD size = 0;
  InFontOf(arguments.Control(0), [&](HDC screen, const LOGFONTW&) {
    // A list box takes the letters' average width for four dialog units.
    constexpr wchar_t kLetters[] = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    SIZE letters{};
    GetTextExtentPoint32W(screen, kLetters, 52, &letters);
    const int stop =
        MulDiv(static_cast<int>(arguments.Number(3)), static_cast<int>((letters.cx / 26 + 1) / 2), 4);
    size = GetTabbedTextExtentW(screen, line.c_str(), static_cast<int>(line.size()), 1, &stop);
  });
  return {NumberText(LOWORD(size))};
}

struct BoxParts {
  HWND text = nullptr;
  HWND icon = nullptr;
  Fields buttons;
};

BOOL CALLBACK AppendPart(HWND window, LPARAM parameter) {
  auto& parts = *reinterpret_cast<BoxParts*>(parameter);
  const std::wstring windowClass = ClassOf(window);
  if (!IsWindowVisible(window)) return TRUE;
  if (windowClass == L"Button") {
    parts.buttons.push_back(NumberText(GetDlgCtrlID(window)));
    parts.buttons.push_back(ToUtf8(TextOf(window)));
  } else if (windowClass == L"Static") {
    const bool isIcon = (GetWindowLongPtrW(window, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
    (isIcon ? parts.icon : parts.text) = window;
  }
  return TRUE;
}

std::string IconKind(HWND box, HWND icon) {
  if (icon == nullptr) return "none";
  const auto shown = static_cast<uint64_t>(SendWithTimeOut(icon, STM_GETICON));
  if (shown == 0) return "none";
  const StandardPictures standard(ProcessOf(box));
  if (shown == standard.Icon(reinterpret_cast<LPCWSTR>(IDI_EXCLAMATION))) return "exclamation";
  if (shown == standard.Icon(reinterpret_cast<LPCWSTR>(IDI_HAND))) return "critical";
  if (shown == standard.Icon(reinterpret_cast<LPCWSTR>(IDI_QUESTION))) return "question";
  if (shown == standard.Icon(reinterpret_cast<LPCWSTR>(IDI_ASTERISK))) return "information";
  return "other";
}

Fields PartsOf(HWND box) {
  BoxParts parts;
  EnumChildWindows(box, AppendPart, reinterpret_cast<LPARAM>(&parts));
  Fields fields = {HandleText(box), ToUtf8(TextOf(box)),
                   parts.text == nullptr ? std::string() : ToUtf8(TextOf(parts.text)),
                   IconKind(box, parts.icon)};
  fields.insert(fields.end(), parts.buttons.begin(), parts.buttons.end());
  return fields;
}

/// wait_box <process> <time-out> -> handle, title, text, icon, then id and caption of each button
Fields WaitBox(const Arguments& arguments) {
  const auto process = static_cast<DWORD>(arguments.Number(0));
  Fields fields;
  WaitFor(arguments.Number(1), "message box", [&] {
    const HWND box = FindTopLevel(process, L"#32770");
    if (box == nullptr || !IsWindowEnabled(box)) return false;
    try {
      fields = PartsOf(box);
    } catch (const CommandError&) {
      if (IsWindowVisible(box)) throw;
    }
    // A box that closed while it was being read is not the one to wait for.
    return IsWindowVisible(box) != FALSE;
  });
  return fields;
}

/// answer_box <handle> <button id> <time-out>: presses the button and waits until the box is closed
Fields AnswerBox(const Arguments& arguments) {
  const HWND box = arguments.Window(0);
  HWND button = GetDlgItem(box, static_cast<int>(arguments.Number(1)));
  // When OK is the only button, Windows gives it the id IDCANCEL so that Esc presses it.
  if (button == nullptr && arguments.Number(1) == IDOK) button = GetDlgItem(box, IDCANCEL);
  if (button == nullptr) throw CommandError("the box has no such button");
  PostMessageW(button, BM_CLICK, 0, 0);
  WaitFor(arguments.Number(2), "closed box", [box] { return !IsWindow(box) || !IsWindowVisible(box); });
  return {};
}

}  // namespace

void AddMenuCommands() {
  // menu <window> -> four fields per item: depth, id, caption, enabled
  AddCommand("menu", Menu);
  AddCommand("pointer", Pointer);
  AddCommand("input_method", InputMethod);
  AddCommand("text_size", TextSize);
  AddCommand("line_width", LineWidth);
  AddCommand("wait_box", WaitBox);
  AddCommand("answer_box", AnswerBox);
}

}  // namespace tarvik::lab
