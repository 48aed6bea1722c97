#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "lab/host/leftovers.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

bool Offers(const std::vector<std::string>& tabs, const std::string& caption) {
  return std::find(tabs.begin(), tabs.end(), caption) != tabs.end();
}

/// "Version " and three of the four numbers in the version resource of the program's file: major, minor and
/// the last one.
std::string VersionInTheFile() {
  std::ifstream stream(ProgramPath(), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  std::string key;  // in UTF-16; the numbers come after it, with a signature of their own
  for (const char letter : std::string("VS_VERSION_INFO")) key.append({letter, '\0'});
  const size_t record = bytes.find("\xBD\x04\xEF\xFE", bytes.find(key));
  const auto number = [&](size_t offset) {
    const auto byte = [&](size_t at) { return static_cast<unsigned char>(bytes.at(record + at)); };
    return std::to_string(byte(offset) | byte(offset + 1) << 8);
  };
  return "Version " + number(10) + "." + number(8) + "." + number(12);
}

class AboutBox : public WindowsTest<AboutBox> {
 protected:
  WindowUnderTest Open(const WindowUnderTest& mainWindow) {
    // A user opens it from a window that has come to rest; until then the screen may still hand it the focus.
    mainWindow.Settle();
    mainWindow.InvokeCommand(ID_mnuHelpSub);
    return Program().WaitForWindow("frmAbout");
  }
};

TEST_F(AboutBox, Shows_the_programs_version_and_the_modules_that_were_found) {
  const WindowUnderTest box = Open(Start());
  EXPECT_EQ(box.Text(0), "Tarvik Version Information");
  EXPECT_EQ(box.Text(ID_lblTitle), "Tarvik");
  EXPECT_EQ(box.Text(ID_lblVersion), VersionInTheFile());
  EXPECT_EQ(box.Text(ID_lblOsVersion).rfind("Windows NT Running ", 0), 0U) << box.Text(ID_lblOsVersion);
  EXPECT_EQ(box.Text(ID_cmdSysInfo), "&System Info...");
  const std::string modules = box.Text(ID_lblModules);
  const std::string bench = WindowsPath(EnvironmentValue("TARVIK_BENCH"));
  for (const char* const name : {"NxLib32.dll", "NxLibe1.dll", "SvcKit.dll"}) {
    const std::string line = std::string(name) + " Ver.1.0.0.0 (" + bench + "\\" + name + ")";
    EXPECT_NE(modules.find(line), std::string::npos) << modules;
  }
  EXPECT_NE(modules.find("Wininet.dll Ver."), std::string::npos) << modules;
  EXPECT_EQ(modules.find("k7api"), std::string::npos) << modules;
}

TEST_F(AboutBox, Cuts_none_of_its_texts) {
  const WindowUnderTest box = Open(Start());
  const ScreenRect client = box.ClientRect(0);
  for (const WindowUnderTest::ControlInfo& control : box.Controls()) {
    EXPECT_GE(control.rect.left, client.left) << control.text;
    EXPECT_LE(control.rect.left + control.rect.width, client.left + client.width) << control.text;
    EXPECT_LE(control.rect.top + control.rect.height, client.top + client.height) << control.text;
  }
}

TEST_F(AboutBox, OK_Enter_Esc_and_the_close_button_close_it_and_the_program_stays) {
  const WindowUnderTest mainWindow = Start();
  const std::function<void(const WindowUnderTest&)> closes[] = {
      [](const WindowUnderTest& box) { box.Press("Enter"); },
      [](const WindowUnderTest& box) { box.Click(ID_cmdOK); },

      [](const WindowUnderTest& box) { box.Press("Esc"); }, [](const WindowUnderTest& box) { box.Close(); }};
  for (const auto& close : closes) {
    const WindowUnderTest box = Open(mainWindow);
    box.WaitForFocus(ID_cmdOK);
    close(box);
    box.WaitUntilGone();
    EXPECT_TRUE(Program().HasWindow("Form1"));
  }
}

TEST_F(AboutBox, Is_one_window_beside_the_main_window_which_stays_usable) {
  const WindowUnderTest mainWindow = Start();
  const WindowUnderTest box = Open(mainWindow);
  EXPECT_EQ(Open(mainWindow).Handle(), box.Handle());
  EXPECT_TRUE(mainWindow.Enabled(0));
  mainWindow.SelectTab(ID_tabMode, 2);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return mainWindow.Visible(ID_cmdFtpConnect); }));
  EXPECT_TRUE(Program().HasWindow("frmAbout"));
}

TEST_F(AboutBox, Closing_the_main_window_ends_the_program_with_it) {
  const WindowUnderTest mainWindow = Start();
  Open(mainWindow);
  mainWindow.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0U);
}

TEST_F(AboutBox, Stays_above_a_main_window_that_is_topmost) {
  const WindowUnderTest box = Open(Start("-X 1 -PING_N"));
  EXPECT_TRUE(box.Topmost());
}

TEST_F(AboutBox, Tells_when_there_is_no_system_information) {
  const WindowUnderTest box = Open(Start());
  box.Click(ID_cmdSysInfo);
  const BoxUnderTest message = Program().WaitForBox();
  EXPECT_EQ(message.text, "Cannot display the system information");
  // Under its message box it does not go away.
  box.Close();
  Program().Answer(message, BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return box.Enabled(0); }));
  EXPECT_TRUE(Program().HasWindow("frmAbout"));
}

TEST_F(AboutBox, Is_laid_out_anew_when_the_scaling_changes) {
  const WindowUnderTest box = Open(Start());
  const ScreenRect before = box.Rect(ID_lblModules);
  const ScreenRect outer = box.Rect(0);
  box.ChangeDpi(144, outer);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return box.Rect(ID_lblModules).height > before.height; }));
  EXPECT_GT(box.Rect(0).width, outer.width);
}

TEST_F(AboutBox, The_modules_that_are_there_keep_their_pages) {
  const WindowUnderTest window = Start();
  const std::vector<std::string> tabs = window.StateOfTabs(ID_tabMode).captions;
  EXPECT_TRUE(Offers(tabs, "NEXAL2(&2)"));
  EXPECT_TRUE(Offers(tabs, "Ftp(&5)"));
  EXPECT_TRUE(window.Visible(ID_cmdAllTest));
}

/// A PC that has the configuration library and none of the others.
class WithoutModules : public WindowsTest<WithoutModules> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    folder_ = std::make_unique<TempDirectory>(options.cacheFolder);
    const std::string from = options.programPath + "/ObryConfIO.dll";
    std::filesystem::copy_file(from, folder_->Path() + "/ObryConfIO.dll");
    options.programPath = folder_->Path();
    return options;
  }
  static void TearDownTestSuite() {
    WindowsTest::TearDownTestSuite();
    folder_.reset();
  }

 private:
  static inline std::unique_ptr<TempDirectory> folder_;
};

TEST_F(WithoutModules, The_CNC_page_and_the_ladder_are_not_offered) {
  const WindowUnderTest window = Start();
  const std::vector<std::string> tabs = window.StateOfTabs(ID_tabMode).captions;
  EXPECT_FALSE(Offers(tabs, "NEXAL2(&2)"));
  EXPECT_TRUE(Offers(tabs, "Ping(&1)"));
  EXPECT_TRUE(Offers(tabs, "Ftp(&5)"));
  EXPECT_FALSE(window.Visible(ID_cmdAllTest));
}

TEST_F(WithoutModules, The_about_box_shows_what_is_there) {
  const WindowUnderTest window = Start();
  window.InvokeCommand(ID_mnuHelpSub);
  const std::string modules = Program().WaitForWindow("frmAbout").Text(ID_lblModules);
  EXPECT_EQ(modules.rfind("Wininet.dll Ver.", 0), 0U) << modules;
}

class JapaneseAboutBox : public WindowsTest<JapaneseAboutBox> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.language = WindowsLanguage::Japanese;
    options.environment["TARVIK_BENCH_LANGUAGE"] = "1041";
    return options;
  }
};

TEST_F(JapaneseAboutBox, Has_its_button_in_Japanese) {
  const WindowUnderTest window = Start();
  window.InvokeCommand(ID_mnuHelpSub);
  EXPECT_EQ(Program().WaitForWindow("frmAbout").Text(ID_cmdSysInfo), "ｼｽﾃﾑ情報(&S)...");
}

}  // namespace
}  // namespace tarvik::lab
