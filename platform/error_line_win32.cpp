#include "platform/error_line_win32.h"

#include "platform/text.h"

namespace tarvik {

std::wstring ErrorLine(DWORD error, const std::wstring& subject) {
  wchar_t buffer[256] = {};
  DWORD length = ::FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                                  0, buffer, sizeof buffer / sizeof buffer[0], nullptr);
  while (length > 0 && buffer[length - 1] <= L' ') --length;
  std::wstring text(buffer, length);
  if (const size_t insert = text.find(L"%1"); insert != std::wstring::npos) text.replace(insert, 2, subject);
  return L"ERROR: " + Decimal(error) + L" - " + text;
}

}  // namespace tarvik
