// What a change of the display scaling does to the main window.

#include "lab/windows_check/scaling_win32.h"

#include <algorithm>

#include "lab/windows_check/controls_win32.h"

namespace tarvik::check {
namespace {

constexpr int kPlacesSettledMs = 5000;

int DpiOfScreen() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

BOOL CALLBACK AppendPlace(HWND window, LPARAM parameter) {
  if (IsPartOfComboBox(window)) return TRUE;
  RECT place{};
  GetWindowRect(window, &place);
  reinterpret_cast<std::vector<RECT>*>(parameter)->push_back(place);
  return TRUE;
}

/// Position and size of the window and of every control in it, relative to the window.
std::vector<RECT> PlacesIn(HWND window) {
  std::vector<RECT> places;
  AppendPlace(window, reinterpret_cast<LPARAM>(&places));
  EnumChildWindows(window, AppendPlace, reinterpret_cast<LPARAM>(&places));
  const POINT corner{places.front().left, places.front().top};
  for (RECT& place : places) OffsetRect(&place, static_cast<int>(-corner.x), static_cast<int>(-corner.y));
  return places;
}

bool SamePlaces(const std::vector<RECT>& a, const std::vector<RECT>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const RECT& x, const RECT& y) { return EqualRect(&x, &y) != FALSE; });
}

/// Reads the places once they no longer change.
std::vector<RECT> SettledPlaces(RunningProduct& product, HWND window) {
  constexpr ULONGLONG kUnchangedMs = 150;
  std::vector<RECT> places = PlacesIn(window);
  ULONGLONG changedAt = GetTickCount64();
  WaitUntil(kPlacesSettledMs, [&] {
    product.Ask("settle", kPlacesSettledMs);
    const std::vector<RECT> now = PlacesIn(window);
    if (!SamePlaces(now, places)) changedAt = GetTickCount64();
    places = now;
    return GetTickCount64() - changedAt >= kUnchangedMs;
  });
  return places;
}

}  // namespace

int DpiOfWindow(HWND window) {
  const auto ask = FromUser32<UINT WINAPI(HWND)>("GetDpiForWindow");
  const int dpi = ask == nullptr ? 0 : static_cast<int>(ask(window));
  return dpi > 0 ? dpi : DpiOfScreen();
}

void CheckOtherScalings(Kit& kit) {
  Driver driver(kit);
  RunningProduct product(kit, driver);
  const HWND window = product.WaitForMainWindow();
  const std::vector<RECT> before = SettledPlaces(product, window);
  RECT outer{};
  GetWindowRect(window, &outer);
  const int first = DpiOfWindow(window);
  std::string sizes = std::to_string(first) + " dpi: " + std::to_string(before.front().right) + " x " +
                      std::to_string(before.front().bottom);
  bool changes = false;
  for (const int dpi : {144, 192, 96, first}) {
    const LONG width = MulDiv(static_cast<int>(before.front().right), dpi, first);
    const LONG height = MulDiv(static_cast<int>(before.front().bottom), dpi, first);
    product.Ask("dpi", dpi, outer.left, outer.top, width, height);
    const std::vector<RECT> places = SettledPlaces(product, window);
    sizes += ", " + std::to_string(dpi) + " dpi: " + std::to_string(places.front().right) + " x " +
             std::to_string(places.front().bottom);
    changes = changes || (dpi != first && !SamePlaces(places, before));
  }
  const bool same = WaitUntil(kPlacesSettledMs, [&] { return SamePlaces(PlacesIn(window), before); });
  kit.report.Expect("looks.scaling",
                    "Another scaling changes sizes and places, and back restores all of them",
                    changes && same, sizes);
}

}  // namespace tarvik::check
