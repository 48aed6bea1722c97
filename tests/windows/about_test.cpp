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

/// "Version " and the major, minor and build number from the version resource of the program's file.
std::string VersionInTheFile() {
  std::ifstream stream(ProgramPath(), std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  std::string key;  // in UTF-16; the signature of the numbers follows
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
    mainWindow.InvokeCommand(ID_mnuHelpSub);
    return Program().WaitForWindow("frmAbout");
  }
};

TEST_F(AboutBox, Shows_the_version_of_the_program_and_of_every_module_found) {
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

TEST_F(AboutBox, Shows_all_its_texts_completely) {
  const WindowUnderTest box = Open(Start());
  const ScreenRect client = box.ClientRect(0);
  for (const WindowUnderTest::ControlInfo& control : box.Controls()) {
    EXPECT_GE(control.rect.left, client.left) << control.text;
    EXPECT_LE(control.rect.left + control.rect.width, client.left + client.width) << control.text;
    EXPECT_LE(control.rect.top + control.rect.height, client.top + client.height) << control.text;
  }
}

TEST_F(AboutBox, OK_Enter_Esc_and_the_close_button_close_only_the_box) {
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

TEST_F(AboutBox, Opens_once_and_leaves_the_main_window_usable) {
  const WindowUnderTest mainWindow = Start();
  const WindowUnderTest box = Open(mainWindow);
  EXPECT_EQ(Open(mainWindow).Handle(), box.Handle());
  EXPECT_TRUE(mainWindow.Enabled(0));
  mainWindow.SelectTab(ID_tabMode, 2);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return mainWindow.Visible(ID_cmdFtpConnect); }));
  EXPECT_TRUE(Program().HasWindow("frmAbout"));
}

TEST_F(AboutBox, Closing_the_main_window_ends_the_program_in_spite_of_an_open_box) {
  const WindowUnderTest mainWindow = Start();
  Open(mainWindow);
  mainWindow.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0U);
}

TEST_F(AboutBox, Is_topmost_when_the_main_window_is) {
  const WindowUnderTest box = Open(Start("-X 1 -PING_N"));
  EXPECT_TRUE(box.Topmost());
}

TEST_F(AboutBox, Missing_system_information_is_reported) {
  const WindowUnderTest box = Open(Start());
  box.Click(ID_cmdSysInfo);
  const BoxUnderTest message = Program().WaitForBox();
  EXPECT_EQ(message.text, "Cannot display the system information");
  // It does not close while its message box is open.
  box.Close();
  Program().Answer(message, BoxButton::Ok);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return box.Enabled(0); }));
  EXPECT_TRUE(Program().HasWindow("frmAbout"));
}

TEST_F(AboutBox, Is_laid_out_again_when_the_scaling_changes) {
  const WindowUnderTest box = Open(Start());
  const ScreenRect before = box.Rect(ID_lblModules);
  const ScreenRect outer = box.Rect(0);
  box.ChangeDpi(144, outer);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return box.Rect(ID_lblModules).height > before.height; }));
  EXPECT_GT(box.Rect(0).width, outer.width);
}

TEST_F(AboutBox, Pages_of_installed_libraries_are_visible) {
  const WindowUnderTest window = Start();
  const std::vector<std::string> tabs = window.StateOfTabs(ID_tabMode).captions;
  EXPECT_TRUE(Offers(tabs, "NEXAL2(&2)"));
  EXPECT_TRUE(Offers(tabs, "Ftp(&5)"));
  EXPECT_TRUE(window.Visible(ID_cmdAllTest));
}

/// A 64-bit Windows whose registry names the tool for 64-bit programs only.
class SystemInformationTool : public WindowsTest<SystemInformationTool> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    folder_ = std::make_unique<TempDirectory>(options.cacheFolder);
    options.environment["TARVIK_LAB_STARTS"] = WindowsPath(folder_->Path() + "/starts");
    return options;
  }
  static void PreparePc(WindowsPc& pc) {
    std::string value = "\"";
    for (const char character :
         WindowsPath(std::filesystem::path(ProgramPath()).parent_path() / "start_recorder.exe"))
      value.append(character == '\\' ? 2 : 1, character);
    pc.Prefix().SetRegistryValue(WinePrefix::Hive::System, "Software\\Microsoft\\Shared Tools\\MSINFO",
                                 "PATH", value + "\"");
  }
  static void TearDownTestSuite() {
    WindowsTest::TearDownTestSuite();
    folder_.reset();
  }

 protected:
  static std::string StartsFile() { return folder_->Path() + "/starts"; }

 private:
  static inline std::unique_ptr<TempDirectory> folder_;
};

TEST_F(SystemInformationTool, Is_found_in_the_registry_of_64_bit_programs) {
  const WindowUnderTest window = Start();
  window.InvokeCommand(ID_mnuHelpSub);
  Program().WaitForWindow("frmAbout").Click(ID_cmdSysInfo);
  EXPECT_TRUE(WaitUntil(kSoon, [] { return LinesOfFile(StartsFile()).size() == 1; }));
  EXPECT_FALSE(Program().HasBox());
}

/// A PC with no closed library but the configuration library.
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

TEST_F(WithoutModules, The_CNC_page_and_the_ladder_are_hidden) {
  const WindowUnderTest window = Start();
  const std::vector<std::string> tabs = window.StateOfTabs(ID_tabMode).captions;
  EXPECT_FALSE(Offers(tabs, "NEXAL2(&2)"));
  EXPECT_TRUE(Offers(tabs, "Ping(&1)"));
  EXPECT_TRUE(Offers(tabs, "Ftp(&5)"));
  EXPECT_FALSE(window.Visible(ID_cmdAllTest));
}

TEST_F(WithoutModules, The_about_box_shows_the_libraries_of_Windows) {
  const WindowUnderTest window = Start();
  window.InvokeCommand(ID_mnuHelpSub);
  const std::string modules = Program().WaitForWindow("frmAbout").Text(ID_lblModules);
  EXPECT_EQ(modules.rfind("Wininet.dll Ver.", 0), 0U) << modules;
}

class JapaneseAboutBox : public WindowsTest<JapaneseAboutBox> {
 public:
  static WindowsPc::Options Options() { return JapanesePcForTests(); }
};

TEST_F(JapaneseAboutBox, Has_a_Japanese_button) {
  const WindowUnderTest window = Start();
  window.InvokeCommand(ID_mnuHelpSub);
  EXPECT_EQ(Program().WaitForWindow("frmAbout").Text(ID_cmdSysInfo), "ｼｽﾃﾑ情報(&S)...");
}

}  // namespace
}  // namespace tarvik::lab
