#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

#include "lab/driver_protocol.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

constexpr int kK7SvcTab = 3;
constexpr char kService[] = "K7Server";
constexpr char kServicesLine[] = "NORVAX_K7_SERVER  8193/udp\r\n";

/// The polling takes ten seconds, on a machine under load a little more.
constexpr std::chrono::seconds kPolling(60);

/// The service-setup library, called from another program than the one under test.
class ServiceManager {
 public:
  ServiceManager(WindowsPc& pc, const std::string& bench) {
    Process::Options options;
    options.environment = pc.Prefix().Variables();
    options.environment["DISPLAY"] = std::nullopt;
    caller_ = std::make_unique<Process>(
        std::vector<std::string>{"wine", WindowsPath(bench + "/bench_caller.exe")}, options);
  }
  ServiceManager(const ServiceManager&) = delete;
  ServiceManager& operator=(const ServiceManager&) = delete;
  ~ServiceManager() {
    caller_->CloseInput();
    caller_->Wait(std::chrono::seconds(10));
  }

  std::vector<std::string> Call(const std::vector<std::string>& command) {
    caller_->Write(JoinFields(command) + "\n");
    std::vector<std::string> answer = SplitFields(caller_->ReadLine(std::chrono::seconds(120)));
    if (answer.front() != "ok") throw LabError(command.front() + ": " + answer.at(1));
    answer.erase(answer.begin());
    return answer;
  }

  void Install(const std::string& program) {
    constexpr char kOnDemand[] = "3";
    if (Call({"QSetup_InstallService", kService, "K7 server", WindowsPath(program), kOnDemand}).at(0) != "0")
      throw LabError("the service cannot be installed");
  }
  void Remove() { Call({"QSetup_RemoveService", kService}); }
  void Start() { Call({"QSetup_StartService", kService, "60000"}); }

 private:
  std::unique_ptr<Process> caller_;
};

/// The general edition with its libraries in a folder of its own, on a PC with a real K7 service.
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
    folder_ = std::make_unique<WorkFolder>(options.cacheFolder);
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
    if (!fs::exists(GeneralProgramPath())) GTEST_SKIP() << "there is no " << GeneralProgramPath();
    for (const auto& entry : fs::directory_iterator(folder_->Path())) fs::remove_all(entry.path());
    fs::copy_file(GeneralProgramPath(), InFolder("Tarvik.exe"));
    fs::copy(fs::path(GeneralProgramPath()).parent_path() / "Language", InFolder("Language"),
             fs::copy_options::recursive);
    for (const char* const library : {"NxLib32.dll", "NxLibe1.dll", "k7api.dll", "SvcKit.dll"})
      fs::copy_file(Bench() + "/" + library, InFolder(library));
    fs::copy_file(Recorder(), InFolder("notepad.exe"));
    WriteServicesFile(kServicesLine);
  }

  /// A service that does not obey ends with its Windows.
  void TearDown() override {
    Base::TearDown();
    if (!installed_) return;
    this->Pc().Restart();
    ServiceManager(this->Pc(), Bench()).Remove();
  }

  /// The system's own file is shared with other prefixes, so it is replaced and not written to.
  void WriteServicesFile(const std::string& bytes) {
    fs::remove(ServicesFile());
    std::ofstream(ServicesFile(), std::ios::binary) << bytes;
  }
  std::string ServicesFile() {
    return this->Pc().Prefix().Folder() + "/drive_c/windows/system32/drivers/etc/services";
  }

  /// Installs the K7 server as a service that follows the scenario, and starts it if that is wanted.
  void Install(const std::string& scenario, bool started = false) {
    fs::create_directory(InFolder("service"));
    fs::copy_file(Bench() + "/K7Server.exe", InFolder("service/K7Server.exe"));
    std::ofstream(InFolder("service/K7Server.scenario")) << "port 0\n" << scenario;
    this->Pc().Ask({"clipboard_get"});  // its Windows starts with the screen and the variables of the test
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
    BoxUnderTest box = this->Program().WaitForBox(kPolling);
    EXPECT_EQ(box.text, text);
    this->Program().Answer(box, button);
    return box;
  }

  static std::vector<std::string> LinesOf(const std::string& name) {
    std::vector<std::string> lines;
    std::ifstream file(InFolder(name));
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
  }

  /// How many calls of the stand-in library, made by the program, begin so.
  static int Calls(std::string_view begin) {
    const std::vector<std::string> calls = LinesOf("calls");
    return static_cast<int>(std::count_if(calls.begin(), calls.end(),
                                          [&](const std::string& call) { return call.starts_with(begin); }));
  }

  static bool WaitForLines(const std::string& name, size_t count) {
    return WaitUntil(kPolling, [&] { return LinesOf(name).size() >= count; });
  }

 private:
  static inline std::unique_ptr<WorkFolder> folder_;
  bool installed_ = false;
};

constexpr char kAskToStop[] =
    "When this command is executed, all of CNC which connected by NEXAL2/Ethernet are recognized as power "
    "OFF.\r\n"
    "Continue ?";
constexpr char kStoppedNow[] =
    "The K7 Service stopped. You have to re-start the K7 Service by 'Start' button before close this screen.";
constexpr char kStopFirst[] =
    "Before execute this command, you have to terminate the K7 Service by 'Stop' button.";

class K7Service : public K7ServicePc<K7Service> {};

TEST_F(K7Service, Is_started_queried_and_stopped_for_real) {
  Install("");
  const WindowUnderTest window = StartOnPage();
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Stopped");
  window.Click(ID_cmdStartStopK7Server_0);
  Answer("Already stopped");

  window.Click(ID_cmdStartStopK7Server_1);
  Answer("Starting K7 Service ...");
  Answer("The K7 Service Started.");
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Running");
  window.Click(ID_cmdStartStopK7Server_1);
  Answer("Already running");

  window.Click(ID_cmdStartStopK7Server_0);
  const BoxUnderTest question = Answer(kAskToStop, BoxButton::No);
  EXPECT_EQ(question.icon, "exclamation");
  EXPECT_EQ(question.buttons.size(), 2u);
  window.Settle();
  EXPECT_FALSE(Program().HasBox());
  EXPECT_EQ(Calls("QSetup_StopService"), 0);

  window.Click(ID_cmdStartStopK7Server_0);
  Answer(kAskToStop, BoxButton::Yes);
  Answer(kStoppedNow);
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Stopped");
  EXPECT_EQ(Calls("QSetup_StartService"), 1);
  EXPECT_EQ(Calls("QSetup_StopService"), 1);
  window.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0u);
}

TEST_F(K7Service, A_click_on_the_label_sees_what_happened_meanwhile) {
  Install("");
  const WindowUnderTest window = StartOnPage();
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Stopped");
  ServiceManager(Pc(), Bench()).Start();
  window.Click(ID_lblK7ServerStatus);
  window.WaitForText(ID_lblK7ServerStatus, "Running");
}

TEST_F(K7Service, That_starts_slowly_is_waited_for_and_nothing_is_started_twice) {
  Install("start_takes 5000\n");
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdStartStopK7Server_1);
  Answer("Starting K7 Service ...");
  window.Click(ID_cmdStartStopK7Server_1);
  window.Click(ID_cmdK7ServerDebug);
  window.Close();
  Answer("The K7 Service Started.");
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Running");
  EXPECT_EQ(Calls("QSetup_StartService"), 1);
  window.Settle();
  EXPECT_FALSE(Program().HasBox());
  EXPECT_TRUE(Program().Runs());
}

TEST_F(K7Service, That_stops_slowly_is_waited_for) {
  Install("stop_takes 3000\n", true);
  const WindowUnderTest window = StartOnPage();
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Running");
  window.Click(ID_cmdStartStopK7Server_0);
  Answer(kAskToStop, BoxButton::Yes);
  Answer(kStoppedNow);
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Stopped");
}

TEST_F(K7Service, That_never_runs_is_given_up_after_40_tries) {
  Install("start_takes forever\n");
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdStartStopK7Server_1);
  Answer("Starting K7 Service ...");
  Answer("Cannot start K7 Service.");
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Stopped");
  // One query for the label, one before the start, and the polling's.
  EXPECT_EQ(Calls("QSetup_GetServiceStatus"), 1 + 1 + 40);
}

TEST_F(K7Service, That_refuses_to_stop_is_told_with_the_librarys_code_and_given_up) {
  Install("stop refused\n", true);
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdStartStopK7Server_0);
  Answer(kAskToStop, BoxButton::Yes);
  const BoxUnderTest failure = Answer("Can't stop \"K7Server\". Err=0x41C");
  EXPECT_EQ(failure.title, "Stopping System Service");
  EXPECT_EQ(failure.icon, "exclamation");
  Answer("Cannot stop K7 Service");
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Running");
}

TEST_F(K7Service, That_is_not_installed_has_no_state_and_cannot_be_started) {
  const WindowUnderTest window = StartOnPage();
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "---");
  window.Click(ID_cmdStartStopK7Server_1);
  EXPECT_EQ(Answer("Can't Start \"K7Server\". Err=0x80000124").title, "Starting System Service");
  Answer("Starting K7 Service ...");
  Answer("Cannot start K7 Service.");
}

// The debug launch

TEST_F(K7Service, Debug_starts_the_server_by_hand_while_the_service_is_stopped) {
  Install("");
  fs::copy_file(Recorder(), InFolder("K7Server.exe"));
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdK7ServerDebug);
  ASSERT_TRUE(WaitForLines("starts", 1));
  EXPECT_EQ(LinesOf("starts"), std::vector<std::string>{"K7Server -debug show=1"});
  EXPECT_FALSE(Program().HasBox());
}

TEST_F(K7Service, Debug_leads_to_the_stop_button_while_the_service_runs) {
  Install("", true);
  fs::copy_file(Recorder(), InFolder("K7Server.exe"));
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdK7ServerDebug);
  EXPECT_EQ(Answer(kStopFirst).icon, "exclamation");
  window.WaitForFocus(ID_cmdStartStopK7Server_0);
  EXPECT_TRUE(LinesOf("starts").empty());
}

TEST_F(K7Service, Debug_without_the_server_is_told) {
  Install("");
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdK7ServerDebug);
  EXPECT_EQ(Answer("Error in Shell(K7Server -debug)").icon, "none");
}

// The services file

TEST_F(K7Service, The_port_in_the_services_file_is_shown_and_followed) {
  const WindowUnderTest window = StartOnPage();
  EXPECT_EQ(window.Text(ID_lblK7UdpPortNo), "8193");
  WriteServicesFile("# K7\r\nNORVAX_K7_SERVER\t9000/udp\r\n");
  window.SelectTab(ID_tabMode, 0);
  window.SelectTab(ID_tabMode, kK7SvcTab);
  window.WaitForText(ID_lblK7UdpPortNo, "9000");
}

TEST_F(K7Service, A_services_file_that_is_not_there_is_told_at_the_start) {
  fs::remove(ServicesFile());
  StartOnly({}, InFolder("Tarvik.exe"));
  const BoxUnderTest box = Program().WaitForBox(kPolling);
  const std::string begin =
      "Can't Open [C:\\windows\\System32\\Drivers\\Etc\\Services] for Read\n\rERROR: 2 - ";
  EXPECT_TRUE(box.text.starts_with(begin)) << box.text;
  EXPECT_GT(box.text.size(), begin.size());
  EXPECT_EQ(box.icon, "critical");
  EXPECT_EQ(box.title, "Tarvik");
  Program().Answer(box, BoxButton::Ok);
  EXPECT_EQ(WaitForMainWindow(Program()).Text(ID_lblK7UdpPortNo), "---");
}

TEST_F(K7Service, Left_click_with_Ctrl_and_Alt_alone_opens_the_services_file) {
  const WindowUnderTest window = StartOnPage();
  size_t starts = 0;
  for (const int id : {ID_lblK7UdpPortNo, ID_txtTcpPortNo}) {
    if (id == ID_txtTcpPortNo) window.SelectTab(ID_tabMode, 1);
    for (const char* const others : {"", "Ctrl", "Alt", "Shift", "Ctrl+Shift", "Alt+Shift", "Ctrl+Alt+Shift"})
      window.Click(id, others);
    window.Click(id, "Ctrl+Alt");
    ASSERT_TRUE(WaitForLines("starts", ++starts)) << id;
    window.Settle();
    EXPECT_EQ(LinesOf("starts").size(), starts) << id;
  }
  for (const std::string& line : LinesOf("starts"))
    EXPECT_EQ(line, "notepad.exe C:\\windows\\system32\\drivers\\etc\\services show=1");
}

// A manager that denies access

class DeniedK7Commands : public K7ServicePc<DeniedK7Commands> {
 public:
  static WindowsPc::Options Options() {
    return GeneralPc({{"TARVIK_BENCH_SVCKIT_DENY", "QSetup_StartService QSetup_StopService"}});
  }
};

TEST_F(DeniedK7Commands, Are_told_and_the_service_stays_as_it_is) {
  Install("");
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdStartStopK7Server_1);
  Answer("Can't Start \"K7Server\". Err=0x5");
  Answer("Starting K7 Service ...");
  Answer("Cannot start K7 Service.");
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Stopped");
}

class DeniedK7Query : public K7ServicePc<DeniedK7Query> {
 public:
  static WindowsPc::Options Options() {
    return GeneralPc({{"TARVIK_BENCH_SVCKIT_DENY", "QSetup_GetServiceStatus"}});
  }
};

TEST_F(DeniedK7Query, Is_told_at_the_start_and_keeps_the_debug_launch_shut) {
  StartOnly({}, InFolder("Tarvik.exe"));
  const std::string text = "Can't get status information of \"K7Server\". Err=0x5";
  EXPECT_EQ(Answer(text).title, "Confirming System Service");
  const WindowUnderTest window = WaitForMainWindow(Program());
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "---");
  window.SelectTab(ID_tabMode, kK7SvcTab);
  window.Click(ID_lblK7ServerStatus);
  Answer(text);
  window.Click(ID_cmdK7ServerDebug);
  Answer(kStopFirst);
  EXPECT_FALSE(Program().HasBox());
}

// In Japanese

class JapaneseK7Service : public K7ServicePc<JapaneseK7Service> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = GeneralPc({});
    options.language = WindowsLanguage::Japanese;
    return options;
  }
};

TEST_F(JapaneseK7Service, Speaks_Japanese) {
  Install("");
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdStartStopK7Server_0);
  Answer("すでに停止しています");
  window.Click(ID_cmdStartStopK7Server_1);
  Answer("K7サービスを再起動中です...");
  Answer("K7サービスを起動しました。");
  window.Click(ID_cmdK7ServerDebug);
  Answer("このコマンドを実行するためには、'Stop' ボタンでK7サーバを停止させる必要があります。");
  window.Click(ID_cmdStartStopK7Server_0);
  Answer(
      "このコマンドを実行すると、NEXAL2/Ethernetで接続しているすべてのNCは、電源OFFと認識されます。\r\n"
      "実行しますか？",
      BoxButton::Yes);
  Answer(
      "K7サービスを停止しました。この画面を終了する前に、必ず 'Start' "
      "ボタンでK7サービスを再起動してください。");
}

}  // namespace
}  // namespace tarvik::lab
