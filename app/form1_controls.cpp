// Creates the main window's controls. The members' declaration order in form1_controls.h is the tab order.

#include "app/form1_controls.h"

#include "app/control_ids.h"
#include "app/rung_names.h"
#include "platform/runtime_error.h"
#include "resources/messages.h"

namespace tarvik {
namespace {

/// The commands of the result list, in the order of their ids.
struct CommandCaption {
  const wchar_t* english;
  const wchar_t* japanese;
};
constexpr CommandCaption kCommandCaptions[] = {
    {L"&Copy line\tCtrl+C", L"行をコピー(&C)\tCtrl+C"},
    {L"Copy a&ll lines", L"すべての行をコピー(&L)"},
    {L"Copy &report\tCtrl+Shift+C", L"レポートをコピー(&R)\tCtrl+Shift+C"},
    {L"&Save report...\tCtrl+S", L"レポートを保存(&S)...\tCtrl+S"},
    {L"&Explain\tF1", L"説明(&E)\tF1"},
    {L"Clear lis&t", L"結果欄を消去(&T)"},
};

constexpr int16_t kF1 = 0x70;

ui::MenuItem& AddListCommand(ui::Form& form, ui::MenuItem& menu, int id) {
  if (id == ID_mnuCopyLine || id == ID_mnuClearList) form.AddMenuSeparator(menu);
  return form.AddMenuCommand(id, menu, std::wstring(kCommandCaptions[id - ID_mnuCopyLine].english));
}

}  // namespace

Form1Controls::Form1Controls(ui::Form& form, bool familyEdition)
    : mnuHelp(form.AddMenu(ID_mnuHelp, Message::HelpMenu)),
      mnuHelpSub(form.AddMenuCommand(ID_mnuHelpSub, mnuHelp, Message::AboutCommand)),
      mnuPMC(form.AddMenuCommand(ID_mnuPMC, mnuHelp, Message::PmcCommand)),
      mnuCopyLine(AddListCommand(form, mnuHelp, ID_mnuCopyLine)),
      mnuCopyAll(AddListCommand(form, mnuHelp, ID_mnuCopyAll)),
      mnuCopyReport(AddListCommand(form, mnuHelp, ID_mnuCopyReport)),
      mnuSaveReport(AddListCommand(form, mnuHelp, ID_mnuSaveReport)),
      mnuExplain(AddListCommand(form, mnuHelp, ID_mnuExplain)),
      mnuClearList(AddListCommand(form, mnuHelp, ID_mnuClearList)),

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
  mnuCopyLine.shortcut = {L'C', ui::kCtrlHeld, &lstResult};
  mnuCopyReport.shortcut = {L'C', ui::kCtrlHeld + ui::kShiftHeld, nullptr};
  mnuSaveReport.shortcut = {L'S', ui::kCtrlHeld, nullptr};
  mnuExplain.shortcut = {kF1, 0, nullptr};
  lstResult.contextMenu = {&mnuCopyLine, &mnuCopyAll, &mnuCopyReport, &mnuSaveReport,
                           &mnuExplain,  nullptr,     &mnuClearList};
}

void Form1Controls::ShowCommandCaptions(report::AnswerLanguage language) {
  const CommandCaption* caption = kCommandCaptions;
  for (ui::MenuItem* const command : lstResult.contextMenu) {
    if (command == nullptr) continue;
    const bool japanese = language == report::AnswerLanguage::Japanese;
    const wchar_t* const text = japanese ? caption->japanese : caption->english;
    ++caption;
    try {
      if (command->Caption() != text) command->SetCaption(text);
    } catch (const RuntimeError&) {
      // The others must still get theirs.
    }
  }
}

}  // namespace tarvik
