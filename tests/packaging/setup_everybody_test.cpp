// The setup program for everybody on the PC, and on a PC with the maker's configuration library.

#include <memory>

#include "resources/version.h"
#include "tests/packaging/setup_fixture.h"

namespace tarvik::lab {
namespace {

class SetupForEverybody : public SetupTest<SetupForEverybody> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = SetupTest::Options();
    folder_ = std::make_unique<TempDirectory>(options.cacheFolder);
    options.environment["TARVIK_LAB_STARTS"] = WindowsPath(Starts());
    return options;
  }
  static void PreparePc(WindowsPc& pc) {
    pc.Prefix().ReplaceProgram("netsh.exe", fs::path(ProgramPath()).parent_path() / "start_recorder.exe");
  }
  static void TearDownTestSuite() {
    SetupTest::TearDownTestSuite();
    folder_.reset();
  }

 protected:
  void SetUp() override {
    SetupTest::SetUp();
    if (!IsSkipped()) fs::remove(Starts());
  }
  static std::string Starts() { return folder_->Path() + "/starts"; }
  /// What netsh was asked since the last call.
  static std::vector<std::string> FirewallChanges() {
    const std::vector<std::string> lines = LinesOfFile(Starts());
    fs::remove(Starts());
    std::vector<std::string> changes;
    for (const std::string& line : lines) changes.push_back(line.substr(line.find("netsh.exe\" ") + 11));
    return changes;
  }
  /// The entry in "Apps & features" as text.
  static std::string Entry() {
    Process::Options options;
    options.environment = Pc().Prefix().Variables();
    return lab::Run({"wine", "reg", "query", std::string("HKLM\\") + kEntry, "/reg:32"}, options).output;
  }

 private:
  static inline std::unique_ptr<TempDirectory> folder_;
};

constexpr char kProgram[] = "program=\"C:\\Program Files (x86)\\Tarvik\\Tarvik.exe\"";
const std::string kRule = std::string("name=\"Tarvik FTP\" ") + kProgram;

TEST_F(SetupForEverybody, Installs_into_Program_Files_without_a_firewall_rule) {
  ASSERT_EQ(RunSetup("/S /ALLUSERS"), 0u);
  EXPECT_TRUE(fs::exists(ForEverybody() + "/Tarvik.exe"));
  EXPECT_TRUE(fs::exists(EverybodysShortcut()));
  EXPECT_FALSE(fs::exists(ForUser()));
  EXPECT_FALSE(fs::exists(UsersShortcut()));
  EXPECT_NE(Entry().find(TARVIK_VERSION_TEXT), std::string::npos) << Entry();
  EXPECT_EQ(FirewallChanges(), std::vector<std::string>());
  Uninstall(ForEverybody());
  EXPECT_TRUE(WaitUntil(kSoon, [] { return !fs::exists(ForEverybody()); }));
  EXPECT_FALSE(fs::exists(EverybodysShortcut()));
  EXPECT_EQ(Entry().find(TARVIK_VERSION_TEXT), std::string::npos);
  EXPECT_EQ(FirewallChanges(), std::vector<std::string>());
}

TEST_F(SetupForEverybody, Installs_for_everybody_when_elevated) {
  ASSERT_EQ(RunSetup("/S"), 0u);
  EXPECT_TRUE(fs::exists(ForEverybody() + "/Tarvik.exe"));
}

TEST_F(SetupForEverybody, Adds_the_firewall_rule_on_request_keeps_and_removes_it) {
  const std::string remove = std::string("advfirewall firewall delete rule ") + kRule + " show=0";
  const std::string removeAll =
      "advfirewall firewall delete rule name=all dir=in " + std::string(kProgram) + " show=0";
  const std::string add =
      std::string("advfirewall firewall add rule ") + kRule + " dir=in action=allow protocol=TCP show=0";
  ASSERT_EQ(RunSetup("/S /ALLUSERS /FIREWALL=1"), 0u);
  EXPECT_EQ(FirewallChanges(), (std::vector<std::string>{removeAll, add}));
  ASSERT_EQ(RunSetup("/S /ALLUSERS"), 0u);
  EXPECT_EQ(FirewallChanges(), (std::vector<std::string>{removeAll, add}));
  Uninstall(ForEverybody());
  EXPECT_EQ(FirewallChanges(), std::vector<std::string>{remove});
}

TEST_F(SetupForEverybody, Removes_the_firewall_rule_in_an_upgrade_on_request) {
  ASSERT_EQ(RunSetup("/S /ALLUSERS /FIREWALL=1"), 0u);
  FirewallChanges();
  ASSERT_EQ(RunSetup("/S /ALLUSERS /FIREWALL=0"), 0u);
  EXPECT_EQ(FirewallChanges(),
            std::vector<std::string>{std::string("advfirewall firewall delete rule ") + kRule + " show=0"});
  ASSERT_EQ(RunSetup("/S /ALLUSERS"), 0u);
  EXPECT_EQ(FirewallChanges(), std::vector<std::string>());
  Uninstall(ForEverybody());
  EXPECT_EQ(FirewallChanges(), std::vector<std::string>());
}

TEST_F(SetupForEverybody, Adds_no_firewall_rule_for_one_user) {
  ASSERT_EQ(RunSetup("/S /CURRENTUSER /FIREWALL=1"), 0u);
  EXPECT_EQ(FirewallChanges(), std::vector<std::string>());
}

TEST_F(SetupForEverybody, Asks_before_it_installs_and_can_be_cancelled) {
  ProgramUnderTest setup(Pc(), SetupProgram());
  const WindowUnderTest window = setup.WaitForWindow("#32770", kSetupTimeOut);
  window.WaitForText(1, "&Install", kSetupTimeOut);
  window.Close();
  EXPECT_EQ(setup.WaitForEnd(kSetupTimeOut), 1u);
  EXPECT_FALSE(fs::exists(ForEverybody()));
}

/// The library names a folder that is not the program's. Suite::kPlace is the library's own folder.
template <typename Suite>
class SetupWithTheMakersLibrary : public SetupTest<Suite> {
  using Base = SetupTest<Suite>;

 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = Base::Options();
    folder_ = std::make_unique<TempDirectory>(options.cacheFolder);
    options.environment["TARVIK_BENCH_FOLDER"] = WindowsPath(Common());
    return options;
  }
  static void PreparePc(WindowsPc& pc) {
    const fs::path place = pc.Prefix().Folder() + "/drive_c/" + Suite::kPlace;
    fs::create_directories(place);
    for (const auto& entry : fs::directory_iterator(EnvironmentValue("TARVIK_BENCH")))
      if (entry.path().extension() == ".dll")
        fs::copy_file(entry.path(), place / fs::path(entry.path().filename()));
    std::string path = std::string("C:\\windows\\system32;C:\\windows;C:\\") + Suite::kPlace;
    for (size_t at = 0; (at = path.find('\\', at)) != std::string::npos; at += 2) path.insert(at, "\\");
    pc.Prefix().SetRegistryValue(WinePrefix::Hive::System,
                                 "System\\CurrentControlSet\\Control\\Session Manager\\Environment", "PATH",
                                 "\"" + path + "\"");
  }
  static void TearDownTestSuite() {
    Base::TearDownTestSuite();
    folder_.reset();
  }

 protected:
  static std::string Common() { return folder_->Path() + "/common"; }

 private:
  static inline std::unique_ptr<TempDirectory> folder_;
};

class SetupBesideTheMakersLibrary : public SetupWithTheMakersLibrary<SetupBesideTheMakersLibrary> {
 public:
  static constexpr char kPlace[] = "Program Files (x86)";
};

const std::set<std::string> kLanguageFiles = {"Language/Tarvik.exe_1033.ini", "Language/Tarvik.exe_1041.ini"};

TEST_F(SetupBesideTheMakersLibrary, Puts_the_language_files_where_the_program_looks_for_them) {
  for (const auto& [arguments, folder] :
       {std::pair("/S /CURRENTUSER", ForUser()), {"/S /ALLUSERS", ForEverybody()}}) {
    ASSERT_EQ(RunSetup(arguments), 0u);
    EXPECT_EQ(FilesIn(Common()), kLanguageFiles);
    // Without a message box, so the program has found the library and its language file.
    StartOnly({}, folder + "/Tarvik.exe");
    EXPECT_EQ(WaitForMainWindow(Program()).Text(0), "Tarvik - Ethernet diagnosis for Obry");
    Uninstall(folder);
    EXPECT_EQ(FilesIn(Common()), std::set<std::string>());
  }
}

TEST_F(SetupBesideTheMakersLibrary, Keeps_the_language_files_for_another_installation) {
  for (const auto& [first, second] :
       {std::pair(ForUser(), ForEverybody()), std::pair(ForEverybody(), ForUser())}) {
    ASSERT_EQ(RunSetup("/S /CURRENTUSER"), 0u);
    ASSERT_EQ(RunSetup("/S /ALLUSERS"), 0u);
    Uninstall(first);
    EXPECT_EQ(FilesIn(Common()), kLanguageFiles);
    Uninstall(second);
    EXPECT_EQ(FilesIn(Common()), std::set<std::string>());
  }
}

/// A folder that every user can write to. Under Wine, setup is elevated.
class SetupBesideAnUnprotectedLibrary : public SetupWithTheMakersLibrary<SetupBesideAnUnprotectedLibrary> {
 public:
  static constexpr char kPlace[] = "Maker";
};

TEST_F(SetupBesideAnUnprotectedLibrary, Loads_no_library_that_any_user_may_have_replaced) {
  ASSERT_EQ(RunSetup("/S /ALLUSERS"), 0u);
  EXPECT_EQ(FilesIn(Common()), std::set<std::string>());
}

}  // namespace
}  // namespace tarvik::lab
