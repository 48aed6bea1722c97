#include <filesystem>
#include <fstream>

#include "tests/network/lab_fixture.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

/// The program sees Windows NT 4.0, on which it reads the PC's addresses from the ipconfig command's output.
class OldSystem : public LabTest<OldSystem> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.environment["WINEPATH"] = WindowsPath(options.programPath) + ";" + WindowsPath(OldSystemFolder());
    answer_ = std::make_unique<TempDirectory>(options.cacheFolder);
    options.environment["TARVIK_LAB_IPCONFIG"] = WindowsPath(AnswerFile());
    return options;
  }
  static void PreparePc(WindowsPc& pc) {
    pc.Prefix().SetRegistryValue(WinePrefix::Hive::User, "Software\\Wine\\AppDefaults\\Tarvik.exe", "Version",
                                 "\"nt40\"");
  }
  static void TearDownTestSuite() {
    LabTest::TearDownTestSuite();
    answer_.reset();
  }

 protected:
  void SetUp() override {
    LabTest::SetUp();
    if (!IsSkipped()) fs::remove(AnswerFile());
  }

  static std::string AnswerFile() { return answer_->Path() + "/ipconfig.output"; }

  /// Sets the command's output: one card.
  static void Answer(const std::string& address, const std::string& mask, const std::string& gateway) {
    std::ofstream(AnswerFile()) << "\r\nWindows NT IP Configuration\r\n\r\n"
                                   "Ethernet adapter NE20001:\r\n\r\n"
                                   "\tIP Address. . . . . . . . . : "
                                << address << "\r\n\tSubnet Mask . . . . . . . . : " << mask
                                << "\r\n\tDefault Gateway . . . . . . : " << gateway << "\r\n";
  }

  Lines RunCopy(const std::string& target, const Listener& listener = {}) {
    return RunAtStart("-PING_N 1 " + target, listener, copy_.Path());
  }

  bool Exists(const char* name) const { return fs::exists(fs::path(copy_.Folder()) / name); }

  ProgramCopy copy_{ProgramCopy::LanguageFiles::Beside};

 private:
  static inline std::unique_ptr<TempDirectory> answer_;
};

TEST_F(OldSystem, The_ladder_uses_ipconfigs_addresses) {
  Answer("192.168.1.10", "255.255.255.0", "192.168.1.1");
  EXPECT_EQ(RunCopy(kNearAddress),
            (Lines{"PING test...", "0001 Reply From 192.168.1.100: bytes=32 time=Nms TTL=64"}));
  EXPECT_FALSE(Exists("ipconfig.bat"));
  EXPECT_FALSE(Exists("ipconfig.txt"));
}

TEST_F(OldSystem, An_address_that_only_ipconfig_reports_is_used) {
  Answer("192.168.7.10", "255.255.255.0", "");
  EXPECT_EQ(RunCopy(kNearAddress),
            (Lines{"Target is not exist on the same network", "Start Gateway check...",
                   "  Local      :192.168.7.10", "  SubnetMask :255.255.255.0", "  Target     :192.168.1.100",
                   "Default Gateway is required but not specified"}));
}

TEST_F(OldSystem, A_localised_ipconfig_yields_no_addresses) {
  std::ofstream(AnswerFile()) << "\tAdresse IP. . . . : 192.168.1.10\r\n";
  EXPECT_EQ(RunCopy(kNearAddress), (Lines{"Subnet mask is not specified"}));
}

TEST_F(OldSystem, An_ipconfig_that_does_not_end_is_reported) {
  Listener listener;
  std::string text;
  listener.onBox = [&text](const BoxUnderTest& box) { text = box.text; };
  EXPECT_EQ(RunCopy(kNearAddress, listener), (Lines{"Informational acquisition Failure"}));
  const size_t number = text.find_first_of("0123456789");
  ASSERT_NE(number, std::string::npos) << text;
  text.replace(number, text.find_first_not_of("0123456789", number) - number, "N");
  EXPECT_EQ(text,
            "GetIPConfig:GetExitCodeProcess(tID=N), [" + WindowsPath(copy_.Folder()) + "\\ipconfig.bat]");
}

TEST_F(OldSystem, A_stop_while_ipconfig_runs_ends_the_run) {
  StartOnly(std::string("-PING_N 1 ") + kNearAddress, copy_.Path());
  const WindowUnderTest window = WaitForMainWindow(Program());
  ASSERT_TRUE(WaitUntil(kSoon, [&] { return RunIsActive(window) && Exists("ipconfig.bat"); }));
  window.Press("Esc");
  EXPECT_EQ(FollowRun(Program(), window, kSoon), Lines());
}

}  // namespace
}  // namespace tarvik::lab
