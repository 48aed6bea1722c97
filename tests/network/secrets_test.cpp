// Access code and password on the command line, and password boxes.

#include "tests/network/lab_fixture.h"

namespace tarvik::lab {
namespace {

constexpr uint32_t kPasswordStyle = 0x20;  // ES_PASSWORD

/// The bench's code-conversion library reads a secret backwards and rejects one that begins with "!".
class CommandLineSecrets : public LabTest<CommandLineSecrets> {
 protected:
  void SetUp() override {
    LabTest::SetUp();
    // Ends the run at its first step.
    if (!IsSkipped()) Net().PullCable(Host::Near);
  }

  /// The main window after the run that starts by itself. Message boxes are kept in `boxes_`.
  WindowUnderTest RunWith(const std::string& commandLine) {
    StartOnly("-PING_N 1 " + commandLine);
    Listener listener;
    listener.onBox = [this](const BoxUnderTest& box) { boxes_.push_back(box.text); };
    const WindowUnderTest window = WaitForMainWindow(Program(), listener);
    FollowRun(Program(), window, kRunTimeOut, listener);
    return window;
  }

  Lines boxes_;
};

TEST_F(CommandLineSecrets, Option_2_fills_in_the_access_code_and_ticks_its_box) {
  const WindowUnderTest window = RunWith("-X 2 192.168.1.100;4321");
  EXPECT_EQ(window.Text(ID_txtAccessCode), "1234");
  EXPECT_TRUE(window.Checked(ID_chkAccessCode));
  EXPECT_TRUE(window.Enabled(ID_txtAccessCode));
  EXPECT_EQ(window.StateOfTabs(ID_tabMode).front, 0);
  EXPECT_EQ(window.Text(ID_cmbIPAddr), "192.168.1.100");
  EXPECT_TRUE(boxes_.empty());
}

TEST_F(CommandLineSecrets, Without_an_access_code_its_box_stays_empty_and_unticked) {
  const WindowUnderTest window = RunWith("-X 2 192.168.1.100");
  EXPECT_EQ(window.Text(ID_txtAccessCode), "");
  EXPECT_FALSE(window.Checked(ID_chkAccessCode));
  EXPECT_FALSE(window.Enabled(ID_txtAccessCode));
}

TEST_F(CommandLineSecrets, Without_option_2_the_access_code_is_not_filled_in) {
  EXPECT_EQ(RunWith("192.168.1.100;4321").Text(ID_txtAccessCode), "");
}

TEST_F(CommandLineSecrets, Option_8_fills_in_user_and_password_and_brings_their_page_to_the_front) {
  const WindowUnderTest window = RunWith("-X 8 -FTP_USER cnc -FTP_PASSWD terces 192.168.1.100");
  EXPECT_EQ(window.Text(ID_txtFtpUsername), "cnc");
  EXPECT_EQ(window.Text(ID_txtFtpPasswd), "secret");
  EXPECT_TRUE(window.Visible(ID_cmdFtpConnect));
}

TEST_F(CommandLineSecrets, With_both_options_the_Ftp_page_is_in_front) {
  const WindowUnderTest window = RunWith("-X 10 -FTP_USER cnc -FTP_PASSWD terces 192.168.1.100;4321");
  EXPECT_EQ(window.Text(ID_txtAccessCode), "1234");
  EXPECT_EQ(window.Text(ID_txtFtpPasswd), "secret");
  EXPECT_TRUE(window.Visible(ID_cmdFtpConnect));
  EXPECT_FALSE(window.Visible(ID_cmdPing));
}

TEST_F(CommandLineSecrets, An_undecodable_secret_is_reported_and_left_empty) {
  const WindowUnderTest window = RunWith("-X 10 -FTP_USER cnc -FTP_PASSWD !terces 192.168.1.100;!4321");
  EXPECT_EQ(boxes_, (Lines{"The access code on the command line cannot be decoded.",
                           "The FTP password on the command line cannot be decoded."}));
  EXPECT_EQ(window.Text(ID_txtAccessCode), "");
  EXPECT_FALSE(window.Checked(ID_chkAccessCode));
  EXPECT_EQ(window.Text(ID_txtFtpUsername), "cnc");
  EXPECT_EQ(window.Text(ID_txtFtpPasswd), "");
}

TEST_F(CommandLineSecrets, An_undecodable_secret_is_reported_in_Japanese) {
  RunWith("-LOCALEID 1041 -X 10 -FTP_PASSWD !terces 192.168.1.100;!4321");
  EXPECT_EQ(boxes_,
            (Lines{"ｺﾏﾝﾄﾞﾗｲﾝのｱｸｾｽｺｰﾄﾞを復号できません。", "ｺﾏﾝﾄﾞﾗｲﾝのFTPﾊﾟｽﾜｰﾄﾞを復号できません。"}));
}

TEST_F(CommandLineSecrets, Passwords_are_hidden) {
  const WindowUnderTest window = Start();
  EXPECT_TRUE(window.Style(ID_txtAccessCode) & kPasswordStyle);
  EXPECT_TRUE(window.Style(ID_txtFtpPasswd) & kPasswordStyle);
}

TEST_F(CommandLineSecrets, Option_64_shows_passwords) {
  const WindowUnderTest window = Start("-X 64 -X");
  EXPECT_FALSE(window.Style(ID_txtAccessCode) & kPasswordStyle);
  EXPECT_FALSE(window.Style(ID_txtFtpPasswd) & kPasswordStyle);
}

}  // namespace
}  // namespace tarvik::lab
