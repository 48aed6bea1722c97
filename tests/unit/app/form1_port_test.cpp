// The second look of the pages NEXAL2 and Ftp: how the target's TCP port answers.

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

class Form1PortTest : public Form1Test {
 protected:
  Form1PortTest() {
    Start(L"-LANGID 1 -TCP_PORT 9000 -NXLIB_TMOUT 3");
    Address().SetText(L"192.168.1.100");
    cncLibrary.openResult = -16;
    wininet.failing = {"InternetConnectA"};
    sessions_ = winsock.startups - winsock.cleanups;
  }

  /// The ports that were asked. Everything that asking acquired must have been released.
  std::vector<uint16_t> Asked() {
    std::vector<uint16_t> ports;
    for (const FakeWinsock::Connect& connect : winsock.connects) {
      EXPECT_EQ(connect.address, AddressNumber("192.168.1.100"));
      ports.push_back(connect.port);
    }
    EXPECT_TRUE(winsock.openSockets.empty());
    EXPECT_EQ(winsock.startups - winsock.cleanups, sessions_);
    EXPECT_EQ(form.CurrentPointer(), ui::Pointer::Default);
    EXPECT_FALSE(flags.busy);
    return ports;
  }

  static const std::vector<uint16_t> kNone;

 private:
  int sessions_ = 0;
};

const std::vector<uint16_t> Form1PortTest::kNone;

TEST_F(Form1PortTest, A_controller_that_the_library_cannot_connect_to_is_asked_once) {
  winsock.ports[9000] = {Winsock::kConnectionRefused, 20};
  Click(ID_cmdGetInfo);
  EXPECT_EQ(Asked(), std::vector<uint16_t>{9000});
}

TEST_F(Form1PortTest, An_FTP_server_that_cannot_be_connected_to_is_asked_once) {
  winsock.ports[21].pollsUntilEnd = 1;
  Click(ID_cmdFtpConnect);
  EXPECT_EQ(Asked(), std::vector<uint16_t>{21});
}

TEST_F(Form1PortTest, A_controller_that_answered_is_not_asked) {
  cncLibrary.openResult = 0;
  Click(ID_cmdGetInfo);
  cncLibrary.optionsResult = 5;
  Click(ID_cmdGetInfo);
  cncLibrary.openResult = cncLibrary.codeResult = 7;
  Click(ID_cmdGetInfo);
  EXPECT_EQ(Asked(), kNone);
}

TEST_F(Form1PortTest, An_FTP_server_that_answered_is_not_asked) {
  wininet.replies = {"530 Login incorrect"};
  Click(ID_cmdFtpConnect);
  EXPECT_EQ(Asked(), kNone);
}

TEST_F(Form1PortTest, A_stop_request_ends_the_asking) {
  const uint64_t begin = pump.now;
  onEvents = [&] {
    if (!winsock.connects.empty() && pump.now > begin + 500) flags.stopRequested = true;
  };
  Click(ID_cmdGetInfo);
  EXPECT_LT(pump.now, begin + 1000);
  EXPECT_EQ(Asked(), std::vector<uint16_t>{9000});
}

TEST_F(Form1PortTest, A_name_is_asked_only_after_the_Ping_check_has_resolved_it) {
  winsock.AddHost("cnc", {"192.168.1.100"});
  Address().SetText(L"cnc");
  Click(ID_cmdGetInfo);
  EXPECT_EQ(Asked(), kNone);
  EXPECT_TRUE(winsock.lookups.empty());
  Click(ID_cmdPing);
  Click(ID_cmdGetInfo);
  EXPECT_EQ(Asked(), std::vector<uint16_t>{9000});
}

TEST_F(Form1PortTest, A_port_that_is_not_one_is_not_asked) {
  for (const wchar_t* const port : {L"0", L"-1"}) {
    Box(ID_txtTcpPortNo).SetText(port);
    Click(ID_cmdGetInfo);
  }
  EXPECT_EQ(Asked(), kNone);
}

TEST_F(Form1PortTest, The_list_is_the_same_whatever_the_port_answers) {
  form1->Results().ClearList();
  Click(ID_cmdGetInfo);
  const auto lines = List().lines;
  form1->Results().ClearList();
  winsock.ports[9000].pollsUntilEnd = 0;
  Click(ID_cmdGetInfo);
  EXPECT_EQ(List().lines, lines);
  EXPECT_TRUE(boxes.boxes.empty());
}

}  // namespace
}  // namespace tarvik::test
