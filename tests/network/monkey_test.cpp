// Random actions on the real window, in the same order in every run. TARVIK_MONKEY_SEED selects another
// order, TARVIK_MONKEY_SECONDS another duration (60).

#include "lab/monkey/monkey.h"

#include <iostream>

#include "lab/network/ftp_server.h"
#include "lab/network/k7_server.h"
#include "tests/network/cnc_fixture.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

uint64_t NumberFrom(const char* variable, uint64_t standard) {
  const std::string text = EnvironmentValue(variable);
  return text.empty() ? standard : std::stoull(text);
}

uint64_t Seed() {
  static const uint64_t seed = NumberFrom("TARVIK_MONKEY_SEED", 90210);
  return seed;
}

/// A network with two controllers and an FTP server, a K7 server on the PC with a notepad.exe that ends at
/// once, and a copy of the program.
class MonkeyAtWork : public CncTest<MonkeyAtWork> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = OptionsWith({});
    options.themed = true;  // as on users' PCs
    folder_ = std::make_unique<TempDirectory>(options.cacheFolder);
    options.environment["TARVIK_LAB_STARTS"] = WindowsPath(folder_->Path() + "/starts");
    return options;
  }
  static void TearDownTestSuite() {
    CncTest::TearDownTestSuite();
    folder_.reset();
  }

 protected:
  void SetUp() override {
    CncTest::SetUp();
    if (IsSkipped()) return;
    if (const auto reason = FtpServer::UnsupportedReason(FtpServer::Product::Vsftpd)) GTEST_SKIP() << *reason;
    GiveUpConnectingSoon();
  }

  /// Each of the two editions gets half of the time.
  void Play(const std::string& program) {
    if (!fs::exists(program)) GTEST_SKIP() << program << " does not exist";
    const Controller nearOne(Net(), Host::Near, BenchScenario("all_well"));
    const Controller farOne(Net(), Host::Far, BenchScenario("access_code"));
    const FtpServer files(Net(), Host::Near, FtpServer::Product::Vsftpd, PcForTests().cacheFolder);
    files.AddFile("O1000.NC", 100);
    const std::string cache = PcForTests().cacheFolder;
    const K7ServerProgram k7Server(Pc(), Net(), PcForTests().programPath, cache, "");
    Pc().Prefix().ReplaceProgram("notepad.exe", fs::path(ProgramPath()).parent_path() / "start_recorder.exe");
    Monkey monkey({Net(), Pc(), CopyOf(program)}, Seed());
    std::cout << "TARVIK_MONKEY_SEED=" << Seed() << std::endl;
    try {
      monkey.Play(std::chrono::seconds(NumberFrom("TARVIK_MONKEY_SECONDS", 60) / 2));
      monkey.Finish();
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
      for (const std::string& line : monkey.Log()) std::cout << line << '\n';
    }
    std::cout << monkey.Summary() << std::endl;
  }

 private:
  static std::string CopyOf(const std::string& program) {
    const fs::path from = fs::path(program).parent_path();
    const fs::path to = fs::path(folder_->Path()) / from.filename();
    fs::create_directory(to);
    fs::copy_file(program, to / "Tarvik.exe");
    fs::copy(from / "Language", to / "Language", fs::copy_options::recursive);
    return to / "Tarvik.exe";
  }

  static inline std::unique_ptr<TempDirectory> folder_;
};

TEST_F(MonkeyAtWork, The_program_survives_random_actions) { Play(ProgramPath()); }

TEST_F(MonkeyAtWork, The_general_edition_survives_random_actions) { Play(GeneralProgramPath()); }

}  // namespace
}  // namespace tarvik::lab
