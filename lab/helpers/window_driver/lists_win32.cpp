// List boxes, combo boxes and tabs. Messages that pass a pointer to a structure need memory of the other
// process; the system copies texts only for the standard list and combo box messages.

#include <algorithm>
#include <optional>

#include "lab/helpers/window_driver/driver_win32.h"
#include "lab/helpers/window_driver/remote_win32.h"
// After windows.h.
#include <commctrl.h>

namespace tarvik::lab {
namespace {

/// The messages that read the items of a list box or combo box.
struct ListMessages {
  UINT count;
  UINT length;
  UINT text;
};
constexpr ListMessages kListBox = {LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT};
constexpr ListMessages kComboBox = {CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT};

/// One item; nothing when the list has been cleared in the meantime.
std::optional<std::wstring> ItemOf(HWND list, const ListMessages& messages, LRESULT index) {
  const LRESULT length = SendWithTimeOut(list, messages.length, static_cast<WPARAM>(index));
  if (length < 0) return std::nullopt;
  // The item may be replaced by a longer one between the two messages.
  std::wstring text(static_cast<size_t>(length) + 4096, L'\0');
  const LRESULT count =
      SendWithTimeOut(list, messages.text, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  if (count < 0) return std::nullopt;
  text.resize(static_cast<size_t>(count));
  return text;
}

/// The items from the index `first` on.
Fields ItemsOf(HWND list, const ListMessages& messages, LRESULT first = 0) {
  while (true) {
    Fields fields;
    const LRESULT count = SendWithTimeOut(list, messages.count);
    for (LRESULT i = first; i < count; ++i) {
      const std::optional<std::wstring> item = ItemOf(list, messages, i);
      if (!item) break;
      fields.push_back(ToUtf8(*item));
    }
    const LRESULT wanted = std::max<LRESULT>(count - first, 0);
    if (fields.size() == static_cast<size_t>(wanted) && SendWithTimeOut(list, messages.count) == count)
      return fields;
  }
}

std::optional<std::wstring> LastItemOf(HWND list) {
  const LRESULT count = SendWithTimeOut(list, LB_GETCOUNT);
  if (count <= 0) return std::nullopt;
  return ItemOf(list, kListBox, count - 1);
}

/// add_lines <window> <id> <count> <line>: adds the line that many times
Fields AddLines(const Arguments& arguments) {
  const std::wstring line = arguments.Text(3);
  for (int64_t left = arguments.Number(2); left > 0; --left)
    SendWithTimeOut(arguments.Control(0), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
  return {};
}

/// wait_line <window> <id> <line> <time-out>: waits until the list contains the line
Fields WaitLine(const Arguments& arguments) {
  const HWND list = arguments.Control(0);
  const std::string wanted = ToUtf8(arguments.Text(2));
  WaitFor(arguments.Number(3), "line " + wanted, [&] {
    for (const std::string& line : ItemsOf(list, kListBox)) {
      if (line == wanted) return true;
    }
    return false;
  });
  return {};
}

/// wait_last <window> <id> <line> <time-out>: waits until it is the last line of the list
Fields WaitLast(const Arguments& arguments) {
  const HWND list = arguments.Control(0);
  const std::wstring wanted = arguments.Text(2);
  WaitFor(arguments.Number(3), "last line " + ToUtf8(wanted), [&] { return LastItemOf(list) == wanted; });
  return {};
}

bool Differs(HWND list, int64_t count, const std::wstring& last) {
  return SendWithTimeOut(list, LB_GETCOUNT) != count || LastItemOf(list).value_or(std::wstring()) != last;
}

/// new_lines <window> <id> <count> <last line> -> "1" and the lines after the first `count`, if the last of
/// these is still the same; else "0" and all lines
Fields NewLines(const Arguments& arguments) {
  const HWND list = arguments.Control(0);
  const auto known = static_cast<LRESULT>(arguments.Number(2));
  Fields fields = ItemsOf(list, kListBox, known);
  // Afterwards: the program may clear the list in between.
  const bool extends = known == 0 || ItemOf(list, kListBox, known - 1) == arguments.Text(3);
  if (!extends) fields = ItemsOf(list, kListBox);
  fields.insert(fields.begin(), extends ? "1" : "0");
  return fields;
}

/// wait_changed <window> <id> <count> <last line> <time-out>: waits until the list differs from this state
Fields WaitChanged(const Arguments& arguments) {
  const HWND list = arguments.Control(0);
  WaitFor(arguments.Number(4), "change of the list",
          [&] { return Differs(list, arguments.Number(2), arguments.Text(3)); });
  return {};
}

/// list_state <window> <id> -> number of lines, selected index, first visible line, scroll width
Fields ListState(const Arguments& arguments) {
  const HWND list = arguments.Control(0);
  return {NumberText(SendWithTimeOut(list, LB_GETCOUNT)),
          NumberText(static_cast<int>(SendWithTimeOut(list, LB_GETCURSEL))),
          NumberText(SendWithTimeOut(list, LB_GETTOPINDEX)),
          NumberText(SendWithTimeOut(list, LB_GETHORIZONTALEXTENT))};
}

/// TCITEMW as laid out in a 32-bit or 64-bit process, set up to query the text.
template <typename Pointer>
struct TabItem {
  UINT mask = TCIF_TEXT;
  DWORD state = 0;
  DWORD stateMask = 0;
  Pointer text = 0;
  int textSize = 0;
  int image = 0;
  Pointer parameter = 0;
};

template <typename Pointer>
std::wstring TabCaption(HWND tabs, const RemoteProcess& process, LRESULT index) {
  constexpr size_t kTextSize = 256;
  const RemoteMemory memory(process, sizeof(TabItem<Pointer>) + kTextSize * sizeof(wchar_t));
  TabItem<Pointer> item;
  item.text = static_cast<Pointer>(memory.Address() + sizeof item);
  item.textSize = static_cast<int>(kTextSize);
  process.Write(memory.Address(), &item, sizeof item);
  if (!SendWithTimeOut(tabs, TCM_GETITEMW, static_cast<WPARAM>(index), memory.Parameter())) {
    throw CommandError("cannot read the tab");
  }
  // The control may return a pointer to its own text instead of filling the buffer.
  process.Read(memory.Address(), &item, sizeof item);
  std::wstring text(kTextSize, L'\0');
  process.Read(item.text, text.data(), (kTextSize - 1) * sizeof(wchar_t));
  text.resize(text.find(L'\0'));
  return text;
}

/// tabs <window> <id> -> selected index, then the caption of each visible tab
Fields Tabs(const Arguments& arguments) {
  const HWND tabs = arguments.Control(0);
  const RemoteProcess process(ProcessOf(tabs));
  Fields fields = {NumberText(static_cast<int>(SendWithTimeOut(tabs, TCM_GETCURSEL)))};
  const LRESULT count = SendWithTimeOut(tabs, TCM_GETITEMCOUNT);
  for (LRESULT i = 0; i < count; ++i) {
    fields.push_back(ToUtf8(process.Is32Bit() ? TabCaption<uint32_t>(tabs, process, i)
                                              : TabCaption<uint64_t>(tabs, process, i)));
  }
  return fields;
}

RECT RectOfTab(HWND tabs, WPARAM index) {
  const RemoteProcess process(ProcessOf(tabs));
  const RemoteMemory memory(process, sizeof(RECT));
  if (!SendWithTimeOut(tabs, TCM_GETITEMRECT, index, memory.Parameter())) throw CommandError("no such tab");
  RECT rect;
  process.Read(memory.Address(), &rect, sizeof rect);
  return rect;
}

/// select_tab <window> <id> <index among the visible tabs> <time-out>: clicks it and waits until it is
/// selected
Fields SelectTab(const Arguments& arguments) {
  const HWND tabs = arguments.Control(0);
  const auto index = static_cast<WPARAM>(arguments.Number(2));
  const RECT rect = RectOfTab(tabs, index);
  PostClick(tabs, {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
  WaitFor(arguments.Number(3), "selected tab",
          [&] { return SendWithTimeOut(tabs, TCM_GETCURSEL) == static_cast<LRESULT>(index); });
  return {};
}

/// tab_rect <window> <id> <index among the visible tabs> -> left, top (in the tab control), width, height
Fields TabRect(const Arguments& arguments) {
  const HWND tabs = arguments.Control(0);
  const RECT rect = RectOfTab(tabs, static_cast<WPARAM>(arguments.Number(2)));
  return {NumberText(rect.left), NumberText(rect.top), NumberText(rect.right - rect.left),
          NumberText(rect.bottom - rect.top)};
}

/// dpi <window> <dpi> <left> <top> <width> <height>: sends WM_DPICHANGED with this suggested rectangle, as
/// when the window moves to a monitor with another scaling
Fields ChangeDpi(const Arguments& arguments) {
  const HWND window = arguments.Window(0);
  const auto number = [&arguments](size_t index) { return static_cast<LONG>(arguments.Number(index)); };
  const RECT suggested = {number(2), number(3), number(2) + number(4), number(3) + number(5)};
  const RemoteProcess process(ProcessOf(window));
  const RemoteMemory memory(process, sizeof suggested);
  process.Write(memory.Address(), &suggested, sizeof suggested);
  const auto dpi = static_cast<WORD>(number(1));
  SendWithTimeOut(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), memory.Parameter());
  return {};
}

}  // namespace

void AddListCommands() {
  AddCommand("lines", [](const Arguments& a) { return ItemsOf(a.Control(0), kListBox); });
  AddCommand("line_count", [](const Arguments& a) {
    return Fields{NumberText(SendWithTimeOut(a.Control(0), LB_GETCOUNT))};
  });
  AddCommand("list_state", ListState);
  AddCommand("clear_list", [](const Arguments& a) {
    SendWithTimeOut(a.Control(0), LB_RESETCONTENT);
    return Fields{};
  });
  AddCommand("add_lines", AddLines);
  AddCommand("wait_line", WaitLine);
  AddCommand("wait_last", WaitLast);
  AddCommand("new_lines", NewLines);
  AddCommand("wait_changed", WaitChanged);
  AddCommand("combo_items", [](const Arguments& a) { return ItemsOf(a.Control(0), kComboBox); });
  AddCommand("tabs", Tabs);
  AddCommand("select_tab", SelectTab);
  AddCommand("tab_rect", TabRect);
  AddCommand("dpi", ChangeDpi);
}

}  // namespace tarvik::lab
