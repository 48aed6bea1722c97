#include "platform/wall_clock_win32.h"

#include "platform/windows_win32.h"

namespace tarvik {

std::wstring Win32WallClock::GeneralDateTime() {
  SYSTEMTIME now{};
  ::GetLocalTime(&now);
  // A user's own format has at most 80 characters, whose fields write themselves out to a few times that.
  constexpr int kLongest = 512;
  wchar_t date[kLongest] = {};
  wchar_t time[kLongest] = {};
  ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &now, nullptr, date, kLongest);
  ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &now, nullptr, time, kLongest);
  return std::wstring(date) + L" " + time;
}

}  // namespace tarvik
