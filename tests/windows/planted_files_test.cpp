// Libraries and programs planted in the current folder and, under Windows' own names, beside the program.

#include "tests/windows/k7_service_fixture.h"

namespace tarvik::lab {
namespace {

class PlantedFiles : public K7ServicePc<PlantedFiles> {
 protected:
  void SetUp() override {
    K7ServicePc::SetUp();
    if (IsSkipped()) return;
    fs::create_directory(InFolder("current"));
    for (const char* const library : {"NxLib32.dll", "txcodec.dll"})
      fs::copy_file(Bench() + "/" + library, InFolder("current/") + library);
    // Not the libraries of Windows: a program that loads them misses every call.
    for (const char* const library : {"icmp.dll", "iphlpapi.dll"})
      fs::copy_file(Bench() + "/SvcKit.dll", InFolder("current/") + library);
    // A program that records nothing.
    const std::string bareWindow = fs::path(ProgramPath()).parent_path() / "bare_window.exe";
    for (const char* const program : {"current/notepad.exe", "current/K7Server.exe", "notepad.exe"})
      fs::copy_file(bareWindow, InFolder(program));
  }

  void StartInPlantedFolder(const std::string& commandLine = {}) {
    StartOnly(commandLine, InFolder("Tarvik.exe"), InFolder("current"));
  }
};

TEST_F(PlantedFiles, A_library_of_the_maker_in_the_current_folder_is_not_found) {
  fs::remove(InFolder("NxLib32.dll"));
  StartInPlantedFolder();
  const WindowUnderTest window = WaitForMainWindow(Program());
  const std::vector<std::string> tabs = window.StateOfTabs(ID_tabMode).captions;
  EXPECT_EQ(std::count(tabs.begin(), tabs.end(), "NEXAL2(&2)"), 0);
  EXPECT_FALSE(window.Visible(ID_cmdAllTest));
}

TEST_F(PlantedFiles, The_library_beside_the_program_is_found) {
  StartInPlantedFolder();
  const WindowUnderTest window = WaitForMainWindow(Program());
  EXPECT_TRUE(window.Visible(ID_cmdAllTest));
  window.InvokeCommand(ID_mnuHelpSub);
  const std::string modules = Program().WaitForWindow("frmAbout").Text(ID_lblModules);
  EXPECT_NE(modules.find("(" + WindowsPath(InFolder("NxLib32.dll")) + ")"), std::string::npos) << modules;
}

TEST_F(PlantedFiles, Neither_the_decoder_nor_a_network_library_is_loaded_from_the_current_folder) {
  struct Run {
    std::vector<std::string> boxes, lines;
  };
  const auto runIn = [&](const std::string& folder) {
    Run run;
    Listener listener;
    listener.onBox = [&run](const BoxUnderTest& box) { run.boxes.push_back(box.text); };
    StartOnly("-LANGID 1 -X 8 -FTP_USER cnc -FTP_PASSWD terces 127.0.0.1", InFolder("Tarvik.exe"), folder);
    const WindowUnderTest window = WaitForMainWindow(Program(), listener);
    run.lines = WithoutTimes(FollowRun(Program(), window, kMaxPollingTime, listener));
    EXPECT_EQ(window.Text(ID_txtFtpPasswd), "");
    return run;
  };
  const Run planted = runIn(InFolder("current"));
  const Run ordinary = runIn(InFolder("."));
  EXPECT_EQ(planted.boxes,
            std::vector<std::string>{"The FTP password on the command line cannot be decoded."});
  EXPECT_EQ(planted.boxes, ordinary.boxes);
  EXPECT_EQ(planted.lines, ordinary.lines);
}

TEST_F(PlantedFiles, Notepad_is_the_one_of_Windows) {
  StartInPlantedFolder();
  const WindowUnderTest window = WaitForMainWindow(Program());
  window.SelectTab(ID_tabMode, kK7SvcTab);
  window.Click(ID_lblK7UdpPortNo, "Ctrl+Alt");
  EXPECT_TRUE(WaitForLines("starts", 1));
}

TEST_F(PlantedFiles, A_server_program_in_the_current_folder_is_not_started) {
  Install("");
  StartInPlantedFolder();
  const WindowUnderTest window = WaitForMainWindow(Program());
  window.SelectTab(ID_tabMode, kK7SvcTab);
  window.Click(ID_cmdK7ServerDebug);
  Answer("Error in Shell(K7Server -debug)");
}

}  // namespace
}  // namespace tarvik::lab
