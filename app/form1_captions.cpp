// The captions, as the language file gives them.

#include "app/form1.h"
#include "platform/runtime_error.h"

namespace tarvik {

void Form1::LoadCaptions() {
  // What refuses its caption keeps the one it has; the others still get theirs.
  const auto attempt = [](const auto& action) {
    try {
      action();
    } catch (const RuntimeError&) {
    }
  };
  const auto load = [&](ui::Element& control, Message message, int16_t tab = 0) {
    attempt([&] { resource_.LoadRes(control, RowOf(message).id, tab); });
  };
  attempt([&] { ground_.form.SetCaption(resource_.LoadString(RowOf(Message::WindowCaption).id)); });
  Form1Controls& c = controls_;
  load(c.mnuHelp, Message::HelpMenu);
  load(c.mnuHelpSub, Message::AboutCommand);
  load(c.mnuPMC, Message::PmcCommand);

  load(c.tabMode, Message::PingPage, kPingPage);
  load(c.tabMode, Message::NexalPage, kNexalPage);
  load(c.tabMode, Message::K7ApiPage, kK7ApiPage);
  load(c.tabMode, Message::K7SvcPage, kK7SvcPage);
  load(c.tabMode, Message::FtpPage, kFtpPage);

  load(c.lblIPAddr, Message::AddressLabel);
  load(c.lblPingReqCount, Message::PingCountLabel);
  load(c.cmdPing, Message::PingButton);
  load(c.cmdAllTest, Message::AllTestButton);

  load(c.lblNxlibTimeOut, Message::TimeOutLabel);
  load(c.lblTcpPortNo, Message::PortLabel);
  load(c.chkAccessCode, Message::AccessCodeBox);
  load(c.lblAccessCode, Message::AccessCodeLabel);
  load(c.cmdGetInfo, Message::GetInfoButton);

  load(c.lblTestCount, Message::TestCountLabel);
  load(c.cmdK7Api, Message::K7ApiButton);

  load(c.lblStatus, Message::StatusLabel);
  c.lblK7ServerStatus.SetToolTip(texts_.FromFile(Message::K7StatusTip));
  load(c.lblPcUdpSetting, Message::UdpPortLabel);
  load(c.cmdStartK7Server, Message::StartButton);
  load(c.cmdStopK7Server, Message::StopServiceButton);
  load(c.cmdK7ServerDebug, Message::DebugButton);

  load(c.lblFtpUsername, Message::UserLabel);
  load(c.lblFtpPasswd, Message::PasswordLabel);
  load(c.cmdFtpConnect, Message::FtpConnectButton);
  load(c.cmdAllFtpTest, Message::AllFtpTestButton);

  load(c.lblResult, Message::ResultLabel);
}

}  // namespace tarvik
