// What the windows look like: every page in both languages, at the scaling of every monitor.

#include <algorithm>
#include <array>
#include <map>

#include "lab/windows_check/controls_win32.h"
#include "lab/windows_check/scaling_win32.h"

namespace tarvik::check {
namespace {

constexpr int kStandardDpi = 96;
constexpr int kSettledMs = 5000;

struct Monitor {
  RECT area{};
  RECT workArea{};
};

BOOL CALLBACK AddMonitor(HMONITOR handle, HDC, RECT*, LPARAM parameter) {
  MONITORINFO information{};
  information.cbSize = sizeof information;
  if (GetMonitorInfoW(handle, &information))
    reinterpret_cast<std::vector<Monitor>*>(parameter)->push_back(
        {information.rcMonitor, information.rcWork});
  return TRUE;
}

/// All monitors, the primary one first.
std::vector<Monitor> MonitorsOfThisPc() {
  std::vector<Monitor> monitors;
  EnumDisplayMonitors(nullptr, nullptr, AddMonitor, reinterpret_cast<LPARAM>(&monitors));
  std::stable_partition(monitors.begin(), monitors.end(), [](const Monitor& monitor) {
    return monitor.area.left == 0 && monitor.area.top == 0;
  });
  return monitors;
}

/// Face, height and weight of the message font at that scaling, as the driver reports them after a text's
/// size.
std::vector<std::string> MessageFontAt(int dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  const auto ask = FromUser32<BOOL WINAPI(UINT, UINT, void*, UINT, UINT)>("SystemParametersInfoForDpi");
  if (ask != nullptr) {
    ask(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi));
  } else {
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  }
  const LOGFONTW& font = metrics.lfMessageFont;
  return {ToUtf8(font.lfFaceName), std::to_string(font.lfHeight), std::to_string(font.lfWeight)};
}

bool IsInside(const RECT& inner, const RECT& outer) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

bool OverlapEachOther(const RECT& a, const RECT& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

RECT ClientOnScreen(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
  return client;
}

bool IsOnEveryPage(int id) {
  return id == ID_lblIPAddr || id == ID_cmbIPAddr || id == ID_tabMode || id == ID_lblResult ||
         id == ID_lstResult || id == ID_lblAnswer || id == ID_sbrRungs;
}

/// What the rules on looks found on every page of one language.
struct LooksFound {
  Findings unmeasured;  ///< controls whose text and font could not be measured
  Findings unseen;      ///< windows of which there is no picture
  Findings texts;
  Findings places;
  Findings fonts;
  Findings backgrounds;
  Findings workArea;
  int controls = 0;
  int dpi = 0;
};

/// The colour that most pixels of `inner` have, without those of `except`.
uint32_t CommonColour(const Picture& picture, const RECT& inner, const std::vector<RECT>& except) {
  std::map<uint32_t, int> counts;
  for (LONG y = std::max(0L, inner.top); y < std::min<LONG>(inner.bottom, picture.height); ++y) {
    for (LONG x = std::max(0L, inner.left); x < std::min<LONG>(inner.right, picture.width); ++x) {
      const bool excepted = std::any_of(except.begin(), except.end(), [x, y](const RECT& rect) {
        return x >= rect.left && x < rect.right && y >= rect.top && y < rect.bottom;
      });
      if (!excepted) ++counts[picture.At(static_cast<int>(x), static_cast<int>(y)) & 0xFFFFFF];
    }
  }
  const auto most = std::max_element(counts.begin(), counts.end(),
                                     [](const auto& a, const auto& b) { return a.second < b.second; });
  return most == counts.end() ? 0 : most->first;
}

bool HasOneColour(const Picture& picture, const RECT& rect) {
  const uint32_t first = picture.At(static_cast<int>(rect.left), static_cast<int>(rect.top));
  for (LONG y = rect.top; y < rect.bottom; ++y)
    for (LONG x = rect.left; x < rect.right; ++x)
      if (picture.At(static_cast<int>(x), static_cast<int>(y)) != first) return false;
  return true;
}

/// The largest difference of a colour component. A themed page may have a slight gradient.
int ColourDifference(uint32_t a, uint32_t b) {
  int largest = 0;
  for (const int shift : {0, 8, 16})
    largest = std::max(largest,
                       std::abs(static_cast<int>(a >> shift & 0xFF) - static_cast<int>(b >> shift & 0xFF)));
  return largest;
}

/// Looks at one window, whose pages are selected by the caller.
class WindowLooks {
 public:
  WindowLooks(Driver& driver, HWND window, std::string where, LooksFound& found)
      : driver_(driver),
        window_(window),
        where_(std::move(where)),
        found_(found),
        dpi_(DpiOfWindow(window)),
        controls_(VisibleControls(window)) {}

  void Check() {
    found_.controls += static_cast<int>(controls_.size());
    found_.dpi = dpi_;
    for (const ControlState& control : controls_) {
      CheckPlace(control);
      CheckMeasures(control);
    }
    CheckBackgrounds();
  }

 private:
  std::string Where(const ControlState& control) const { return where_ + ", " + NameOf(control) + ": "; }

  /// What a control needs in addition to its text: a button its frame, a check box its mark.
  LONG BesideText(const ControlState& control) const {
    constexpr LONG_PTR kButtonType = 0xF;
    if (control.windowClass != L"Button") return 0;
    const bool isCheckBox = (GetWindowLongPtrW(control.window, GWL_STYLE) & kButtonType) == BS_AUTOCHECKBOX;
    return MulDiv(isCheckBox ? 16 : 8, dpi_, kStandardDpi);
  }

  /// A virus scanner may keep the driver from reading the product's fonts.
  void CheckMeasures(const ControlState& control) {
    Driver::Fields measured;
    try {
      measured = driver_.Ask("text_size", window_, control.id);
    } catch (const CheckError& error) {
      if (IsCancelled()) throw;
      found_.unmeasured.Add(Where(control) + error.what());
      return;
    }
    CheckText(control, measured);
    CheckFont(control, measured);
  }

  void CheckText(const ControlState& control, const Driver::Fields& size) {
    // The answer is cut off with an ellipsis when it is too long.
    const bool hasCaption =
        (control.windowClass == L"Static" && control.id != ID_lblAnswer) || control.windowClass == L"Button";
    const LONG width = hasCaption ? std::stol(size.at(0)) + BesideText(control) : 0;
    const LONG height = std::stol(size.at(1));
    const LONG hasWidth = control.box.right - control.box.left;
    const LONG hasHeight = control.box.bottom - control.box.top;
    if (hasWidth >= width && hasHeight >= height) return;
    found_.texts.Add(Where(control) + "needs " + std::to_string(width) + " x " + std::to_string(height) +
                     " pixels, has " + std::to_string(hasWidth) + " x " + std::to_string(hasHeight));
  }

  void CheckPlace(const ControlState& control) {
    const RECT client = ClientOnScreen(window_);
    const auto tabs = std::find_if(controls_.begin(), controls_.end(),
                                   [](const ControlState& each) { return each.id == ID_tabMode; });
    const RECT page = tabs == controls_.end() ? client : tabs->box;
    if (!IsInside(control.box, IsOnEveryPage(control.id) ? client : page))
      found_.places.Add(Where(control) + "is outside");
    for (const ControlState& other : controls_) {
      const bool onPage = (control.id == ID_tabMode && !IsOnEveryPage(other.id)) ||
                          (other.id == ID_tabMode && !IsOnEveryPage(control.id));
      if (other.id > control.id && !onPage && OverlapEachOther(control.box, other.box))
        found_.places.Add(Where(control) + "overlaps " + NameOf(other));
    }
  }

  void CheckFont(const ControlState& control, const Driver::Fields& measured) {
    std::vector<std::string> wanted = MessageFontAt(dpi_);
    // The result list has a fixed pitch where Windows has one of these.
    const std::string& face = measured.at(2);
    if (control.id == ID_lstResult && (face == "Consolas" || face == "MS Gothic")) wanted.front() = face;
    for (size_t i = 0; i < wanted.size(); ++i) {
      const std::string& font = measured.at(i + 2);
      if (font != wanted[i]) found_.fonts.Add(Where(control) + font + " instead of " + wanted[i]);
    }
  }

  void CheckBackgrounds() {
    constexpr int kFramePixels = 3;
    constexpr int kMaxDifference = 8;
    RECT outer{};
    GetWindowRect(window_, &outer);
    const Picture picture = CaptureWindow(window_);
    if (picture.pixels.empty()) {
      found_.unseen.Add(where_ + ": no picture");
      return;
    }
    std::vector<RECT> boxes;
    for (const ControlState& control : controls_) {
      RECT box = control.box;
      OffsetRect(&box, static_cast<int>(-outer.left), static_cast<int>(-outer.top));
      if (control.id != ID_tabMode) boxes.push_back(box);
    }
    for (const ControlState& control : controls_) {
      const bool isLabel = control.windowClass == L"Static";
      if (!isLabel) continue;
      RECT box = control.box;
      OffsetRect(&box, static_cast<int>(-outer.left), static_cast<int>(-outer.top));
      RECT around = box;
      InflateRect(&around, kFramePixels, kFramePixels);
      if (!control.text.empty() && HasOneColour(picture, box))
        found_.backgrounds.Add(Where(control) + "its text cannot be seen");
      const uint32_t behind = CommonColour(picture, box, {});
      const uint32_t beside = CommonColour(picture, around, boxes);
      if (ColourDifference(behind, beside) <= kMaxDifference) continue;
      found_.backgrounds.Add(Where(control) + "colour " + std::to_string(behind) + " on " +
                             std::to_string(beside));
    }
  }

  Driver& driver_;
  HWND window_;
  std::string where_;
  LooksFound& found_;
  int dpi_;
  std::vector<ControlState> controls_;
};

struct Language {
  const wchar_t* arguments;
  const char* suffix;  ///< of the items
  const char* name;
};
constexpr std::array kLanguages = {Language{L"-X 0 -LOCALEID 1033 -X", "_en", "English"},
                                   Language{L"-X 0 -LOCALEID 1041 -X", "_ja", "Japanese"}};

/// Moves the window to the monitor, as a user would; Windows reports the monitor's scaling to it.
void MoveTo(const Monitor& monitor, HWND window) {
  SetWindowPos(window, nullptr, static_cast<int>(monitor.workArea.left),
               static_cast<int>(monitor.workArea.top), 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CheckWorkArea(HWND window, const std::string& where, LooksFound& found) {
  MONITORINFO information{};
  information.cbSize = sizeof information;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &information);
  RECT outer{};
  // A window may still be on its way to its place.
  const bool inside = WaitUntil(kSettledMs, [&] {
    GetWindowRect(window, &outer);
    return IsInside(outer, information.rcWork);
  });
  if (inside) return;
  found.workArea.Add(where + ": " + std::to_string(outer.left) + "," + std::to_string(outer.top) + " to " +
                     std::to_string(outer.right) + "," + std::to_string(outer.bottom));
}

/// One language on one monitor, in the general edition, which has every page. `pictures`: adds a picture of
/// every page to the report.
void CheckLanguage(Kit& kit, const Language& language, const Monitor& monitor, bool pictures,
                   LooksFound& found) {
  Driver driver(kit);
  RunningProduct product(kit, driver, {.edition = Edition::General, .arguments = language.arguments});
  const HWND window = product.WaitForMainWindow();
  CheckWorkArea(window, "main window", found);
  MoveTo(monitor, window);
  const std::vector<std::string> captions = TabCaptions(product);
  for (size_t page = 0; page < captions.size(); ++page) {
    product.SelectPage(static_cast<int>(page));
    product.Ask("settle", kSettledMs);
    WindowLooks(driver, window, captions[page], found).Check();
    if (!pictures) continue;
    const std::string id = "looks.page_" + std::to_string(page + 1) + language.suffix;
    kit.report.Observe(id, "The page " + captions[page] + " in " + language.name, {});
    kit.report.Attach(id, EncodePng(CaptureWindow(window)));
  }
  const HWND pmc = OpenByCommand(product, driver, ID_mnuPMC, "frmPmcTest");
  CheckWorkArea(pmc, "PMC window", found);
  driver.Ask("settle", pmc, kSettledMs);
  WindowLooks(driver, pmc, "PMC window", found).Check();
  const HWND about = OpenByCommand(product, driver, ID_mnuHelpSub, "frmAbout");
  CheckWorkArea(about, "about box", found);
}

}  // namespace

void CheckLooks(Kit& kit) {
  const std::vector<Monitor> monitors = MonitorsOfThisPc();
  for (size_t number = 0; number < monitors.size(); ++number) {
    const std::string where = number == 0 ? "" : " on monitor " + std::to_string(number + 1);
    const std::string prefix = number == 0 ? "looks." : "looks.monitor_" + std::to_string(number + 1) + "_";
    for (const Language& language : kLanguages) {
      kit.progress(std::string("Every page in ") + language.name + where);
      LooksFound found;
      CheckLanguage(kit, language, monitors[number], number == 0, found);
      const std::string seen =
          std::to_string(found.controls) + " controls at " + std::to_string(found.dpi) + " dpi";
      const std::string in = std::string(" in ") + language.name + where;
      const auto expect = [&](const char* rule, const std::string& title, const Findings& findings) {
        kit.report.Expect(prefix + rule + language.suffix, title + in, findings.None(), findings.Or(seen));
      };
      // True when the rules on what is missing can be checked.
      const auto complete = [&](const char* id, const std::string& title, const Findings& missing) {
        if (!missing.None()) kit.report.Observe(prefix + id + language.suffix, title + in, missing.Or({}));
        return missing.None();
      };
      expect("places", "Nothing overlaps or is outside its page", found.places);
      if (complete("no_measurement", "Texts and fonts could not be measured", found.unmeasured)) {
        expect("texts", "Every text fits into its control", found.texts);
        expect("font", "Every control has the message font, or the list a fixed pitch", found.fonts);
      }
      if (complete("no_picture", "Windows gave no picture of the product", found.unseen))
        expect("background", "Every label can be read and has the background of its page", found.backgrounds);
      expect("work_area", "Every window opens inside the work area", found.workArea);
    }
  }
  kit.progress("Changes of the scaling");
  CheckOtherScalings(kit);
}

}  // namespace tarvik::check
