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

BOOL CALLBACK AppendIfVisible(HWND window, LPARAM parameter) {
  if (!IsWindowVisible(window) || IsPartOfComboBox(window)) return TRUE;
  ControlState control;
  control.window = window;
  control.id = GetDlgCtrlID(window);
  control.windowClass = ClassOf(window);
  control.text = TextOf(window);
  GetWindowRect(window, &control.box);
  reinterpret_cast<std::vector<ControlState>*>(parameter)->push_back(control);
  return TRUE;
}

struct ControlSearch {
  int id = 0;
  HWND found = nullptr;
};

BOOL CALLBACK CompareIds(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<ControlSearch*>(parameter);
  if (GetDlgCtrlID(window) != search.id || IsPartOfComboBox(window)) return TRUE;
  search.found = window;
  return FALSE;
}

}  // namespace

std::vector<ControlState> VisibleControls(HWND window) {
  constexpr std::array kShown = {L"Static", L"Edit", L"Button", L"ComboBox", L"ListBox", L"SysTabControl32"};
  std::vector<ControlState> controls;
  EnumChildWindows(window, AppendIfVisible, reinterpret_cast<LPARAM>(&controls));
  const auto showsNothing = [&](const ControlState& control) {
    return control.id <= 0 || std::none_of(kShown.begin(), kShown.end(), [&](const wchar_t* shown) {
             return control.windowClass == shown;
           });
  };
  controls.erase(std::remove_if(controls.begin(), controls.end(), showsNothing), controls.end());
  return controls;
}

HWND ChildOf(HWND window, int id) {
  ControlSearch search{id, nullptr};
  EnumChildWindows(window, CompareIds, reinterpret_cast<LPARAM>(&search));
  if (search.found == nullptr) throw CheckError("no control " + std::to_string(id));
  return search.found;
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

bool IsPartOfComboBox(HWND window) { return ClassOf(GetParent(window)) == L"ComboBox"; }

std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 256> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

bool IsWine() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

}  // namespace tarvik::check
