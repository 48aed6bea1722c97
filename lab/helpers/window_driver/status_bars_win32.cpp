// Status bars: their fields and the tool tips of the fields.

#include "lab/helpers/window_driver/driver_win32.h"
#include "lab/helpers/window_driver/remote_win32.h"
// After windows.h.
#include <commctrl.h>

namespace tarvik::lab {
namespace {

constexpr size_t kTextSize = 1024;

std::wstring ReadText(const RemoteProcess& process, const RemoteMemory& memory) {
  std::wstring text(kTextSize, L'\0');
  process.Read(memory.Address(), text.data(), (kTextSize - 1) * sizeof(wchar_t));
  text.resize(text.find(L'\0'));
  return text;
}

RECT RectOfField(HWND bar, const RemoteProcess& process, WPARAM field) {
  const RemoteMemory memory(process, sizeof(RECT));
  if (!SendWithTimeOut(bar, SB_GETRECT, field, memory.Parameter())) throw CommandError("no such field");
  RECT rect;
  process.Read(memory.Address(), &rect, sizeof rect);
  return rect;
}

/// status_fields <window> <id> -> for each field: text, then left, top (in the bar), width, height
Fields StatusFields(const Arguments& arguments) {
  const HWND bar = arguments.Control(0);
  const RemoteProcess process(ProcessOf(bar));
  const RemoteMemory memory(process, kTextSize * sizeof(wchar_t));
  Fields fields;
  const auto count = static_cast<WPARAM>(SendWithTimeOut(bar, SB_GETPARTS));
  for (WPARAM field = 0; field < count; ++field) {
    SendWithTimeOut(bar, SB_GETTEXTW, field, memory.Parameter());
    const RECT rect = RectOfField(bar, process, field);
    fields.insert(fields.end(),
                  {ToUtf8(ReadText(process, memory)), NumberText(rect.left), NumberText(rect.top),
                   NumberText(rect.right - rect.left), NumberText(rect.bottom - rect.top)});
  }
  return fields;
}

/// TTTOOLINFOW as laid out in a 32-bit or 64-bit process.
template <typename Pointer>
struct Tool {
  UINT size = sizeof(Tool);
  UINT flags = 0;
  Pointer window = 0;
  Pointer id = 0;
  RECT rect{};
  Pointer instance = 0;
  Pointer text = 0;
  Pointer parameter = 0;
};

/// The text of the window's tool in a tool tip window; empty when it has no such tool.
template <typename Pointer>
std::wstring ToolText(HWND tips, const RemoteProcess& process, HWND owner, int64_t id) {
  const RemoteMemory text(process, kTextSize * sizeof(wchar_t));
  const RemoteMemory memory(process, sizeof(Tool<Pointer>));
  Tool<Pointer> tool;
  tool.window = static_cast<Pointer>(reinterpret_cast<uintptr_t>(owner));
  tool.id = static_cast<Pointer>(id);
  tool.text = static_cast<Pointer>(text.Address());
  process.Write(memory.Address(), &tool, sizeof tool);
  SendWithTimeOut(tips, TTM_GETTEXTW, kTextSize, memory.Parameter());
  return ReadText(process, text);
}

struct TipSearch {
  DWORD process = 0;
  std::vector<HWND> found;
};

BOOL CALLBACK AppendTips(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<TipSearch*>(parameter);
  if (ProcessOf(window) == search.process && ClassOf(window) == TOOLTIPS_CLASSW)
    search.found.push_back(window);
  return TRUE;
}

/// tool_tip <window> <id> <tool> -> the text of the control's tool; empty when it has none
Fields ToolTip(const Arguments& arguments) {
  const HWND control = arguments.Control(0);
  TipSearch search{ProcessOf(control), {}};
  EnumWindows(AppendTips, reinterpret_cast<LPARAM>(&search));
  const RemoteProcess process(search.process);
  for (HWND tips : search.found) {
    const int64_t id = arguments.Number(2);
    const std::wstring text = process.Is32Bit() ? ToolText<uint32_t>(tips, process, control, id)
                                                : ToolText<uint64_t>(tips, process, control, id);
    if (!text.empty()) return {ToUtf8(text)};
  }
  return {""};
}

}  // namespace

void AddStatusBarCommands() {
  AddCommand("status_fields", StatusFields);
  AddCommand("tool_tip", ToolTip);
}

}  // namespace tarvik::lab
