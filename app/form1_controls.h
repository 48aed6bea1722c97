#pragma once

#include "report/finding_texts.h"
#include "ui/form.h"

namespace tarvik {

/// The pages of `tabMode`. Switching a page off does not renumber the others.
enum Page : int { kPingPage, kNexalPage, kK7ApiPage, kK7SvcPage, kFtpPage, kPageCount };

/// Every control and menu command of the main window, created in tab order. Captions are the built-in English
/// ones until LoadCaptions replaces them.
struct Form1Controls {
  Form1Controls(ui::Form& form, bool familyEdition);

  ui::MenuItem& mnuHelp;
  ui::MenuItem& mnuHelpSub;
  ui::MenuItem& mnuPMC;
  ui::MenuItem& mnuCopyLine;
  ui::MenuItem& mnuCopyAll;
  ui::MenuItem& mnuCopyReport;
  ui::MenuItem& mnuSaveReport;
  ui::MenuItem& mnuExplain;
  ui::MenuItem& mnuClearList;

  ui::Label& lblIPAddr;
  ui::ComboBox& cmbIPAddr;
  ui::TabStrip& tabMode;

  ui::Label& lblPingReqCount;
  ui::TextBox& txtPingReqCount;
  ui::Button& cmdPing;
  ui::Button& cmdAllTest;

  ui::Label& lblNxlibTimeOut;
  ui::TextBox& txtNxlibTimeOut;
  ui::Label& lblTcpPortNo;
  ui::TextBox& txtTcpPortNo;
  ui::CheckBox& chkAccessCode;
  ui::Label& lblAccessCode;
  ui::TextBox& txtAccessCode;
  ui::Button& cmdGetInfo;

  ui::Label& lblTestCount;
  ui::TextBox& txtK7ApiTestCount;
  ui::Button& cmdK7Api;

  ui::Label& lblStatus;
  ui::Label& lblK7ServerStatus;
  ui::Label& lblPcUdpSetting;
  ui::Label& lblK7UdpPortNo;
  ui::Button& cmdStartK7Server;  ///< cmdStartStopK7Server, index 1
  ui::Button& cmdStopK7Server;   ///< cmdStartStopK7Server, index 0
  ui::Button& cmdK7ServerDebug;

  ui::Label& lblFtpUsername;
  ui::TextBox& txtFtpUsername;
  ui::Label& lblFtpPasswd;
  ui::TextBox& txtFtpPasswd;
  ui::Button& cmdFtpConnect;
  ui::Button& cmdAllFtpTest;

  ui::Label& lblResult;
  ui::ListBox& lstResult;

  ui::Label& lblAnswer;     ///< right of lblResult: what the last run means
  ui::StatusBar& sbrRungs;  ///< one field per rung of this edition

  /// Gives the commands of the result list their captions, which need no language file. A command whose
  /// caption cannot be set keeps the old one.
  void ShowCommandCaptions(report::AnswerLanguage language);
};

}  // namespace tarvik
