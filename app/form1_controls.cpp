#include "app/form1_controls.h"

#include "app/control_ids.h"
#include "resources/messages.h"

namespace tarvik {
namespace {

const wchar_t* English(Message message) { return RowOf(message).english; }

}  // namespace

Form1Controls::Form1Controls(ui::Form& form)
    : mnuHelp(form.AddMenu(ID_mnuHelp, English(Message::HelpMenu))),
      mnuHelpSub(form.AddMenuCommand(ID_mnuHelpSub, mnuHelp, English(Message::AboutCommand))),
      mnuPMC(form.AddMenuCommand(ID_mnuPMC, mnuHelp, English(Message::PmcCommand))),

      lblIPAddr(form.AddLabel(ID_lblIPAddr, ui::kNoPage, English(Message::AddressLabel))),
      cmbIPAddr(form.AddComboBox(ID_cmbIPAddr, ui::kNoPage, ui::ComboBoxStyle::Editable)),
      tabMode(form.AddTabStrip(
          ID_tabMode, {English(Message::PingPage), English(Message::NexalPage), English(Message::K7ApiPage),
                       English(Message::K7SvcPage), English(Message::FtpPage)})),

      lblPingReqCount(form.AddLabel(ID_lblPingReqCount, kPingPage, English(Message::PingCountLabel))),
      txtPingReqCount(form.AddTextBox(ID_txtPingReqCount, kPingPage, ui::TextBoxStyle::Plain)),
      cmdPing(form.AddButton(ID_cmdPing, kPingPage, English(Message::PingButton))),
      cmdAllTest(form.AddButton(ID_cmdAllTest, kPingPage, English(Message::AllTestButton))),

      lblNxlibTimeOut(form.AddLabel(ID_lblNxlibTimeOut, kNexalPage, English(Message::TimeOutLabel))),
      txtNxlibTimeOut(form.AddTextBox(ID_txtNxlibTimeOut, kNexalPage, ui::TextBoxStyle::Plain)),
      lblTcpPortNo(form.AddLabel(ID_lblTcpPortNo, kNexalPage, English(Message::PortLabel))),
      txtTcpPortNo(form.AddTextBox(ID_txtTcpPortNo, kNexalPage, ui::TextBoxStyle::Plain)),
      chkAccessCode(form.AddCheckBox(ID_chkAccessCode, kNexalPage, English(Message::AccessCodeBox))),
      lblAccessCode(form.AddLabel(ID_lblAccessCode, kNexalPage, English(Message::AccessCodeLabel))),
      txtAccessCode(form.AddTextBox(ID_txtAccessCode, kNexalPage, ui::TextBoxStyle::Password)),
      cmdGetInfo(form.AddButton(ID_cmdGetInfo, kNexalPage, L"&GetNcInfo")),

      lblTestCount(form.AddLabel(ID_lblTestCount, kK7ApiPage, English(Message::TestCountLabel))),
      txtK7ApiTestCount(form.AddTextBox(ID_txtK7ApiTestCount, kK7ApiPage, ui::TextBoxStyle::Plain)),
      cmdK7Api(form.AddButton(ID_cmdK7Api, kK7ApiPage, English(Message::K7ApiButton))),

      lblStatus(form.AddLabel(ID_lblStatus, kK7SvcPage, English(Message::StatusLabel))),
      lblK7ServerStatus(form.AddLabel(ID_lblK7ServerStatus, kK7SvcPage, L"---")),
      lblPcUdpSetting(form.AddLabel(ID_lblPcUdpSetting, kK7SvcPage, English(Message::UdpPortLabel))),
      lblK7UdpPortNo(form.AddLabel(ID_lblK7UdpPortNo, kK7SvcPage, L"---")),
      cmdStartK7Server(form.AddButton(ID_cmdStartStopK7Server_1, kK7SvcPage, English(Message::StartButton))),
      cmdStopK7Server(
          form.AddButton(ID_cmdStartStopK7Server_0, kK7SvcPage, English(Message::StopServiceButton))),
      cmdK7ServerDebug(form.AddButton(ID_cmdK7ServerDebug, kK7SvcPage, English(Message::DebugButton))),

      lblFtpUsername(form.AddLabel(ID_lblFtpUsername, kFtpPage, English(Message::UserLabel))),
      txtFtpUsername(form.AddTextBox(ID_txtFtpUsername, kFtpPage, ui::TextBoxStyle::Plain)),
      lblFtpPasswd(form.AddLabel(ID_lblFtpPasswd, kFtpPage, English(Message::PasswordLabel))),
      txtFtpPasswd(form.AddTextBox(ID_txtFtpPasswd, kFtpPage, ui::TextBoxStyle::Password)),
      cmdFtpConnect(form.AddButton(ID_cmdFtpConnect, kFtpPage, English(Message::FtpConnectButton))),
      cmdAllFtpTest(form.AddButton(ID_cmdAllFtpTest, kFtpPage, English(Message::AllFtpTestButton))),

      lblResult(form.AddLabel(ID_lblResult, ui::kNoPage, English(Message::ResultLabel))),
      lstResult(form.AddListBox(ID_lstResult, ui::kNoPage, L"Double click for copy to clipboard")) {
  form.SetCaption(English(Message::WindowCaption));
  txtPingReqCount.SetText(L"4");
  txtTcpPortNo.SetText(L"8193");
  txtNxlibTimeOut.SetText(L"10");
  txtK7ApiTestCount.SetText(L"10");
  txtAccessCode.SetEnabled(false);
}

}  // namespace tarvik
