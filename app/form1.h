#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "about/about_box.h"
#include "about/module_check.h"
#include "app/command_line.h"
#include "app/dependencies.h"
#include "app/form1_controls.h"
#include "app/option_mask.h"
#include "cnclib/cnc_check.h"
#include "cnclib/pmc_window.h"
#include "k7/service_control.h"
#include "k7/services_file.h"
#include "k7/svc_utl.h"
#include "report/check_context.h"
#include "resources/messages.h"
#include "resources/resource.h"
#include "ui/result_list_view.h"

namespace tarvik {

/// The main window: every control, flag and event handler of the program.
class Form1 {
 public:
  explicit Form1(Dependencies dependencies);
  Form1(const Form1&) = delete;
  Form1& operator=(const Form1&) = delete;

  /// Everything from the configuration library to the auto-run. The caller shows the window afterwards,
  /// unless the auto-run has shown it.
  void Form_Load();

  /// The list into which every test reports.
  report::ResultList& Results() { return results_; }

  /// True when every one of the bits is set in the option mask.
  bool TestOptionMask(uint32_t mask) const { return optionMask_.Test(mask); }
  /// Adds the bits to the option mask.
  void SetOptionMask(uint32_t mask) { optionMask_.Set(mask); }
  bool IsOptionMask_HideK7Test() const { return TestOptionMask(kFamilyMode); }

  /// The ladder: the reachability check, then, by bits of the option mask, the other tests, up to the first
  /// that fails. While a run is active it raises the stop request instead. True when every rung passed.
  bool RunAllTests();

  /// The K7 API test of the address box's CNC; passes at once where its library is missing. A library that
  /// cannot be used is told in the standard error dialog. False after any failure.
  bool RunK7ApiTest();

 private:
  // Event handlers
  void Form_Resize();
  bool Form_QueryUnload();
  bool Form_QueryEndSession();
  void Form_EndSession();
  void Form_Unload();
  void cmbIPAddr_KeyDown(int16_t keyCode, int16_t shift);
  void cmdPing_Click();
  void cmdAllTest_Click();
  void cmdFtpConnect_Click();
  void cmdAllFtpTest_Click();
  void cmdK7Api_Click();
  void mnuHelpSub_Click();
  void cmdGetInfo_Click();
  void mnuPMC_Click();
  void lblK7ServerStatus_Click();
  /// `index`: 1 starts the service, 0 stops it.
  void cmdStartStopK7Server_Click(int16_t index);
  void cmdK7ServerDebug_Click();
  /// That of txtTcpPortNo too.
  void lblK7UdpPortNo_MouseDown(int16_t button, int16_t shift);
  void tabMode_PageFront(int page);
  void Form_Activate();
  void chkAccessCode_Click();
  void lstResult_DblClick();
  bool txtPingReqCount_Validate();
  void Form_Escape();

  /// Calls the K7 API test under the hourglass, while cmdK7Api offers the stop.
  bool WhileStopIsOffered(const std::function<bool()>& test);
  /// Carries a command to the K7 service out. `active` is true meanwhile.
  using K7ServiceCommand = std::function<void(const report::CheckContext&, SvcUtl&, const ShowServiceState&)>;
  void CommandService(bool& active, const K7ServiceCommand& command);
  bool ServiceBusy() const { return changingService_ || queryingService_; }
  /// Begins a run and calls `routine` in it; while one is active it raises the stop request instead. During a
  /// run the window refuses to close and cmdPing offers the stop. Every button that starts a test starts it
  /// this way, except cmdK7Api, whose test has its own stop.
  bool RunOutermost(const std::function<bool()>& routine);
  /// Calls `test`, then lets the pending window events run, also when it throws: what the user clicks while a
  /// library blocks the program has to reach the test before its flags are cleared. Left in the queue, a
  /// click meant as the stop would start the next test.
  bool RunToLastEvent(const std::function<bool()>& test);

  void WireEvents();
  /// Disables the window and shows the hourglass over every window of the program; false undoes both.
  void SetBusy(bool busy);
  bool RunReachabilityCheck();
  bool RunLibraryTest();
  bool RunFtpTest();
  /// One rung of the ladder, which is left out when its bit is not set. False when it failed, or was not
  /// begun because the user has asked to stop.
  bool RunRung(OptionBit bit, bool (Form1::*test)());
  CncTarget ReadCncTarget() const;

  // Start-up, in the order in which Form_Load runs them
  void ReadConfiguration();
  /// Takes language and folder from the configuration library. The library's answer about the folder.
  int32_t AskConfiguration();
  void TakeProgramFolderAndLanguage();
  void LoadLanguage();
  bool StartSockets();
  void OpenIcmp();
  void ReadCommandLine();
  void LoadCaptions();
  void CheckModules();
  void SwitchPages();
  void StartServiceControl();
  void PrefillNumbers();
  void TakeTargetFromCommandLine();
  void PrefillAccessCode();
  void PrefillFtp();
  /// The about box, made anew when there is none or the user has closed it.
  frmAbout& About();
  void UnloadAbout();
  /// Takes a state of the K7 service to its label. A pending state has no words of its own.
  void ShowK7ServiceState(int32_t status);
  /// Takes the K7 Server's port from the services file to its label, on a PC whose K7 Svc page is on.
  void CheckK7ServicesEntry();
  /// The entry's port to its label, if the services file has both.
  void ShowK7Port(const ServiceEntry& entry);
  std::wstring ServicesFile() const;
  void OpenServicesFileInEditor();
  void EndServiceControl();
  std::wstring Decoded(const std::wstring& encoded, Message failure);

  /// Keeps the list's size as laid out and the window's, from which the resize rule measures.
  void RecordInitialSizes(ui::Size window);
  /// Lays the window out anew and keeps its size where the user has made it larger.
  void LayOutAgain();
  float Twips(int pixels) const;
  int Pixels(float twips) const;

  Dependencies deps_;
  Form1Controls controls_;
  ui::ResultListView resultView_;
  report::ResultList results_;

  Boolean16 productFamily_;
  OptionMask optionMask_;
  LanguageMode languageMode_ = kLanguageFile;
  int32_t languageId_ = 0;
  std::wstring commonDataFolder_;
  Resource resource_;
  Texts texts_{languageMode_, resource_};
  report::CheckContext context_{results_, deps_.form.Boxes(), texts_, deps_.pump};
  CommandLineValues commandLine_;
  IcmpLibrary::Handle icmpHandle_ = 0;
  MissingModules missing_;
  std::vector<FoundModule> foundModules_;
  std::wstring versionReport_;  ///< empty until the about box is asked for
  std::unique_ptr<frmAbout> about_;
  Boolean16 k7ApiBusy_;
  bool changingService_ = false;    ///< Start or Stop is on the stack
  bool queryingService_ = false;    ///< Debug or a click on the state is
  std::unique_ptr<SvcUtl> svcUtl_;  ///< null in the family's edition
  bool loading_ = false;
  uint32_t nxlibOptions_ = 0;            ///< the option word that the library last returned
  std::unique_ptr<frmPmcTest> pmcTest_;  ///< null until the window is first shown

  float initialListHeight_ = 0;
  float initialListWidth_ = 0;
  float initialWindowHeight_ = 0;
  float initialWindowWidth_ = 0;
};

}  // namespace tarvik
