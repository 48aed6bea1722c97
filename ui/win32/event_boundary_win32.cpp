#include "ui/win32/event_boundary_win32.h"

#include <exception>
#include <new>
#include <string>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "ui/win32/form_win32.h"
#include "ui/win32/message_boxes_win32.h"

namespace tarvik::ui {
namespace {

void ShowError(HWND owner, const wchar_t* text) noexcept {
  ShowModalBox(owner, text, report::kProgramTitle, MB_OK | MB_ICONERROR);
}

}  // namespace

void ReportException(HWND owner) noexcept {
  try {
    throw;
  } catch (const RuntimeError& error) {
    ShowError(owner, error.Text().c_str());
  } catch (const std::bad_alloc&) {
    ShowError(owner, L"There is not enough memory to do this.");
  } catch (...) {
    ShowError(owner, L"An unexpected error occurred. The program can still be used.");
  }
}

void RunFunction(Win32Form& form, const std::function<void()>& handler) noexcept {
  try {
    form.Guarded(handler);
  } catch (...) {
    if (!form.errorsInCaption) ReportException(form.Window());
  }
}

void ThrowLastError(const wchar_t* sentence) {
  const DWORD error = GetLastError();
  std::wstring text = sentence;
  if (error != ERROR_SUCCESS) text += L" (" + Decimal(error) + L")";
  throw RuntimeError(text);
}

}  // namespace tarvik::ui
