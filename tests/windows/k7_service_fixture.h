#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

#include "lab/pc/service_manager.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {

namespace fs = std::filesystem;

inline constexpr int kK7SvcTab = 3;
inline constexpr char kServicesLine[] = "NORVAX_K7_SERVER  8193/udp\r\n";

/// The program polls for ten seconds; on a loaded machine it takes longer.
inline constexpr std::chrono::seconds kMaxPollingTime(60);

/// A copy of the general edition with its libraries, on a PC with a real K7 service.
template <typename Suite>
class K7ServicePc : public WindowsTest<Suite> {
  using Base = WindowsTest<Suite>;

 public:
  static WindowsPc::Options Options() { return GeneralPc({}); }

  static void TearDownTestSuite() {
    Base::TearDownTestSuite();
    folder_.reset();
  }

 protected:
  static WindowsPc::Options GeneralPc(const Environment& more) {
    WindowsPc::Options options = PcForTests();
    options.programPath.clear();
    folder_ = std::make_unique<TempDirectory>(options.cacheFolder);
    options.environment["TARVIK_BENCH_CALLS"] = WindowsPath(folder_->Path() + "/calls");
    options.environment["TARVIK_LAB_STARTS"] = WindowsPath(folder_->Path() + "/starts");
    for (const auto& [name, value] : more) options.environment[name] = value;
    return options;
  }

  static std::string Bench() {
    return fs::path(GeneralProgramPath()).parent_path().parent_path() / "bench" / "x86";
  }
  static std::string Recorder() { return fs::path(ProgramPath()).parent_path() / "start_recorder.exe"; }
  static std::string InFolder(const std::string& name) { return folder_->Path() + "/" + name; }

  void SetUp() override {
    Base::SetUp();
    if (this->IsSkipped()) return;
    if (fs::path(ProgramPath()).parent_path().filename() != "x86")
      GTEST_SKIP() << "the general edition is 32-bit";
    if (!fs::exists(GeneralProgramPath())) GTEST_SKIP() << GeneralProgramPath() << " does not exist";
    for (const auto& entry : fs::directory_iterator(folder_->Path())) fs::remove_all(entry.path());
    fs::copy_file(GeneralProgramPath(), InFolder("Tarvik.exe"));
    fs::copy(fs::path(GeneralProgramPath()).parent_path() / "Language", InFolder("Language"),
             fs::copy_options::recursive);
    for (const char* const library : {"NxLib32.dll", "NxLibe1.dll", "k7api.dll", "SvcKit.dll"})
      fs::copy_file(Bench() + "/" + library, InFolder(library));
    this->Pc().Prefix().ReplaceProgram("notepad.exe", Recorder());
    WriteServicesFile(kServicesLine);
  }

  /// Ends all programs of the PC, because a service may ignore the request to stop.
  void TearDown() override {
    Base::TearDown();
    if (!installed_) return;
    this->Pc().Restart();
    ServiceManager(this->Pc(), Bench()).Remove();
  }

  /// Replaces the file instead of writing to it: all prefixes share it by hard links.
  void WriteServicesFile(const std::string& bytes) {
    fs::remove(ServicesFile());
    std::ofstream(ServicesFile(), std::ios::binary) << bytes;
  }
  std::string ServicesFile() {
    return this->Pc().Prefix().Folder() + "/drive_c/windows/system32/drivers/etc/services";
  }

  /// Installs the K7 server as a service with this scenario, and starts it if `started`.
  void Install(const std::string& scenario, bool started = false) {
    fs::create_directory(InFolder("service"));
    fs::copy_file(Bench() + "/K7Server.exe", InFolder("service/K7Server.exe"));
    std::ofstream(InFolder("service/K7Server.scenario")) << "port 0\n" << scenario;
    ServiceManager manager(this->Pc(), Bench());
    manager.Install(InFolder("service/K7Server.exe"));
    installed_ = true;
    if (started) manager.Start();
  }

  WindowUnderTest StartOnPage() {
    this->StartOnly({}, InFolder("Tarvik.exe"));
    const WindowUnderTest window = WaitForMainWindow(this->Program());
    window.SelectTab(ID_tabMode, kK7SvcTab);
    return window;
  }

  /// Waits for the next message box and answers it.
  BoxUnderTest Answer(const std::string& text, BoxButton button = BoxButton::Ok) {
    BoxUnderTest box = this->Program().WaitForBox(kMaxPollingTime);
    EXPECT_EQ(box.text, text);
    this->Program().Answer(box, button);
    return box;
  }

  static std::vector<std::string> LinesOf(const std::string& name) { return LinesOfFile(InFolder(name)); }

  /// Number of recorded library calls that start with this text.
  static int Calls(std::string_view begin) {
    const std::vector<std::string> calls = LinesOf("calls");
    return static_cast<int>(std::count_if(calls.begin(), calls.end(),
                                          [&](const std::string& call) { return call.starts_with(begin); }));
  }

  static bool WaitForLines(const std::string& name, size_t count) {
    return WaitUntil(kMaxPollingTime, [&] { return LinesOf(name).size() >= count; });
  }

 private:
  static inline std::unique_ptr<TempDirectory> folder_;
  bool installed_ = false;
};

}  // namespace tarvik::lab
