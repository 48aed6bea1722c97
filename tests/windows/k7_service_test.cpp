#include "tests/windows/k7_service_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kAskToStop[] =
    "Every CNC that is connected through NEXAL2/Ethernet will be treated as switched off.\r\nContinue?";
constexpr char kStoppedNow[] =
    "The K7 service has stopped. Restart it with the [Start] button before you close this window.";
constexpr char kStopFirst[] = "To use this command, first stop the K7 service with the [Stop] button.";

class K7Service : public K7ServicePc<K7Service> {};

TEST_F(K7Service, Is_started_queried_and_stopped) {
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

TEST_F(K7Service, A_click_on_the_label_shows_the_current_state) {
  Install("");
  const WindowUnderTest window = StartOnPage();
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Stopped");
  ServiceManager(Pc(), Bench()).Start();
  window.Click(ID_lblK7ServerStatus);
  window.WaitForText(ID_lblK7ServerStatus, "Running");
}

TEST_F(K7Service, A_slow_start_is_awaited_and_not_repeated) {
  Install("start_takes 5000\n");
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdStartStopK7Server_1);
  Answer("Starting K7 Service ...");
  window.Click(ID_cmdStartStopK7Server_1);
  window.Click(ID_cmdK7ServerDebug);
  window.Close();
  Answer(kStopFirst);
  Answer("The K7 Service Started.");
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Running");
  EXPECT_EQ(Calls("QSetup_StartService"), 1);
  window.Settle();
  EXPECT_FALSE(Program().HasBox());
  EXPECT_TRUE(Program().Runs());
}

TEST_F(K7Service, A_slow_stop_is_awaited) {
  Install("stop_takes 3000\n", true);
  const WindowUnderTest window = StartOnPage();
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Running");
  window.Click(ID_cmdStartStopK7Server_0);
  Answer(kAskToStop, BoxButton::Yes);
  Answer(kStoppedNow);
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Stopped");
}

TEST_F(K7Service, A_start_that_never_completes_fails_after_40_queries) {
  Install("start_takes forever\n");
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdStartStopK7Server_1);
  Answer("Starting K7 Service ...");
  Answer("Cannot start K7 Service.");
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Stopped");
  // One for the label, one before the start, 40 while polling.
  EXPECT_EQ(Calls("QSetup_GetServiceStatus"), 1 + 1 + 40);
}

TEST_F(K7Service, A_rejected_stop_is_reported_with_the_code_of_the_library) {
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

TEST_F(K7Service, A_missing_service_has_no_state_and_cannot_be_started) {
  const WindowUnderTest window = StartOnPage();
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "---");
  window.Click(ID_cmdStartStopK7Server_1);
  EXPECT_EQ(Answer("Can't Start \"K7Server\". Err=0x80000124").title, "Starting System Service");
  Answer("Starting K7 Service ...");
  Answer("Cannot start K7 Service.");
}

// The debug launch

TEST_F(K7Service, Debug_starts_the_server_program_while_the_service_is_stopped) {
  Install("");
  fs::copy_file(Recorder(), InFolder("K7Server.exe"));
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdK7ServerDebug);
  ASSERT_TRUE(WaitForLines("starts", 1));
  EXPECT_EQ(LinesOf("starts"), std::vector<std::string>{"K7Server -debug show=1"});
  EXPECT_FALSE(Program().HasBox());
}

TEST_F(K7Service, Debug_focuses_the_stop_button_while_the_service_runs) {
  Install("", true);
  fs::copy_file(Recorder(), InFolder("K7Server.exe"));
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdK7ServerDebug);
  EXPECT_EQ(Answer(kStopFirst).icon, "exclamation");
  window.WaitForFocus(ID_cmdStartStopK7Server_0);
  EXPECT_TRUE(LinesOf("starts").empty());
}

TEST_F(K7Service, Debug_reports_a_missing_server_program) {
  Install("");
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdK7ServerDebug);
  EXPECT_EQ(Answer("Error in Shell(K7Server -debug)").icon, "none");
}

// The services file

TEST_F(K7Service, The_port_is_read_from_the_services_file_when_the_page_is_selected) {
  const WindowUnderTest window = StartOnPage();
  EXPECT_EQ(window.Text(ID_lblK7UdpPortNo), "8193");
  WriteServicesFile("# K7\r\nNORVAX_K7_SERVER\t9000/udp\r\n");
  window.SelectTab(ID_tabMode, 0);
  window.SelectTab(ID_tabMode, kK7SvcTab);
  window.WaitForText(ID_lblK7UdpPortNo, "9000");
}

TEST_F(K7Service, The_port_is_read_again_when_the_window_is_activated) {
  const WindowUnderTest window = StartOnPage();
  window.InvokeCommand(ID_mnuHelpSub);
  const WindowUnderTest about = Program().WaitForWindow("frmAbout");
  WriteServicesFile("NORVAX_K7_SERVER\t9000/udp\r\n");
  EXPECT_EQ(window.Text(ID_lblK7UdpPortNo), "8193");
  about.Click(ID_cmdOK);
  window.WaitForText(ID_lblK7UdpPortNo, "9000");
}

TEST_F(K7Service, A_missing_services_file_is_reported_at_start_up) {
  fs::remove(ServicesFile());
  StartOnly({}, InFolder("Tarvik.exe"));
  const BoxUnderTest box = Program().WaitForBox(kMaxPollingTime);
  const std::string begin =
      "Can't Open [C:\\windows\\System32\\Drivers\\Etc\\Services] for Read\n\rERROR: 2 - ";
  EXPECT_TRUE(box.text.starts_with(begin)) << box.text;
  EXPECT_GT(box.text.size(), begin.size());
  EXPECT_EQ(box.icon, "critical");
  EXPECT_EQ(box.title, "Tarvik");
  Program().Answer(box, BoxButton::Ok);
  EXPECT_EQ(WaitForMainWindow(Program()).Text(ID_lblK7UdpPortNo), "---");
}

TEST_F(K7Service, A_click_with_exactly_Ctrl_and_Alt_opens_the_services_file) {
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

TEST_F(DeniedK7Commands, A_denied_stop_is_reported_and_the_service_keeps_running) {
  Install("", true);
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdStartStopK7Server_0);
  Answer(kAskToStop, BoxButton::Yes);
  EXPECT_EQ(Answer("Can't stop \"K7Server\". Err=0x5").title, "Stopping System Service");
  Answer("Cannot stop K7 Service");
  EXPECT_EQ(window.Text(ID_lblK7ServerStatus), "Running");
}

TEST_F(DeniedK7Commands, A_denied_start_is_reported_and_the_service_stays_stopped) {
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

TEST_F(DeniedK7Query, Is_reported_at_start_up_and_prevents_the_debug_launch) {
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

TEST_F(JapaneseK7Service, Shows_Japanese_texts) {
  Install("");
  const WindowUnderTest window = StartOnPage();
  window.Click(ID_cmdStartStopK7Server_0);
  Answer("すでに停止しています");
  window.Click(ID_cmdStartStopK7Server_1);
  Answer("K7サービスを起動中です...");
  Answer("K7サービスを起動しました。");
  window.Click(ID_cmdK7ServerDebug);
  Answer("この操作を行うには、[停止] ボタンでK7サービスを停止してください。");
  window.Click(ID_cmdStartStopK7Server_0);
  Answer(
      "このコマンドを実行すると、NEXAL2/Ethernetで接続しているすべてのNCは、電源OFFと認識されます。\r\n"
      "実行しますか？",
      BoxButton::Yes);
  Answer(
      "K7サービスを停止しました。この画面を終了する前に、必ず [開始] "
      "ボタンでK7サービスを再起動してください。");
}

}  // namespace
}  // namespace tarvik::lab
