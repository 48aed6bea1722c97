// Creates the window and its controls. For a faster start-up, the controls of a page are created when the
// page is first shown, or shortly after the window appears and accepts input. Messages are handled in
// form_events_win32.cpp.

#include "ui/win32/form_win32.h"

#include <algorithm>
#include <utility>

#include "platform/runtime_error.h"
#include "ui/placement.h"
#include "ui/win32/common_controls_win32.h"
#include "ui/win32/controls_win32.h"
#include "ui/win32/status_bar_win32.h"
#include "ui/win32/text_view_win32.h"

namespace tarvik::ui {
namespace {

constexpr int kIconId = 1;  ///< in the program's resources
constexpr UINT_PTR kFinishTimer = 1;
constexpr UINT_PTR kFirstOwnTimer = 100;  ///< number 0 of StartTimer
/// So that the messages caused by showing the window are handled first.
constexpr UINT kFinishDelayMs = 30;

/// The caller destroys it. Not LR_SHARED, which returns the size that was loaded first.
HICON LoadProgramIcon(int width, int height) {
  return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kIconId), IMAGE_ICON,
                                       width, height, LR_DEFAULTCOLOR));
}

/// The work area of the monitor that the window is on; empty when the system does not report it.
RECT WorkAreaOf(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

Rect ToRect(const RECT& box) {
  return {static_cast<int>(box.left), static_cast<int>(box.top), static_cast<int>(box.right - box.left),
          static_cast<int>(box.bottom - box.top)};
}

void InitialiseCommonControls(const SystemLibrary& library) {
  INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_STANDARD_CLASSES | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
  if (const auto initialise =
          library.Find<BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*)>("InitCommonControlsEx"))
    initialise(&wanted);
}

}  // namespace

Win32Form::Win32Form(const wchar_t* className, FormRole role) : className_(className), role_(role) {
  commonControls_.LoadByManifest(L"comctl32.dll");
  inputMethods_.Load(L"imm32.dll");
  InitialiseCommonControls(commonControls_);
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.lpfnWndProc = &Win32Form::WindowProcedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  description.lpszClassName = className;
  if (RegisterClassExW(&description) == 0) ThrowLastError(L"The window could not be created.");

  // The window procedure sets window_ on WM_NCCREATE, because messages arrive before CreateWindowEx returns.
  if (CreateWindowExW(WS_EX_CONTROLPARENT, className, L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                      CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr,
                      description.hInstance, this) == nullptr) {
    UnregisterClassW(className, description.hInstance);
    ThrowLastError(L"The window could not be created.");
  }
  dpi_ = scaling_.DpiOf(window_);
  ApplyMessageFont();
  SetIcons();
  taskbarButton_.ExpectButton(window_);
}

void Win32Form::SetIcons() noexcept {
  const auto set = [this](HICON& icon, WPARAM kind, int width, int height) {
    const HICON old = std::exchange(icon, LoadProgramIcon(Metric(width), Metric(height)));
    SendMessageW(window_, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
    if (old != nullptr) DestroyIcon(old);
  };
  // The small one first: a window that has only a large one makes its own small one from it.
  set(smallIcon_, ICON_SMALL, SM_CXSMICON, SM_CYSMICON);
  set(largeIcon_, ICON_BIG, SM_CXICON, SM_CYICON);
}

Win32Form::~Win32Form() {
  unloaded_ = true;  // the owners of the handlers may be destroyed already
  if (window_ != nullptr) DestroyWindow(window_);
  for (const HICON icon : {largeIcon_, smallIcon_})
    if (icon != nullptr) DestroyIcon(icon);
  UnregisterClassW(className_, GetModuleHandleW(nullptr));
}

Win32Form* Win32Form::Of(HWND window) {
  HWND root = GetAncestor(window, GA_ROOT);
  if (root == nullptr ||
      GetClassLongPtrW(root, GCLP_WNDPROC) != reinterpret_cast<ULONG_PTR>(&Win32Form::WindowProcedure))
    return nullptr;
  return reinterpret_cast<Win32Form*>(GetWindowLongPtrW(root, GWLP_USERDATA));
}

// Controls

template <typename Type, typename... Arguments>
Type& Win32Form::Add(int id, int page, Arguments&&... arguments) {
  auto control = std::make_unique<Type>(*this, page, id, std::forward<Arguments>(arguments)...);
  Type& added = *control;
  // A page's controls are created with the page.
  if (page == kNoPage) added.Create(window_);
  controls_.push_back(std::move(control));
  return added;
}

void Win32Form::RemoveInputMethod(HWND edit) {
  using Associate = void*(WINAPI*)(HWND, void*);
  if (const auto associate = inputMethods_.Find<Associate>("ImmAssociateContext")) associate(edit, nullptr);
}

void Win32Form::CreatePage(int page) {
  if (!everShown_ || page == kNoPage) return;
  if (tabStrip_->Panel(page) == nullptr) tabStrip_->CreatePanel(page);
  // Includes controls that could not be created earlier.
  for (const auto& control : controls_)
    if (control->Page() == page && control->Window() == nullptr) control->Create(tabStrip_->Panel(page));
  tabStrip_->ShowFrontPanel();
}

void Win32Form::Finish() noexcept {
  RunHandler(*this, [this] {
    for (int page = 0; tabStrip_ != nullptr && page < tabStrip_->PageCount(); ++page) CreatePage(page);
    annotations_.Start(com_);
    for (const auto& control : controls_) control->Annotate();
  });
}

Label& Win32Form::AddLabel(int id, int page, const std::wstring& caption) {
  Label& label = Add<Win32Label>(id, page, LabelKind::Caption);
  label.SetCaption(caption);
  return label;
}

Label& Win32Form::AddLiveLabel(int id) { return Add<Win32Label>(id, kNoPage, LabelKind::LiveRegion); }

Button& Win32Form::AddButton(int id, int page, const std::wstring& caption) {
  // Buttons created one after the other on a page form a group, in which the arrow keys move the focus.
  const bool follows = !controls_.empty() &&
                       dynamic_cast<const Win32Button*>(controls_.back().get()) != nullptr &&
                       controls_.back()->Page() == page;
  Button& button = Add<Win32Button>(id, page, !follows);
  button.SetCaption(caption);
  return button;
}

CheckBox& Win32Form::AddCheckBox(int id, int page, const std::wstring& caption) {
  CheckBox& box = Add<Win32CheckBox>(id, page);
  box.SetCaption(caption);
  return box;
}

TextBox& Win32Form::AddTextBox(int id, int page, TextBoxStyle style) {
  return Add<Win32TextBox>(id, page, style);
}

ComboBox& Win32Form::AddComboBox(int id, int page, ComboBoxStyle style) {
  return Add<Win32ComboBox>(id, page, style);
}

ListBox& Win32Form::AddListBox(int id, int page, const std::wstring& toolTip) {
  return Add<Win32ListBox>(id, page, toolTip);
}

TabStrip& Win32Form::AddTabStrip(int id, const std::vector<std::wstring>& captions) {
  tabStrip_ = &Add<Win32TabStrip>(id, kNoPage, captions);
  return *tabStrip_;
}

StatusBar& Win32Form::AddStatusBar(int id, int fields) { return Add<Win32StatusBar>(id, kNoPage, fields); }

TextView& Win32Form::AddTextView(int id) { return Add<Win32TextView>(id, kNoPage); }

ControlWindow* Win32Form::ControlOf(HWND window) const {
  for (; window != nullptr && window != window_; window = GetAncestor(window, GA_PARENT))
    for (const auto& control : controls_)
      if (control->Window() == window) return control.get();
  return nullptr;
}

ControlWindow* Win32Form::ControlWithId(int id) const {
  for (const auto& control : controls_)
    if (control->Id() == id) return control.get();
  return nullptr;
}

// The window

void Win32Form::SetCaption(const std::wstring& caption) {
  if (caption == Caption()) return;
  if (!SetWindowTextW(window_, caption.c_str()))
    ThrowLastError(L"The caption of the window could not be set.");
}

std::wstring Win32Form::Caption() const {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window_)), L'\0');
  text.resize(static_cast<size_t>(GetWindowTextW(window_, text.data(), static_cast<int>(text.size()) + 1)));
  return text;
}

void Win32Form::Show() {
  if (Visible()) {
    if (Minimised()) ShowWindow(window_, SW_RESTORE);
    SetActiveWindow(window_);
    return;
  }
  const bool first = !std::exchange(everShown_, true);
  if (first) {
    if (menuBar_ != nullptr) menuBar_->UpdateBar();
    KeepOnScreen();
    for (const auto& control : controls_) control->ApplyPlace();
    if (tabStrip_ != nullptr)
      CreatePage(tabStrip_->FrontPage());
    else
      Finish();
  }
  // The main window opens in the state that its starter requests, such as a shortcut set to "Maximized".
  ShowWindow(window_, role_ == FormRole::Main ? SW_SHOWDEFAULT : SW_SHOW);
  UpdateWindow(window_);
  if (first && tabStrip_ != nullptr) SetTimer(window_, kFinishTimer, kFinishDelayMs, nullptr);
}

void Win32Form::KeepOnScreen() {
  const RECT screen = WorkAreaOf(window_);
  RECT box{};
  if (IsRectEmpty(&screen) || !GetWindowRect(window_, &box)) return;
  const LONG x = std::max(screen.left, std::min(box.left, screen.right - (box.right - box.left)));
  const LONG y = std::max(screen.top, std::min(box.top, screen.bottom - (box.bottom - box.top)));
  if (x == box.left && y == box.top) return;
  SetWindowPos(window_, nullptr, static_cast<int>(x), static_cast<int>(y), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32Form::PlaceBeside(const Form& other, const Control& keep) {
  if (!other.Visible() || other.Minimised()) return;
  HWND window = static_cast<const Win32Form&>(other).window_;
  RECT outer{};
  GetWindowRect(window, &outer);
  // First, so that the window has the scaling of that monitor when it is measured.
  SetWindowPos(window_, nullptr, static_cast<int>(outer.left), static_cast<int>(outer.top), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  const RECT workArea = WorkAreaOf(window);
  if (IsRectEmpty(&workArea)) return;
  const Rect bounds = keep.Bounds();
  RECT kept{bounds.x, bounds.y, bounds.x + bounds.width, bounds.y + bounds.height};
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&kept), 2);
  const Rect place =
      BesideWindow(WindowSize(), minimumSize_.width, ToRect(outer), ToRect(kept), ToRect(workArea));
  SetWindowPos(window_, nullptr, place.x, place.y, place.width, place.height, SWP_NOZORDER | SWP_NOACTIVATE);
}

bool Win32Form::Close() {
  if (window_ != nullptr) OnClose();
  return window_ == nullptr;
}

bool Win32Form::Visible() const { return IsWindowVisible(window_) != FALSE; }

void Win32Form::SetEnabled(bool enabled) {
  if (!enabled && IsChild(window_, GetFocus())) lastFocus_ = GetFocus();
  EnableWindow(window_, enabled);
  if (enabled && GetActiveWindow() == window_) RestoreFocus();
}

bool Win32Form::Enabled() const { return IsWindowEnabled(window_) != FALSE; }

bool Win32Form::Minimised() const { return IsIconic(window_) != FALSE; }

void Win32Form::MakeTopmost() {
  if (!SetWindowPos(window_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE))
    ThrowLastError(L"The window could not be kept above the others.");
}

Size Win32Form::WindowSize() const {
  RECT box{};
  GetWindowRect(window_, &box);
  return {static_cast<int>(box.right - box.left), static_cast<int>(box.bottom - box.top)};
}

void Win32Form::SetWindowSize(Size size) {
  if (size == WindowSize()) return;
  if (!SetWindowPos(window_, nullptr, 0, 0, size.width, size.height,
                    SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE))
    ThrowLastError(L"The window's size could not be changed.");
}

Size Win32Form::ClientSize() const {
  if (menuBar_ != nullptr) menuBar_->UpdateBar();
  RECT client{};
  GetClientRect(window_, &client);
  return {static_cast<int>(client.right), static_cast<int>(client.bottom)};
}

Size Win32Form::WorkArea() const {
  const RECT area = WorkAreaOf(window_);
  return {static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top)};
}

void Win32Form::FixSize() {
  const LONG style = GetWindowLongW(window_, GWL_STYLE);
  SetWindowLongW(window_, GWL_STYLE, style & ~(WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX));
  SetWindowPos(window_, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

// Timers and the taskbar

void Win32Form::StartTimer(int timer, int milliseconds, std::function<void()> handler) {
  StopTimer(timer);
  timers_.push_back({timer, std::move(handler)});
  SetTimer(window_, kFirstOwnTimer + static_cast<UINT_PTR>(timer), static_cast<UINT>(milliseconds), nullptr);
}

void Win32Form::StopTimer(int timer) {
  if (std::erase_if(timers_, [timer](const Timer& each) { return each.number == timer; }) == 0) return;
  KillTimer(window_, kFirstOwnTimer + static_cast<UINT_PTR>(timer));
}

void Win32Form::OnTimer(UINT_PTR timer) noexcept {
  KillTimer(window_, timer);
  if (timer == kFinishTimer) return Finish();
  const auto started = std::find_if(timers_.begin(), timers_.end(), [timer](const Timer& each) {
    return kFirstOwnTimer + static_cast<UINT_PTR>(each.number) == timer;
  });
  // A timer that was stopped may have left a message in the queue.
  if (started == timers_.end()) return;
  // The handler may start the timer again.
  const std::function<void()> handler = std::move(started->handler);
  timers_.erase(started);
  RunHandler(*this, handler);
}

void Win32Form::SetTaskbarState(TaskbarState state) {
  const bool seen = state == TaskbarState::Failed && GetForegroundWindow() == window_;
  taskbarButton_.Show(window_, com_, seen ? TaskbarState::None : state);
}

// The pointer

void Win32Form::SetPointer(Pointer pointer) {
  pointer_ = pointer;
  POINT place{};
  GetCursorPos(&place);
  HWND under = WindowFromPoint(place);
  // Change the shape now, not when the mouse moves next. The window under the pointer chooses it.
  const bool ours = under != nullptr && GetWindowThreadProcessId(under, nullptr) == GetCurrentThreadId();
  if (pointer == Pointer::Default && ours)
    SendMessageW(under, WM_SETCURSOR, reinterpret_cast<WPARAM>(under), MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  else
    SetCursor(LoadCursorW(nullptr, pointer == Pointer::Hourglass ? IDC_WAIT : IDC_ARROW));
}

}  // namespace tarvik::ui
