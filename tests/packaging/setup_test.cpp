// The setup program for one user: installing, upgrading, a running copy, removing.

#include <fstream>

#include "resources/version.h"
#include "tests/packaging/setup_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kQuietly[] = "/S /CURRENTUSER";
constexpr char kHistoryKey[] = "Software\\NORVAX_FN_PingUtil\\History";

/// The PC's own address, in a network without other hosts.
constexpr char kOwnAddress[] = "192.168.7.1";

class Setup : public SetupTest<Setup> {
 public:
  static void PreparePc(WindowsPc&) {
    RunOrThrow({"ip", "link", "add", "net0", "type", "bridge"});
    RunOrThrow({"ip", "address", "add", std::string(kOwnAddress) + "/24", "dev", "net0"});
    RunOrThrow({"ip", "link", "set", "net0", "up"});
  }
  static void TearDownTestSuite() {
    SetupTest::TearDownTestSuite();
    lab::Run({"ip", "link", "delete", "net0"});  // the next suite's PC has no network
  }
};

TEST_F(Setup, Installs_for_the_user_without_a_question) {
  ProgramUnderTest setup(Pc(), SetupProgram(), "/CURRENTUSER");
  const WindowUnderTest window = setup.WaitForWindow("#32770", kSetupTimeOut);
  EXPECT_EQ(window.Text(0), "Tarvik Setup ");
  constexpr int kButton = 1;
  constexpr int kSubtitle = 1038;
  window.WaitForText(kSubtitle, "Tarvik is in the Start menu.", kSetupTimeOut);
  EXPECT_EQ(window.Text(kButton), "&Close");
  window.Click(kButton);
  EXPECT_EQ(setup.WaitForEnd(), 0u);

  EXPECT_EQ(Pc().RegistryText(kEntry, "DisplayVersion"), TARVIK_VERSION_TEXT);
  EXPECT_EQ(Pc().RegistryText(kEntry, "InstallLocation"), WindowsPath(ForUser()));
  EXPECT_EQ(Pc().RegistryText(kEntry, "UninstallString"),
            "\"" + WindowsPath(ForUser()) + "\\uninstall.exe\"");
  EXPECT_TRUE(fs::exists(UsersShortcut()));
  EXPECT_FALSE(fs::exists(ForEverybody()));
  EXPECT_FALSE(fs::exists(EverybodysShortcut()));
  EXPECT_EQ(FilesIn(UserFolder() + "/Desktop"), std::set<std::string>());
  Signer().Verify(ForUser() + "/Tarvik.exe");
  Signer().Verify(ForUser() + "/uninstall.exe");
  const WindowUnderTest program = StartInstalled(ForUser());
  EXPECT_EQ(program.Text(0), "Tarvik - Ethernet diagnosis for Obry");
}

TEST_F(Setup, Upgrades_an_older_version_where_it_is) {
  const std::string folder = DriveC() + "/Tools/Tarvik";
  ASSERT_EQ(RunSetup(std::string(kQuietly) + " /D=" + WindowsPath(folder)), 0u);
  Pc().SetRegistryText(kEntry, "DisplayVersion", "0.1.0.0");
  const std::string program = BytesOfFile(folder + "/Tarvik.exe");
  fs::remove(folder + "/Tarvik.exe");
  std::ofstream(folder + "/Tarvik.exe") << "an older program";

  EXPECT_EQ(RunSetup(kQuietly), 0u);
  EXPECT_EQ(Pc().RegistryText(kEntry, "DisplayVersion"), TARVIK_VERSION_TEXT);
  EXPECT_TRUE(BytesOfFile(folder + "/Tarvik.exe") == program);
  EXPECT_FALSE(fs::exists(ForUser()));
  Uninstall(folder);
}

TEST_F(Setup, Closes_a_running_copy) {
  ASSERT_EQ(RunSetup(kQuietly), 0u);
  Pc().DeleteRegistryKey(kHistoryKey);
  const WindowUnderTest window = StartInstalled(ForUser());
  window.SetText(ID_cmbIPAddr, kOwnAddress);
  ClickAndFollow(Program(), window, ID_cmdPing, kSetupTimeOut);
  EXPECT_EQ(RunSetup(kQuietly), 0u);
  EXPECT_EQ(Program().WaitForEnd(), 0u);
  // Saved by the program as it closed.
  EXPECT_EQ(Pc().RegistryText(kHistoryKey, "01"), kOwnAddress);
}

TEST_F(Setup, Leaves_a_copy_from_another_folder_alone) {
  ASSERT_EQ(RunSetup(kQuietly), 0u);
  const ProgramCopy portable(ProgramCopy::LanguageFiles::Beside);
  const WindowUnderTest window = StartInstalled(portable.Folder());
  EXPECT_EQ(RunSetup(kQuietly), 0u);
  window.Settle();
  Program().RequireRunning();
}

TEST_F(Setup, Does_not_end_a_running_test_but_says_so) {
  ASSERT_EQ(RunSetup(kQuietly), 0u);
  const WindowUnderTest window = StartInstalled(ForUser(), std::string("-PING_N 200 ") + kOwnAddress);
  ASSERT_TRUE(WaitUntil(kSoon, [&] { return RunIsActive(window); }));

  constexpr uint32_t kRunning = 3;
  EXPECT_EQ(RunSetup(kQuietly), kRunning);
  ProgramUnderTest setup(Pc(), SetupProgram(), "/CURRENTUSER");
  const auto asks = [&] {
    return setup.WaitForBox().text.find("Tarvik is still running") != std::string::npos;
  };
  EXPECT_TRUE(WaitUntil(kSetupTimeOut, asks));
  setup.Answer(setup.WaitForBox(), BoxButton::Ok);
  EXPECT_EQ(setup.WaitForEnd(kSetupTimeOut), kRunning);

  // The uninstaller does not remove it either.
  ProgramUnderTest uninstaller(Pc(), ForUser() + "/uninstall.exe", "/S _?=" + WindowsPath(ForUser()));
  EXPECT_EQ(uninstaller.WaitForEnd(kSetupTimeOut), kRunning);
  EXPECT_TRUE(fs::exists(ForUser() + "/Language/Tarvik.exe_1033.ini"));
  EXPECT_TRUE(RunIsActive(window));
}

TEST_F(Setup, Removes_what_it_made_and_nothing_else) {
  // Windows deletes the uninstaller's copy of itself, in the folder Temp, when it starts the next time.
  const auto filesOfUser = [] {
    std::set<std::string> files = FilesIn(UserFolder());
    std::erase_if(files, [](const std::string& file) { return file.starts_with("Temp/"); });
    return files;
  };
  const std::set<std::string> before = filesOfUser();
  ASSERT_EQ(RunSetup(kQuietly), 0u);
  Pc().SetRegistryText(kHistoryKey, "01", "10.1.1.1");
  std::ofstream(ForUser() + "/Guides/report.txt") << "a saved report";
  Uninstall(ForUser());
  std::set<std::string> expected = before;
  expected.insert("AppData/Local/Programs/Tarvik/Guides/report.txt");
  EXPECT_EQ(filesOfUser(), expected);
  EXPECT_EQ(Pc().RegistryText(kEntry, "DisplayName"), std::nullopt);
  EXPECT_EQ(Pc().RegistryText(kHistoryKey, "01"), "10.1.1.1");

  ASSERT_EQ(RunSetup(kQuietly), 0u);
  fs::remove(ForUser() + "/Guides/report.txt");
  Uninstall(ForUser());
  EXPECT_TRUE(WaitUntil(kSoon, [] { return !fs::exists(ForUser()); }));
}

TEST_F(Setup, Loads_no_library_that_was_planted_beside_it) {
  const TempDirectory folder(PcForTests().cacheFolder);
  const std::string setup = folder.Path() + "/setup.exe";
  fs::copy_file(SetupProgram(), setup);
  for (const char* const library :
       {"apphelp",  "bcrypt",   "clbcatq",  "comctl32",        "cryptbase",  "cryptsp",  "dwmapi",
        "iphlpapi", "msimg32",  "netapi32", "ntmarta",         "ObryConfIO", "oleacc",   "profapi",
        "propsys",  "riched20", "rsaenh",   "secur32",         "setupapi",   "shfolder", "textshaping",
        "userenv",  "uxtheme",  "version",  "windows.storage", "winmm",      "wtsapi32"})
    fs::copy_file(EnvironmentValue("TARVIK_BENCH") + "/SvcKit.dll", folder.Path() + "/" + library + ".dll");
  Process::Options options;
  options.environment = Pc().Prefix().Variables();
  options.environment["DISPLAY"] = Pc().Screen().Display();
  options.environment["WINEDEBUG"] = "+loaddll";
  options.workingFolder = folder.Path();
  const Finished run = lab::Run({"wine", setup, "/S", "/CURRENTUSER"}, options, {}, kSetupTimeOut);
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_NE(run.output.find("setup.exe"), std::string::npos);
  // "native" is what comes from a file; "builtin" is Wine's own library, whatever file has led to it.
  const std::string planted = fs::path(folder.Path()).filename().string() + "\\\\";
  std::istringstream lines(run.output);
  for (std::string line; std::getline(lines, line);) {
    const bool isPlanted = line.find(planted) != std::string::npos &&
                           line.find(".dll\"") != std::string::npos && line.ends_with("native");
    EXPECT_FALSE(isPlanted) << line;
  }
}

class SetupInJapanese : public SetupTest<SetupInJapanese> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = SetupTest::Options();
    options.language = WindowsLanguage::Japanese;
    return options;
  }
};

TEST_F(SetupInJapanese, Speaks_Japanese) {
  ProgramUnderTest setup(Pc(), SetupProgram(), "/CURRENTUSER");
  const WindowUnderTest window = setup.WaitForWindow("#32770", kSetupTimeOut);
  EXPECT_EQ(window.Text(0), "Tarvik セットアップ ");
  constexpr int kSubtitle = 1038;
  window.WaitForText(kSubtitle, "Tarvik はスタート メニューから起動できます。", kSetupTimeOut);
  // When it is killed instead, its plug-ins stay in the folder Temp.
  constexpr int kButton = 1;
  window.Click(kButton);
  EXPECT_EQ(setup.WaitForEnd(), 0u);
  EXPECT_EQ(StartInstalled(ForUser()).Text(0), "Tarvik - Obry Ethernet診断");
}

}  // namespace
}  // namespace tarvik::lab
