#include "platform/wall_clock.h"

#include "platform/windows_win32.h"

namespace tarvik {
namespace {

class Win32WallClock final : public WallClock {
 public:
  std::wstring GeneralDateTime() override {
    SYSTEMTIME now{};
    ::GetLocalTime(&now);
    // A user's own format has at most 80 characters, whose fields write themselves out to a few times that.
    constexpr int kLongestPart = 512;
    wchar_t date[kLongestPart] = {};
    wchar_t time[kLongestPart] = {};
    ::GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &now, nullptr, date, kLongestPart);
    ::GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &now, nullptr, time, kLongestPart);
    return std::wstring(date) + L" " + time;
  }
};

}  // namespace

std::unique_ptr<WallClock> MakeWallClock() { return std::make_unique<Win32WallClock>(); }

}  // namespace tarvik
