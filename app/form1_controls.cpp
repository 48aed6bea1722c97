// Creates the main window's controls. The members' declaration order in form1_controls.h is the tab order.

#include "app/form1_controls.h"

#include "app/control_ids.h"
#include "app/rung_names.h"
#include "resources/messages.h"

namespace tarvik {

Form1Controls::Form1Controls(ui::Form& form, bool familyEdition)
    : mnuHelp(form.AddMenu(ID_mnuHelp, Message::HelpMenu)),
      mnuHelpSub(form.AddMenuCommand(ID_mnuHelpSub, mnuHelp, Message::AboutCommand)),
      mnuPMC(form.AddMenuCommand(ID_mnuPMC, mnuHelp, Message::PmcCommand)),

      lblIPAddr(form.AddLabel(ID_lblIPAddr, ui::kNoPage, Message::AddressLabel)),
      cmbIPAddr(form.AddComboBox(ID_cmbIPAddr, ui::kNoPage, ui::ComboBoxStyle::Editable)),
      tabMode(form.AddTabStrip(ID_tabMode, {Message::PingPage, Message::NexalPage, Message::K7ApiPage,
                                            Message::K7SvcPage, Message::FtpPage})),

      lblPingReqCount(form.AddLabel(ID_lblPingReqCount, kPingPage, Message::PingCountLabel)),
      txtPingReqCount(form.AddTextBox(ID_txtPingReqCount, kPingPage, ui::TextBoxStyle::Number)),
      cmdPing(form.AddButton(ID_cmdPing, kPingPage, Message::PingButton)),
      cmdAllTest(form.AddButton(ID_cmdAllTest, kPingPage, Message::AllTestButton)),

      lblNxlibTimeOut(form.AddLabel(ID_lblNxlibTimeOut, kNexalPage, Message::TimeOutLabel)),
      txtNxlibTimeOut(form.AddTextBox(ID_txtNxlibTimeOut, kNexalPage, ui::TextBoxStyle::Number)),
      lblTcpPortNo(form.AddLabel(ID_lblTcpPortNo, kNexalPage, Message::PortLabel)),
      txtTcpPortNo(form.AddTextBox(ID_txtTcpPortNo, kNexalPage, ui::TextBoxStyle::Number)),
      chkAccessCode(form.AddCheckBox(ID_chkAccessCode, kNexalPage, Message::AccessCodeBox)),
      lblAccessCode(form.AddLabel(ID_lblAccessCode, kNexalPage, Message::AccessCodeLabel)),
      txtAccessCode(form.AddTextBox(ID_txtAccessCode, kNexalPage, ui::TextBoxStyle::Password)),
      cmdGetInfo(form.AddButton(ID_cmdGetInfo, kNexalPage, Message::GetInfoButton)),

      lblTestCount(form.AddLabel(ID_lblTestCount, kK7ApiPage, Message::TestCountLabel)),
      txtK7ApiTestCount(form.AddTextBox(ID_txtK7ApiTestCount, kK7ApiPage, ui::TextBoxStyle::Number)),
      cmdK7Api(form.AddButton(ID_cmdK7Api, kK7ApiPage, Message::K7ApiButton)),

      lblStatus(form.AddLabel(ID_lblStatus, kK7SvcPage, Message::StatusLabel)),
      lblK7ServerStatus(form.AddLabel(ID_lblK7ServerStatus, kK7SvcPage, L"---")),
      lblPcUdpSetting(form.AddLabel(ID_lblPcUdpSetting, kK7SvcPage, Message::UdpPortLabel)),
      lblK7UdpPortNo(form.AddLabel(ID_lblK7UdpPortNo, kK7SvcPage, L"---")),
      cmdStartK7Server(form.AddButton(ID_cmdStartStopK7Server_1, kK7SvcPage, Message::StartButton)),
      cmdStopK7Server(form.AddButton(ID_cmdStartStopK7Server_0, kK7SvcPage, Message::StopServiceButton)),
      cmdK7ServerDebug(form.AddButton(ID_cmdK7ServerDebug, kK7SvcPage, Message::DebugButton)),

      lblFtpUsername(form.AddLabel(ID_lblFtpUsername, kFtpPage, Message::UserLabel)),
      txtFtpUsername(form.AddTextBox(ID_txtFtpUsername, kFtpPage, ui::TextBoxStyle::Plain)),
      lblFtpPasswd(form.AddLabel(ID_lblFtpPasswd, kFtpPage, Message::PasswordLabel)),
      txtFtpPasswd(form.AddTextBox(ID_txtFtpPasswd, kFtpPage, ui::TextBoxStyle::Password)),
      cmdFtpConnect(form.AddButton(ID_cmdFtpConnect, kFtpPage, Message::FtpConnectButton)),
      cmdAllFtpTest(form.AddButton(ID_cmdAllFtpTest, kFtpPage, Message::AllFtpTestButton)),

      lblResult(form.AddLabel(ID_lblResult, ui::kNoPage, Message::ResultLabel)),
      lstResult(form.AddListBox(ID_lstResult, ui::kNoPage, L"Double click for copy to clipboard")),

      lblAnswer(form.AddLiveLabel(ID_lblAnswer)),
      sbrRungs(form.AddStatusBar(ID_sbrRungs, static_cast<int>(RungNames(familyEdition).size()))) {
  form.SetCaption(RowOf(Message::WindowCaption).english);
  cmdGetInfo.SetCaption(L"&GetNcInfo");
  txtPingReqCount.SetText(L"4");
  txtTcpPortNo.SetText(L"8193");
  txtNxlibTimeOut.SetText(L"10");
  txtK7ApiTestCount.SetText(L"10");
  txtAccessCode.SetEnabled(false);
}

}  // namespace tarvik
