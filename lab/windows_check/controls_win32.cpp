#include "lab/windows_check/controls_win32.h"

#include <algorithm>
#include <array>

namespace tarvik::check {
namespace {

constexpr UINT kControlAnswerMs = 5000;

LRESULT SendOrZero(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  DWORD_PTR result = 0;
  const LRESULT sent =
      SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, kControlAnswerMs, &result);
  return sent == 0 ? 0 : static_cast<LRESULT>(result);
}

BOOL CALLBACK AppendControlState(HWND window, LPARAM parameter) {
  if (ClassOf(GetParent(window)) == L"ComboBox") return TRUE;
  ControlState control;
  control.window = window;
  control.id = GetDlgCtrlID(window);
  control.windowClass = ClassOf(window);
  control.text = TextOf(window);
  GetWindowRect(window, &control.box);
  reinterpret_cast<std::vector<ControlState>*>(parameter)->push_back(control);
  return TRUE;
}

}  // namespace

std::vector<ControlState> AllControls(HWND window) {
  std::vector<ControlState> controls;
  EnumChildWindows(window, AppendControlState, reinterpret_cast<LPARAM>(&controls));
  return controls;
}

std::vector<ControlState> VisibleControls(HWND window) {
  constexpr std::array kShown = {L"Static", L"Edit", L"Button", L"ComboBox", L"ListBox", L"SysTabControl32"};
  std::vector<ControlState> controls = AllControls(window);
  const auto isHidden = [&](const ControlState& control) {
    return control.id <= 0 || !IsWindowVisible(control.window) ||
           std::none_of(kShown.begin(), kShown.end(),
                        [&](const wchar_t* shown) { return control.windowClass == shown; });
  };
  controls.erase(std::remove_if(controls.begin(), controls.end(), isHidden), controls.end());
  return controls;
}

HWND ChildOf(HWND window, int id) {
  for (const ControlState& control : AllControls(window))
    if (control.id == id) return control.window;
  throw CheckError("no control " + std::to_string(id));
}

HWND OpenByCommand(RunningProduct& product, Driver& driver, int command, const char* windowClass) {
  constexpr int kOpenTimeOutMs = 15000;
  product.Ask("command", command);
  const Driver::Fields handle =
      driver.Ask("wait_window", product.Id(), std::string(windowClass), kOpenTimeOutMs);
  return reinterpret_cast<HWND>(static_cast<intptr_t>(std::stoll(handle.at(0))));
}

std::vector<std::string> TabCaptions(RunningProduct& product) {
  std::vector<std::string> captions = product.Ask("tabs", ID_tabMode);
  captions.erase(captions.begin());
  return captions;
}

std::string NameOf(const ControlState& control) {
  return ToUtf8(control.text.substr(0, 40)) + " (" + std::to_string(control.id) + ")";
}

std::wstring TextOf(HWND window) {
  const auto length = static_cast<size_t>(SendOrZero(window, WM_GETTEXTLENGTH));
  std::wstring text(length + 64, L'\0');
  const LRESULT copied = SendOrZero(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(std::min(static_cast<size_t>(copied), text.size()));
  return text;
}

std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 256> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

bool IsWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

}  // namespace tarvik::check
