#include <algorithm>
#include <filesystem>
#include <functional>

#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

using Control = WindowUnderTest::ControlInfo;

constexpr ScreenRect kScreen = {0, 0, 1280, 1024};

bool Inside(const ScreenRect& inner, const ScreenRect& outer) {
  return inner.left >= outer.left && inner.top >= outer.top &&
         inner.left + inner.width <= outer.left + outer.width &&
         inner.top + inner.height <= outer.top + outer.height;
}

bool Overlap(const ScreenRect& a, const ScreenRect& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

bool OnEveryPage(int id) {
  return id == ID_lblIPAddr || id == ID_cmbIPAddr || id == ID_tabMode || id == ID_lblResult ||
         id == ID_lstResult;
}

/// The visible controls that a user sees as such, in the order of the Tab key.
std::vector<Control> VisibleControls(const WindowUnderTest& window) {
  std::vector<Control> controls;
  for (const Control& control : window.Controls()) {
    const bool known = control.windowClass == "Static" || control.windowClass == "Edit" ||
                       control.windowClass == "Button" || control.windowClass == "ComboBox" ||
                       control.windowClass == "ListBox" || control.windowClass == "SysTabControl32";
    if (control.visible && known && control.id > 0) controls.push_back(control);
  }
  return controls;
}

/// The least width in which a control shows its caption whole.
int LeastWidth(const WindowUnderTest& window, const Control& control, int text, int dpi) {
  constexpr uint32_t kButtonType = 0xF;
  constexpr uint32_t kAutoCheckBox = 3;
  if (control.windowClass != "Static" && control.windowClass != "Button") return 0;
  if (control.windowClass == "Static") return text;
  const int besideText = (window.Style(control.id) & kButtonType) == kAutoCheckBox ? 16 : 8;
  return text + besideText * dpi / 96;
}

void ExpectWholePage(const WindowUnderTest& window, int dpi) {
  const ScreenRect client = window.ClientRect(0);
  const std::vector<Control> controls = VisibleControls(window);
  const auto tabs = std::find_if(controls.begin(), controls.end(),
                                 [](const Control& control) { return control.id == ID_tabMode; });
  const ScreenRect strip = tabs == controls.end() ? client : tabs->rect;
  EXPECT_GE(controls.size(), 8u);
  for (const Control& control : controls) {
    SCOPED_TRACE(control.text + " (" + std::to_string(control.id) + ")");
    EXPECT_TRUE(Inside(control.rect, OnEveryPage(control.id) ? client : strip));
    const WindowUnderTest::TextSize text = window.NeededFor(control.id);
    EXPECT_GE(control.rect.width, LeastWidth(window, control, text.width, dpi));
    EXPECT_GE(control.rect.height, text.height);
    for (const Control& other : controls) {
      const bool onStrip = (control.id == ID_tabMode && !OnEveryPage(other.id)) ||
                           (other.id == ID_tabMode && !OnEveryPage(control.id));
      if (other.id == control.id || onStrip) continue;
      EXPECT_FALSE(Overlap(control.rect, other.rect)) << other.text << " (" << other.id << ")";
    }
  }
}

void ExpectWholeWindow(const WindowUnderTest& window, int dpi) {
  EXPECT_TRUE(Inside(window.Rect(0), kScreen));
  const auto pages = static_cast<int>(window.StateOfTabs(ID_tabMode).captions.size());
  EXPECT_GE(pages, 3);
  const ScreenRect last = window.RectOfTab(ID_tabMode, pages - 1);
  EXPECT_LE(last.left + last.width, window.Rect(ID_tabMode).width);
  for (int page = 0; page < pages; ++page) {
    SCOPED_TRACE("page " + std::to_string(page));
    window.SelectTab(ID_tabMode, page);
    ExpectWholePage(window, dpi);
  }
}

/// The program under test, and the general edition with its K7 pages, which is a 32-bit one.
std::vector<std::string> Editions() {
  std::vector<std::string> editions = {ProgramPath()};
  const bool is32Bit = std::filesystem::path(ProgramPath()).parent_path().filename() == "x86";
  if (is32Bit && std::filesystem::exists(GeneralProgramPath())) editions.push_back(GeneralProgramPath());
  return editions;
}

/// The PMC window, with so many lines of data that their list has a scroll bar.
void ExpectWholePmcWindow(const WindowUnderTest& window, int dpi) {
  constexpr int kTabStop = 44;
  constexpr char kWidestLine[] = "0000\tFF";
  SCOPED_TRACE("PMC window");
  EXPECT_TRUE(Inside(window.Rect(0), kScreen));
  ExpectWholePage(window, dpi);
  const int widthBefore = window.ClientRect(ID_lstData).width;
  window.AddLines(ID_lstData, 100, kWidestLine);
  const int width = window.ClientRect(ID_lstData).width;
  EXPECT_LT(width, widthBefore) << "there is no scroll bar";
  // The room that every list has beside its text. The fonts of Windows differ from those here, so a list that
  // measures another text than its own is seen by lacking it.
  const int room = 8 * dpi / 96;
  EXPECT_GE(width, window.WidthOfLine(ID_lstData, kWidestLine, kTabStop) + room);
}

/// Both languages, on an English and on a Japanese PC, at one scaling.
void ExpectWholeAt(int dpi) {
  if (const auto reason = WindowsUnsupportedReason()) GTEST_SKIP() << *reason;
  for (const WindowsLanguage language : {WindowsLanguage::English, WindowsLanguage::Japanese}) {
    WindowsPc::Options options = PcForTests();
    options.language = language;
    options.dpi = dpi;
    WindowsPc pc(options);
    for (const char* locale : {"1033", "1041"}) {
      SCOPED_TRACE(locale);
      for (const std::string& path : Editions()) {
        SCOPED_TRACE(path);
        ProgramUnderTest program(pc, path, std::string("-X 0 -LOCALEID ") + locale + " -X");
        const WindowUnderTest window = WaitForMainWindow(program);
        ExpectWholeWindow(window, dpi);
        window.InvokeCommand(ID_mnuPMC);
        ExpectWholePmcWindow(program.WaitForWindow("frmPmcTest"), dpi);
      }
    }
  }
}

TEST(ScalingOf100Percent, Everything_is_shown_whole_in_both_languages) { ExpectWholeAt(96); }
TEST(ScalingOf125Percent, Everything_is_shown_whole_in_both_languages) { ExpectWholeAt(120); }
TEST(ScalingOf150Percent, Everything_is_shown_whole_in_both_languages) { ExpectWholeAt(144); }
TEST(ScalingOf200Percent, Everything_is_shown_whole_in_both_languages) { ExpectWholeAt(192); }

class AnotherMonitor : public WindowsTest<AnotherMonitor> {
 protected:
  static std::vector<ScreenRect> Places(const WindowUnderTest& window) {
    const ScreenRect outer = window.Rect(0);
    std::vector<ScreenRect> places = {{0, 0, outer.width, outer.height}};
    for (const Control& control : window.Controls()) {
      const ScreenRect& rect = control.rect;
      places.push_back({rect.left - outer.left, rect.top - outer.top, rect.width, rect.height});
    }
    return places;
  }
  static bool Same(const std::vector<ScreenRect>& a, const std::vector<ScreenRect>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const ScreenRect& x, const ScreenRect& y) {
      return x.left == y.left && x.top == y.top && x.width == y.width && x.height == y.height;
    });
  }
};

TEST_F(AnotherMonitor, Of_another_scaling_and_back_again_restores_the_layout) {
  const WindowUnderTest window = Start();
  // The screen places a new window once more when it has come; that has to be over.
  window.Settle();
  const ScreenRect first = window.Rect(0);
  const std::vector<ScreenRect> places = Places(window);
  window.ChangeDpi(144, {first.left, first.top, first.width * 3 / 2, first.height * 3 / 2});
  window.Settle();
  EXPECT_GT(window.Rect(0).width, first.width * 5 / 4);
  ExpectWholeWindow(window, 144);
  window.SelectTab(ID_tabMode, 0);
  window.ChangeDpi(96, first);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return Same(Places(window), places); }));
}

/// The layout before and after something changed while the window was minimised.
class WhileMinimised : public AnotherMonitor {
 protected:
  /// The client area's size, and the controls measured from the first of them. Wine reports the frame's width
  /// differently while its window manager takes the window over.
  static std::vector<ScreenRect> Places(const WindowUnderTest& window) {
    const ScreenRect client = window.ClientRect(0);
    const std::vector<Control> controls = window.Controls();
    std::vector<ScreenRect> places = {{0, 0, client.width, client.height}};
    for (const Control& control : controls) {
      const ScreenRect& rect = control.rect;
      const ScreenRect& origin = controls.front().rect;
      places.push_back({rect.left - origin.left, rect.top - origin.top, rect.width, rect.height});
    }
    return places;
  }
  static void Change(const WindowUnderTest& window, const std::function<void()>& change) {
    window.Minimise();
    ASSERT_TRUE(WaitUntil(kSoon, [&] { return window.Minimised(); }));
    change();
    window.Restore();
  }
  /// The places once they stay as they are: the window manager places a new window again after it has come
  /// up.
  static std::vector<ScreenRect> SettledPlaces(const WindowUnderTest& window) {
    std::vector<ScreenRect> places = Places(window);
    int unchanged = 0;
    EXPECT_TRUE(WaitUntil(kSoon, [&] {
      window.Settle();
      const std::vector<ScreenRect> now = Places(window);
      unchanged = Same(now, places) ? unchanged + 1 : 0;
      places = now;
      return unchanged == 10;
    }));
    return places;
  }
  static void ExpectPlaces(const WindowUnderTest& window, const std::vector<ScreenRect>& expected) {
    const auto isThere = [&] {
      // A window manager that is late minimises the window again after it was restored.
      if (window.Minimised()) window.Restore();
      return Same(Places(window), expected);
    };
    if (WaitUntil(kSoon, isThere)) return;
    const std::vector<ScreenRect> places = Places(window);
    ASSERT_EQ(places.size(), expected.size());
    const auto text = [](const ScreenRect& rect) {
      return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " + std::to_string(rect.width) +
             "x" + std::to_string(rect.height);
    };
    for (size_t i = 0; i < places.size(); ++i) EXPECT_EQ(text(places[i]), text(expected[i])) << i;
  }
  static void ExpectLayoutKept(const WindowUnderTest& window) {
    const std::vector<ScreenRect> places = SettledPlaces(window);
    const auto change = [&] {
      window.ChangeTheme();
      window.ChangeColours();
    };
    change();
    ExpectPlaces(window, places);
    Change(window, change);
    ExpectPlaces(window, places);
  }
  static void ExpectLaidOutFor150Percent(const WindowUnderTest& window) {
    window.Settle();
    const ScreenRect first = window.Rect(0);
    const ScreenRect larger{first.left, first.top, first.width * 3 / 2, first.height * 3 / 2};
    window.ChangeDpi(144, larger);
    const std::vector<ScreenRect> places = SettledPlaces(window);
    window.ChangeDpi(96, first);
    window.Settle();
    Change(window, [&] { window.ChangeDpi(144, larger); });
    ExpectPlaces(window, places);
  }
  /// Pages other than the front one are created after the window appears.
  WindowUnderTest MainWindow() {
    const WindowUnderTest window = Start();
    const auto isComplete = [&window] {
      const std::vector<Control> controls = window.Controls();
      return std::any_of(controls.begin(), controls.end(),
                         [](const Control& control) { return control.id == ID_cmdAllFtpTest; });
    };
    EXPECT_TRUE(WaitUntil(kSoon, isComplete));
    return window;
  }
  WindowUnderTest PmcWindow() {
    Start().InvokeCommand(ID_mnuPMC);
    return Program().WaitForWindow("frmPmcTest");
  }
};

TEST_F(WhileMinimised, Another_theme_and_other_colours_leave_the_main_window_laid_out_as_it_was) {
  ExpectLayoutKept(MainWindow());
}

TEST_F(WhileMinimised, Another_theme_and_other_colours_leave_the_PMC_window_laid_out_as_it_was) {
  ExpectLayoutKept(PmcWindow());
}

TEST_F(WhileMinimised, Another_scaling_lays_the_main_window_out_when_it_is_restored) {
  ExpectLaidOutFor150Percent(MainWindow());
}

TEST_F(WhileMinimised, Another_scaling_lays_the_PMC_window_out_when_it_is_restored) {
  ExpectLaidOutFor150Percent(PmcWindow());
}

}  // namespace
}  // namespace tarvik::lab
