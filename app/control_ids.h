#pragma once

// The ids of all controls and menu commands. Never change a number: tests, screen-reader scripts and other
// programs find the controls by them.

namespace tarvik {

enum ControlId : int {
  // Form1: menu commands
  ID_mnuHelp = 1001,
  ID_mnuHelpSub = 1002,
  ID_mnuPMC = 1003,
  ID_mnuCopyLine = 1004,
  ID_mnuCopyAll = 1005,
  ID_mnuCopyReport = 1006,
  ID_mnuSaveReport = 1007,
  ID_mnuExplain = 1008,
  ID_mnuClearList = 1009,

  // Form1: outside the pages
  ID_lblIPAddr = 1101,
  ID_cmbIPAddr = 1102,
  ID_tabMode = 1103,
  ID_lblResult = 1104,
  ID_lstResult = 1105,

  // Form1: Ping page
  ID_lblPingReqCount = 1201,
  ID_txtPingReqCount = 1202,
  ID_cmdPing = 1203,
  ID_cmdAllTest = 1204,

  // Form1: NEXAL2 page
  ID_lblNxlibTimeOut = 1301,
  ID_txtNxlibTimeOut = 1302,
  ID_lblTcpPortNo = 1303,
  ID_txtTcpPortNo = 1304,
  ID_chkAccessCode = 1305,
  ID_lblAccessCode = 1306,
  ID_txtAccessCode = 1307,
  ID_cmdGetInfo = 1308,

  // Form1: K7 Api page
  ID_lblTestCount = 1401,
  ID_txtK7ApiTestCount = 1402,
  ID_cmdK7Api = 1403,

  // Form1: K7 Svc page
  ID_lblStatus = 1501,
  ID_lblK7ServerStatus = 1502,
  ID_lblPcUdpSetting = 1503,
  ID_lblK7UdpPortNo = 1504,
  ID_cmdStartStopK7Server_0 = 1505,  ///< stops the service
  ID_cmdStartStopK7Server_1 = 1506,  ///< starts the service
  ID_cmdK7ServerDebug = 1507,

  // Form1: Ftp page
  ID_lblFtpUsername = 1601,
  ID_txtFtpUsername = 1602,
  ID_lblFtpPasswd = 1603,
  ID_txtFtpPasswd = 1604,
  ID_cmdFtpConnect = 1605,
  ID_cmdAllFtpTest = 1606,

  // frmAbout
  ID_lblTitle = 2001,
  ID_lblVersion = 2002,
  ID_lblModules = 2003,
  ID_cmdOK = 2004,
  ID_cmdSysInfo = 2005,
  ID_lblOsVersion = 2006,
  ID_lblMissing = 2007,

  // frmPmcTest
  ID_Label1_0 = 3001,
  ID_Label1_1 = 3002,
  ID_Label1_2 = 3003,
  ID_Label1_3 = 3004,
  ID_Label1_4 = 3005,
  ID_Label1_5 = 3006,
  ID_Label1_6 = 3007,
  ID_cmbPmcAddr = 3101,
  ID_txtPmcStart = 3102,
  ID_txtPmcLen = 3103,
  ID_txtCount = 3104,
  ID_txtSleep = 3105,
  ID_lblCount = 3106,
  ID_lstData = 3107,
  ID_pmc_lstResult = 3108,
  ID_cmdRead = 3109,
  ID_cmdStop = 3110,
  ID_cmdClose = 3111,

  // Form1: the answer
  ID_lblAnswer = 1701,
  ID_sbrRungs = 1702,

  // frmExplain
  ID_txtExplanation = 4001,
};

}  // namespace tarvik
