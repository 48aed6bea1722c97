// Faults of windows and controls: how they look, and what the keyboard does.

#include "app/control_ids.h"
#include "lab/windows_check/saboteur/saboteur_win32.h"

namespace tarvik::check {
namespace {

constexpr UINT kShiftPage = WM_APP + 100;

/// The faults that are planted.
struct Planted {
  bool wideButton, greyLabel, unnamedField, sharedKey, wrongRole, wrongOrder, shiftedPage;
  bool deafToAccessKeys, deafToEnter, deafToEscape, closesOnEscape, fullWidth, ignoresScaling;
} planted;

decltype(&CreateWindowExW) createWindow = nullptr;
decltype(&ShowWindow) showWindow = nullptr;
decltype(&DrawTextW) drawText = nullptr;
decltype(&CreateFontIndirectW) createFont = nullptr;
decltype(&GetMessageW) getMessage = nullptr;
decltype(&PeekMessageW) peekMessage = nullptr;
decltype(&DispatchMessageW) dispatchMessage = nullptr;
decltype(&GetProcAddress) getProcAddress = nullptr;
WNDPROC mainProcedure = nullptr;
WNDPROC pageProcedure = nullptr;

// Windows that misbehave

LRESULT CALLBACK GreyLabels(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_CTLCOLORSTATIC) {
    SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
    return reinterpret_cast<LRESULT>(GetStockObject(LTGRAY_BRUSH));
  }
  return CallWindowProcW(pageProcedure, window, message, wParam, lParam);
}

BOOL CALLBACK ShiftPing(HWND window, LPARAM) {
  if (GetDlgCtrlID(window) != ID_cmdPing) return TRUE;
  RECT box{};
  GetWindowRect(window, &box);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&box), 2);
  SetWindowPos(window, nullptr, static_cast<int>(box.left) - 7, static_cast<int>(box.top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  return FALSE;
}

LRESULT CALLBACK SpoilScaling(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DPICHANGED && planted.ignoresScaling) return 0;
  const LRESULT result = CallWindowProcW(mainProcedure, window, message, wParam, lParam);
  if (!planted.shiftedPage) return result;
  // After the layout that the program posts to itself.
  if (message == WM_DPICHANGED) PostMessageW(window, kShiftPage, 0, 0);
  if (message == kShiftPage) EnumChildWindows(window, ShiftPing, 0);
  return result;
}

WNDPROC Subclass(HWND window, WNDPROC procedure) {
  return reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

/// A window class that does what "Edit" does, under a name that nobody knows.
const wchar_t* EditUnderAnotherName() {
  WNDCLASSW edit{};
  GetClassInfoW(nullptr, L"Edit", &edit);
  edit.hInstance = GetModuleHandleW(nullptr);
  edit.lpszClassName = L"PlantedField";
  RegisterClassW(&edit);
  return edit.lpszClassName;
}

HWND WINAPI CreateSpoiled(DWORD extendedStyle, LPCWSTR windowClass, LPCWSTR text, DWORD style, int x, int y,
                          int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID data) {
  const auto id = static_cast<int>(reinterpret_cast<INT_PTR>(menu));
  if (planted.unnamedField && id == ID_lblPingReqCount) text = L"";
  if (planted.sharedKey && id == ID_cmdAllTest) text = L"&Ping all";
  if (planted.wideButton && id == ID_cmdPing) width *= 2;
  if (planted.wrongRole && id == ID_txtPingReqCount) windowClass = EditUnderAnotherName();
  const HWND window = createWindow(extendedStyle, windowClass, text, style, x, y, width, height, parent, menu,
                                   instance, data);
  if (planted.wrongOrder && id == ID_cmdAllTest)
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  if (planted.greyLabel && id == ID_lblPingReqCount) pageProcedure = Subclass(parent, GreyLabels);
  if ((planted.shiftedPage || planted.ignoresScaling) && parent == nullptr && mainProcedure == nullptr)
    mainProcedure = Subclass(window, SpoilScaling);
  return window;
}

BOOL WINAPI ShowPartly(HWND window, int command) {
  if (GetParent(window) == nullptr && command == SW_SHOWDEFAULT)
    SetWindowPos(window, nullptr, -200, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  return showWindow(window, command);
}

int WINAPI MeasureTooNarrow(HDC device, LPCWSTR text, int length, LPRECT box, UINT format) {
  const int result = drawText(device, text, length, box, format);
  if ((format & DT_CALCRECT) != 0) box->right -= (box->right - box->left) / 2;
  return result;
}

HFONT WINAPI CreateBold(const LOGFONTW* description) {
  LOGFONTW bold = *description;
  bold.lfWeight = FW_BOLD;
  return createFont(&bold);
}

// The keyboard

void Spoil(MSG& message, bool idle) {
  const bool key = message.message == WM_KEYDOWN;
  const bool escape = key && message.wParam == VK_ESCAPE;
  const bool lost = (planted.deafToAccessKeys && message.message == WM_SYSCHAR) ||
                    (planted.deafToEnter && key && message.wParam == VK_RETURN) ||
                    (planted.deafToEscape && escape);
  if (planted.closesOnEscape && escape && idle)
    PostMessageW(GetAncestor(message.hwnd, GA_ROOT), WM_CLOSE, 0, 0);
  if (lost) message.message = WM_NULL;
}

BOOL WINAPI GetSpoiledMessage(LPMSG message, HWND window, UINT first, UINT last) {
  const BOOL result = getMessage(message, window, first, last);
  if (result > 0) Spoil(*message, true);
  return result;
}

BOOL WINAPI PeekSpoiledMessage(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
  const BOOL result = peekMessage(message, window, first, last, remove);
  if (result) Spoil(*message, false);
  return result;
}

/// Enters full-width digits without asking the program's filters.
LRESULT WINAPI DispatchUnfiltered(const MSG* message) {
  if (message->message == WM_CHAR && message->wParam >= 0xFF10 && message->wParam <= 0xFF19) {
    const wchar_t digit[] = {static_cast<wchar_t>(message->wParam), L'\0'};
    SendMessageW(message->hwnd, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(digit));
    return 0;
  }
  return dispatchMessage(message);
}

HIMC WINAPI KeepInputMethod(HWND, HIMC) { return nullptr; }

FARPROC WINAPI FindWithoutAssociation(HMODULE library, LPCSTR name) {
  const bool byName = reinterpret_cast<ULONG_PTR>(name) > 0xFFFF;
  if (byName && lstrcmpA(name, "ImmAssociateContext") == 0)
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(KeepInputMethod));
  return getProcAddress(library, name);
}

void OnCreation(bool& fault) {
  fault = true;
  if (createWindow == nullptr) ReplaceImport("CreateWindowExW", CreateSpoiled, &createWindow);
}

void OnMessages(bool& fault) {
  fault = true;
  if (getMessage != nullptr) return;
  ReplaceImport("GetMessageW", GetSpoiledMessage, &getMessage);
  ReplaceImport("PeekMessageW", PeekSpoiledMessage, &peekMessage);
}

}  // namespace

const Fault kWindowFaults[] = {
    {"narrow_controls", [] { ReplaceImport("DrawTextW", MeasureTooNarrow, &drawText); }},
    {"wide_button", [] { OnCreation(planted.wideButton); }},
    {"bold_font", [] { ReplaceImport("CreateFontIndirectW", CreateBold, &createFont); }},
    {"grey_label", [] { OnCreation(planted.greyLabel); }},
    {"outside_screen", [] { ReplaceImport("ShowWindow", ShowPartly, &showWindow); }},
    {"shifted_page", [] { OnCreation(planted.shiftedPage); }},
    {"ignores_scaling", [] { OnCreation(planted.ignoresScaling); }},
    {"wrong_tab_order", [] { OnCreation(planted.wrongOrder); }},
    {"shared_access_key", [] { OnCreation(planted.sharedKey); }},
    {"unnamed_field", [] { OnCreation(planted.unnamedField); }},
    {"unknown_role", [] { OnCreation(planted.wrongRole); }},
    {"deaf_to_access_keys", [] { OnMessages(planted.deafToAccessKeys); }},
    {"deaf_to_enter", [] { OnMessages(planted.deafToEnter); }},
    {"deaf_to_escape", [] { OnMessages(planted.deafToEscape); }},
    {"closes_on_escape", [] { OnMessages(planted.closesOnEscape); }},
    {"accepts_full_width", [] { ReplaceImport("DispatchMessageW", DispatchUnfiltered, &dispatchMessage); }},
    {"keeps_input_method", [] { ReplaceImport("GetProcAddress", FindWithoutAssociation, &getProcAddress); }},
    {nullptr, nullptr},
};

}  // namespace tarvik::check
