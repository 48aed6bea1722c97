// The K7 Server's port from the services file, and the mouse gesture that opens the file.

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

class Form1ServicesFileTest : public Form1Test {
 protected:
  Form1ServicesFileTest() {
    kernel.messages[2] = "Not there.";
    // The general edition reads the language file from the program's own folder.
    files.contents[L"C:\\Program\\Language\\Tarvik.exe_1033.ini"] = "";
  }

  void StartGeneral() { Start(L"", /*familyEdition=*/false); }
  ui::MemoryLabel& PortLabel() { return form.Get<ui::MemoryLabel>(ID_lblK7UdpPortNo); }
  std::wstring Port() { return PortLabel().Caption(); }
};

TEST_F(Form1ServicesFileTest, The_registered_port_is_shown_from_the_start) {
  files.contents[kServicesFile] = "NORVAX_K7_SERVER  8193/udp\r\n";
  StartGeneral();
  EXPECT_EQ(Port(), L"8193");
}

TEST_F(Form1ServicesFileTest, Without_the_entry_the_label_keeps_its_caption) {
  files.contents[kServicesFile] = "NORVAX_K7_SERVER  8193/tcp\r\nzero 0/udp\r\n";
  StartGeneral();
  EXPECT_EQ(Port(), L"---");
}

TEST_F(Form1ServicesFileTest, The_port_is_read_again_each_time_the_page_is_brought_to_the_front) {
  StartGeneral();
  files.contents[kServicesFile] = "NORVAX_K7_SERVER  8193/udp\r\n";
  Tabs().BringToFront(kNexalPage);
  EXPECT_EQ(Port(), L"---");
  Tabs().BringToFront(kK7SvcPage);
  EXPECT_EQ(Port(), L"8193");
  files.contents[kServicesFile] = "";
  Tabs().BringToFront(kPingPage);
  Tabs().BringToFront(kK7SvcPage);
  EXPECT_EQ(Port(), L"8193");
  files.contents[kServicesFile] = "NORVAX_K7_SERVER  9000/udp\r\n";
  Tabs().BringToFront(kPingPage);
  Tabs().BringToFront(kK7SvcPage);
  EXPECT_EQ(Port(), L"9000");
}

TEST_F(Form1ServicesFileTest, The_port_is_read_again_when_the_window_is_activated_with_the_page_in_front) {
  StartGeneral();
  Tabs().BringToFront(kK7SvcPage);
  files.contents[kServicesFile] = "NORVAX_K7_SERVER  9000/udp\r\n";
  form.Activate();
  EXPECT_EQ(Port(), L"9000");
  files.contents[kServicesFile] = "";
  form.Activate();
  EXPECT_EQ(Port(), L"9000");
  Tabs().BringToFront(kPingPage);
  files.contents[kServicesFile] = "NORVAX_K7_SERVER  9001/udp\r\n";
  form.Activate();
  EXPECT_EQ(Port(), L"9000") << "the page is not in front";
}

TEST_F(Form1ServicesFileTest, Activating_the_window_shows_no_box_for_a_missing_services_file) {
  StartGeneral();
  Tabs().BringToFront(kK7SvcPage);
  files.contents.erase(kServicesFile);
  boxes.onShow = [&] { form.Activate(); };
  form.Activate();
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(Form1ServicesFileTest, A_missing_services_file_is_reported_at_start_up) {
  files.contents.erase(kServicesFile);
  StartGeneral();
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].text,
            std::wstring(L"Can't Open [") + kServicesFile + L"] for Read\n\rERROR: 2 - Not there.");
  EXPECT_TRUE(boxes.boxes[0].systemModal);
  EXPECT_EQ(Port(), L"---");
}

TEST_F(Form1ServicesFileTest, While_the_page_is_off_the_services_file_is_not_read) {
  files.contents.erase(kServicesFile);
  Start();
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(Form1ServicesFileTest, Only_a_left_click_with_Ctrl_and_Alt_opens_the_services_file) {
  StartGeneral();
  for (const ui::MouseDown& onMouseDown : {PortLabel().onMouseDown, Box(ID_txtTcpPortNo).onMouseDown}) {
    for (int16_t button = 0; button <= 4; ++button) {
      for (int16_t shift = 0; shift <= 7; ++shift) {
        processes.commandLines.clear();
        onMouseDown(button, shift);
        EXPECT_EQ(processes.commandLines.size(), button == 1 && shift == 6 ? 1U : 0U)
            << button << "|" << shift;
      }
    }
  }
  PortLabel().PressMouse(1, 6);
  EXPECT_EQ(processes.commandLines.back(), L"notepad.exe C:\\Windows\\system32\\drivers\\etc\\services");
  EXPECT_EQ(processes.programs.back(), L"C:\\Windows\\System32\\notepad.exe");
  EXPECT_EQ(processes.windows.back(), StartWindow::NormalFocused);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(Form1ServicesFileTest, The_family_edition_supports_the_gesture_on_the_TCP_port) {
  Start();
  Box(ID_txtTcpPortNo).PressMouse(1, 6);
  EXPECT_EQ(processes.commandLines.size(), 1U);
}

TEST_F(Form1ServicesFileTest, An_editor_that_cannot_be_started_is_reported) {
  Start();
  processes.processId = 0;
  Box(ID_txtTcpPortNo).PressMouse(1, 6);
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].text,
            L"Error in Shell(notepad.exe C:\\Windows\\system32\\drivers\\etc\\services)");
  EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::None);
}

}  // namespace
}  // namespace tarvik::test
