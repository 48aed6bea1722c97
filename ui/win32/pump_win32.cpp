#include "ui/win32/pump_win32.h"

#include <utility>

namespace tarvik::ui {
namespace {

/// A monotonic clock, in ticks of 1 / TicksPerSecond().
int64_t Now() {
  LARGE_INTEGER ticks{};
  QueryPerformanceCounter(&ticks);
  return ticks.QuadPart;
}

int64_t TicksPerSecond() {
  LARGE_INTEGER frequency{};
  QueryPerformanceFrequency(&frequency);
  return frequency.QuadPart;
}

}  // namespace

Win32Pump::Win32Pump(const MessageFilter& filter, std::function<bool()> stopRequested)
    : filter_(filter), stopRequested_(std::move(stopRequested)) {}

void Win32Pump::LetEventsRun() {
  MSG message{};
  while (!quitting_ && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      // Put it back for the main loop, and stop: PeekMessage would return it forever.
      quitting_ = true;
      PostQuitMessage(static_cast<int>(message.wParam));
    } else {
      filter_.Dispatch(message);
    }
  }
}

void Win32Pump::SleepUntil(uint32_t milliseconds, const std::function<bool()>& over) {
  const int64_t second = TicksPerSecond();
  const int64_t deadline = Now() + int64_t{milliseconds} * second / 1000;
  for (;;) {
    LetEventsRun();
    const int64_t left = deadline - Now();
    if (left <= 0 || quitting_ || over()) return;
    // Rounded up: waking too early would make this loop spin until the deadline.
    const auto wait = static_cast<DWORD>((left * 1000 + second - 1) / second);
    MsgWaitForMultipleObjectsEx(0, nullptr, wait, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  }
}

uint64_t Win32Pump::Milliseconds() const {
  return static_cast<uint64_t>(Now()) * 1000 / static_cast<uint64_t>(TicksPerSecond());
}

}  // namespace tarvik::ui
