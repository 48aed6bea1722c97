#include <algorithm>
#include <filesystem>
#include <functional>
#include <sstream>

#include "lab/pc/window_parts.h"
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
         id == ID_lstResult || id == ID_lblAnswer || id == ID_sbrRungs;
}

/// The visible controls of known classes, in Tab order.
std::vector<Control> VisibleControls(const WindowUnderTest& window) {
  std::vector<Control> controls;
  for (const Control& control : window.Controls()) {
    const bool known = control.windowClass == "Static" || control.windowClass == "Edit" ||
                       control.windowClass == "Button" || control.windowClass == "ComboBox" ||
                       control.windowClass == "ListBox" || control.windowClass == "SysTabControl32" ||
                       control.windowClass == "msctls_statusbar32";
    if (control.visible && known && control.id > 0) controls.push_back(control);
  }
  return controls;
}

/// The size of the control's text, also on several lines.
WindowUnderTest::TextSize SizeOfText(const WindowUnderTest& window, const Control& control) {
  WindowUnderTest::TextSize size = window.NeededFor(control.id);
  if (control.windowClass != "Static" || control.text.find('\n') == std::string::npos) return size;
  std::istringstream lines(control.text);
  int count = 0;
  size.width = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    if (line.ends_with('\r')) line.pop_back();
    size.width = std::max(size.width, window.WidthOfLine(control.id, line, 1));
  }
  size.height *= count;
  return size;
}

/// The minimum width in which a control shows its whole caption.
int MinWidth(const WindowUnderTest& window, const Control& control, int text, int dpi) {
  constexpr uint32_t kButtonType = 0xF;
  constexpr uint32_t kAutoCheckBox = 3;
  if (control.windowClass != "Static" && control.windowClass != "Button") return 0;
  if (control.windowClass == "Static") return text;
  const int besideText = (window.Style(control.id) & kButtonType) == kAutoCheckBox ? 16 : 8;
  return text + besideText * dpi / 96;
}

/// No text is cut off, nothing overlaps and nothing is outside.
void ExpectWholePage(const WindowUnderTest& window, int dpi) {
  const ScreenRect client = window.ClientRect(0);
  const std::vector<Control> controls = VisibleControls(window);
  const auto tabs = std::find_if(controls.begin(), controls.end(),
                                 [](const Control& control) { return control.id == ID_tabMode; });
  const ScreenRect strip = tabs == controls.end() ? client : tabs->rect;
  EXPECT_GE(controls.size(), 2u);
  for (const Control& control : controls) {
    SCOPED_TRACE(control.text + " (" + std::to_string(control.id) + ")");
    EXPECT_TRUE(Inside(control.rect, OnEveryPage(control.id) ? client : strip));
    const WindowUnderTest::TextSize text = SizeOfText(window, control);
    EXPECT_GE(control.rect.width, MinWidth(window, control, text.width, dpi));
    EXPECT_GE(control.rect.height, text.height);
    for (const Control& other : controls) {
      const bool onStrip = (control.id == ID_tabMode && !OnEveryPage(other.id)) ||
                           (other.id == ID_tabMode && !OnEveryPage(control.id));
      if (other.id == control.id || onStrip) continue;
      EXPECT_FALSE(Overlap(control.rect, other.rect)) << other.text << " (" << other.id << ")";
    }
  }
}

/// Every field of the status bar is inside it, left of the sizing grip, and has room for its longest text.
void ExpectWholeStatusBar(const WindowUnderTest& window, int dpi) {
  const ScreenRect bar = window.Rect(ID_sbrRungs);
  for (const auto& [text, rect] : window.StatusFields(ID_sbrRungs)) {
    SCOPED_TRACE(text);
    EXPECT_LE(rect.left + rect.width, bar.width - 12 * dpi / 96);
    EXPECT_LE(rect.top + rect.height, bar.height);
    const std::string name = text.substr(0, text.find(' '));
    for (const char* const mark : {" FAIL", " ×"})
      EXPECT_GE(rect.width, window.WidthOfLine(ID_sbrRungs, name + mark, 1) + 6 * dpi / 96);
    EXPECT_GE(rect.height, window.NeededFor(ID_lblResult).height);
  }
}

/// The longest sentences have room next to "Result:".
void ExpectRoomForSentences(const WindowUnderTest& window, bool japanese) {
  const std::vector<std::string> sentences =
      japanese ? std::vector<std::string>{"NEXAL2の接続が即座に失敗。TCPポート、他プログラムを確認。",
                                          "このアドレスの機器がない。アドレス、ケーブル、電源を確認。",
                                          "ルーターから相手に不達。ケーブル、ファイアウォールを確認。"}
               : std::vector<std::string>{"A router has no way there: check the address, then routes.",
                                          "CNC lacks an option: order Extended drivers and libraries.",
                                          "Packets go in a circle: have the routers' routes corrected."};
  for (const std::string& sentence : sentences)
    EXPECT_GE(window.Rect(ID_lblAnswer).width, window.WidthOfLine(ID_lblAnswer, sentence, 1)) << sentence;
}

/// A window besides the main one.
void ExpectWholeDialog(const WindowUnderTest& window, int dpi) {
  SCOPED_TRACE(window.Text(0));
  EXPECT_TRUE(Inside(window.Rect(0), kScreen));
  ExpectWholePage(window, dpi);
}

void ExpectWholeWindow(const WindowUnderTest& window, int dpi) {
  ExpectWholeStatusBar(window, dpi);
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

/// The program under test, and in the 32-bit run the general edition with its K7 pages.
std::vector<std::string> Editions() {
  std::vector<std::string> editions = {ProgramPath()};
  const bool is32Bit = std::filesystem::path(ProgramPath()).parent_path().filename() == "x86";
  if (is32Bit && std::filesystem::exists(GeneralProgramPath())) editions.push_back(GeneralProgramPath());
  return editions;
}

/// The PMC window, with enough lines of data for a scroll bar.
void ExpectWholePmcWindow(const WindowUnderTest& window, int dpi) {
  constexpr int kTabStop = 44;
  constexpr char kWidestLine[] = "0000\tFF";
  SCOPED_TRACE("PMC window");
  ExpectWholeDialog(window, dpi);
  const int widthBefore = window.ClientRect(ID_lstData).width;
  window.AddLines(ID_lstData, 40, kWidestLine);
  const int width = window.ClientRect(ID_lstData).width;
  EXPECT_LT(width, widthBefore) << "the scroll bar is missing";
  // Plus a list's margin. Without it a list that measures the wrong text could pass here, because Wine's
  // fonts differ from those of Windows.
  const int room = 8 * dpi / 96;
  EXPECT_GE(width, window.WidthOfLine(ID_lstData, kWidestLine, kTabStop) + room);
}

/// Both languages, on an English and a Japanese PC, at one scaling.
void ExpectWholeAt(int dpi) {
  if (const auto reason = WindowsUnsupportedReason()) GTEST_SKIP() << *reason;
  for (const WindowsLanguage language : {WindowsLanguage::English, WindowsLanguage::Japanese}) {
    WindowsPc::Options options = PcForTests();
    options.language = language;
    options.dpi = dpi;
    // On one of the two: with a theme, these tests of the 32-bit program take twice the processor time.
    options.themed = language == WindowsLanguage::Japanese;
    WindowsPc pc(options);
    for (const char* locale : {"1033", "1041"}) {
      SCOPED_TRACE(locale);
      for (const std::string& path : Editions()) {
        SCOPED_TRACE(path);
        ProgramUnderTest program(pc, path, std::string("-X 0 -LOCALEID ") + locale + " -X");
        const WindowUnderTest window = WaitForMainWindow(program);
        ExpectWholeWindow(window, dpi);
        ExpectRoomForSentences(window, locale == std::string("1041"));
        window.InvokeCommand(ID_mnuHelpSub);
        ExpectWholeDialog(program.WaitForWindow(kAboutBoxClass), dpi);
        window.InvokeCommand(ID_mnuPMC);
        ExpectWholePmcWindow(program.WaitForWindow("frmPmcTest"), dpi);
      }
    }
  }
}

TEST(ScalingOf100Percent, All_texts_are_completely_visible_in_both_languages) { ExpectWholeAt(96); }
TEST(ScalingOf125Percent, All_texts_are_completely_visible_in_both_languages) { ExpectWholeAt(120); }
TEST(ScalingOf150Percent, All_texts_are_completely_visible_in_both_languages) { ExpectWholeAt(144); }
TEST(ScalingOf200Percent, All_texts_are_completely_visible_in_both_languages) { ExpectWholeAt(192); }

class AnotherMonitor : public WindowsTest<AnotherMonitor> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.themed = true;
    return options;
  }

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

TEST_F(AnotherMonitor, With_another_scaling_and_back_restores_the_layout) {
  const WindowUnderTest window = Start();
  const ScreenRect first = window.Rect(0);
  const std::vector<ScreenRect> places = Places(window);
  const int lineHeight = window.NeededFor(ID_lblResult).height;
  window.ChangeDpi(144, {first.left, first.top, first.width * 3 / 2, first.height * 3 / 2});
  // The last controls that follow are the labels' fonts and the fields of the status bar.
  EXPECT_TRUE(WaitUntil(kSoon, [&] {
    const int newHeight = window.NeededFor(ID_lblResult).height;
    return newHeight > lineHeight && window.StatusFields(ID_sbrRungs).front().rect.height >= newHeight;
  }));
  window.Settle();
  EXPECT_GT(window.Rect(0).width, first.width * 5 / 4);
  ExpectWholeWindow(window, 144);
  window.SelectTab(ID_tabMode, 0);
  window.ChangeDpi(96, first);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return Same(Places(window), places); }));
}

TEST_F(AnotherMonitor, A_layout_that_the_dialog_manager_has_changed_is_restored) {
  const WindowUnderTest window = Start();
  window.Settle();
  const ScreenRect first = window.Rect(0);
  const std::vector<ScreenRect> places = Places(window);
  const int width = window.NeededFor(ID_cmdAllTest).width;
  for (const int id : {ID_cmdPing, ID_cmdAllTest, ID_txtPingReqCount}) window.Disarrange(id);
  window.Settle();
  EXPECT_FALSE(Same(Places(window), places));
  EXPECT_NE(window.NeededFor(ID_cmdAllTest).width, width);
  window.ChangeDpi(96, first);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return Same(Places(window), places); }));
  EXPECT_EQ(window.NeededFor(ID_cmdAllTest).width, width);
}

/// The layout before and after something changed while the window was minimised.
class WhileMinimised : public AnotherMonitor {
 protected:
  static void Change(const WindowUnderTest& window, const std::function<void()>& change) {
    window.Minimise();
    ASSERT_TRUE(WaitUntil(kSoon, [&] { return window.Minimised(); }));
    change();
    window.Restore();
    window.Settle();
  }
  static void ExpectPlaces(const WindowUnderTest& window, const std::vector<ScreenRect>& expected) {
    if (WaitUntil(kSoon, [&] { return Same(Places(window), expected); })) return;
    const std::vector<ScreenRect> places = Places(window);
    ASSERT_EQ(places.size(), expected.size());
    const auto text = [](const ScreenRect& rect) {
      return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " + std::to_string(rect.width) +
             "x" + std::to_string(rect.height);
    };
    for (size_t i = 0; i < places.size(); ++i) EXPECT_EQ(text(places[i]), text(expected[i])) << i;
  }
  static void ExpectLayoutKept(const WindowUnderTest& window) {
    const std::vector<ScreenRect> places = Places(window);
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
    window.Settle();
    const std::vector<ScreenRect> places = Places(window);
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

TEST_F(WhileMinimised, A_change_of_theme_and_colours_keeps_the_layout_of_the_main_window) {
  ExpectLayoutKept(MainWindow());
}

TEST_F(WhileMinimised, A_change_of_theme_and_colours_keeps_the_layout_of_the_PMC_window) {
  ExpectLayoutKept(PmcWindow());
}

TEST_F(WhileMinimised, A_change_of_scaling_is_applied_when_the_main_window_is_restored) {
  ExpectLaidOutFor150Percent(MainWindow());
}

TEST_F(WhileMinimised, A_change_of_scaling_is_applied_when_the_PMC_window_is_restored) {
  ExpectLaidOutFor150Percent(PmcWindow());
}

}  // namespace
}  // namespace tarvik::lab
