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
#include "app/explain_subject.h"
#include "app/explain_window.h"
#include "app/form1_controls.h"
#include "app/option_mask.h"
#include "cnclib/cnc_check.h"
#include "cnclib/pmc_window.h"
#include "k7/service_control.h"
#include "k7/services_file.h"
#include "k7/svc_utl.h"
#include "report/check_context.h"
#include "report/explanations.h"
#include "report/recorded_boxes.h"
#include "report/report_source.h"
#include "report/run_recorder.h"
#include "resources/messages.h"
#include "resources/resource.h"
#include "ui/result_list_view.h"

namespace tarvik {

/// The timers of the main window (ui::Form::StartTimer).
enum Form1Timer : int {
  kBriefTimer,    ///< ends a sentence that is shown briefly
  kLongRunTimer,  ///< a run takes long enough to be shown on the taskbar
};

/// The main window: its controls, event handlers and state. Owns the secondary windows.
class Form1 {
 public:
  /// Creates and lays out the controls; Form_Load does the rest of the start-up.
  explicit Form1(Dependencies dependencies);
  Form1(const Form1&) = delete;
  Form1& operator=(const Form1&) = delete;

  /// Runs the start-up steps, from reading the configuration to showing the K7 Server's port, which follows
  /// the auto-run. Ends early when StartSockets fails. Afterwards the caller shows the window, unless the
  /// auto-run has done so.
  void Form_Load();

  /// The list to which every test reports.
  report::ResultList& Results() { return results_; }

  /// True when all bits of `mask` are set in the option mask.
  bool TestOptionMask(uint32_t mask) const { return optionMask_.Test(mask); }
  /// Adds the bits to the option mask.
  void SetOptionMask(uint32_t mask) { optionMask_.Set(mask); }
  bool IsOptionMask_HideK7Test() const { return TestOptionMask(kFamilyMode); }

  /// Runs the ladder: the reachability check, then the other tests that the option mask selects, up to the
  /// first failure. True when every rung passed. During a run, requests a stop instead and returns false.
  bool RunAllTests();

  /// Runs the K7 API test against the CNC in the address box. True when the test passed, or was skipped
  /// because start-up did not find the library. A library that was found but cannot be used is reported in
  /// the standard error dialog.
  bool RunK7ApiTest();

 private:
  // Event handlers
  void Form_Resize();
  bool Form_QueryUnload();
  bool Form_QueryEndSession();
  void Form_EndSession();
  void Form_Unload();
  void cmbIPAddr_KeyDown(int16_t keyCode, int16_t shift);
  void cmbIPAddr_Change(const std::wstring& text);
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
  /// Also handles txtTcpPortNo.
  void lblK7UdpPortNo_MouseDown(int16_t button, int16_t shift);
  void tabMode_PageFront(int page);
  void Form_Activate();
  void chkAccessCode_Click();
  void lstResult_DblClick();
  bool txtPingReqCount_Validate();
  void Form_Escape();

  /// Calls `test`, the K7 API test. During the call the hourglass is shown and cmdK7Api is the stop button.
  bool RunWithStopButton(const std::function<bool()>& test);
  using K7ServiceCommand = std::function<void(const report::CheckContext&, SvcUtl&, const ShowServiceState&)>;
  /// Calls `command`, with `active` true until it returns or throws. Does nothing in the family edition or
  /// without the service-setup library.
  void RunServiceCommand(bool& active, const K7ServiceCommand& command);
  bool ServiceBusy() const { return changingService_ || queryingService_; }
  /// Calls `routine` as a run and returns its result. During a run the window refuses to close and cmdPing is
  /// the stop button. If a run is active already, requests its stop instead and returns false. Every test
  /// button uses this, except cmdK7Api, whose test has its own stop.
  /// `rungs`: those that the routine tests.
  bool RunOutermost(const std::vector<report::Rung>& rungs, const std::function<bool()>& routine);
  /// Calls `routine`, which tests the rungs, as a run of the recorder. Inside another run, as a part of it.
  bool Recorded(const std::vector<report::Rung>& rungs, const std::function<bool()>& routine);
  report::RunSettings ReadRunSettings() const;
  /// Shows what the recorder's run means: the sentence and a mark for each rung.
  void ShowAnswer();
  void ShowSentence(const std::wstring& sentence);
  /// Shows a text for three seconds in place of the sentence.
  void ShowBriefly(const std::wstring& text);
  /// Reports for three seconds how many lines were copied.
  void ShowCopied(size_t lines);
  /// Calls `test`, then handles all pending window events, even if it throws. A click made while a library
  /// blocked the program must be handled before the test's flags are cleared. Otherwise a click meant as a
  /// stop would start the next test.
  bool RunThenDrainEvents(const std::function<bool()>& test);

  /// Calls `run`. While it takes long the taskbar shows it, and after a failure the taskbar shows that until
  /// the window is active. A run inside another does not show itself.
  bool ShowOnTaskbar(const std::function<bool()>& run);

  void WireEvents();
  /// True disables this window and shows the hourglass over every window of the program; false undoes both.
  void SetBusy(bool busy);
  bool RunReachabilityCheck();
  bool RunLibraryTest();
  bool RunFtpTest();
  /// A second look after a test that could not connect: asks that TCP port of the target how it answers.
  /// Leaves `answer` when `address` is a name whose address is not known.
  void LookAtPort(std::wstring address, int32_t port, report::PortAnswer& answer);
  /// Runs one rung of the ladder if its option bit is set. False when a stop was requested before it or the
  /// test failed; otherwise true.
  bool RunIfSelected(OptionBit bit, bool (Form1::*test)());
  CncTarget ReadCncTarget() const;

  // Start-up, in the order in which Form_Load runs them
  void ReadConfiguration();
  /// Reads language and folder from the configuration library. Returns the result of GetCommonDataFolder2;
  /// 0 = success.
  int32_t QueryConfiguration();
  void UseProgramFolderAndWindowsLanguage();
  void LoadLanguage();
  /// Calls WSAStartup and lists what it reports. False only for the result -1; start-up then ends.
  bool StartSockets();
  void OpenIcmp();
  void ReadCommandLine();
  void LoadCaptions();
  report::AnswerLanguage Language() const;
  bool TextsAreJapanese() const;
  void CheckModules();
  /// Hides the two K7 pages in family mode; otherwise does nothing.
  void SwitchK7PagesOff();
  void StartServiceControl();
  void PrefillNumbers();
  /// Runs the ladder against the command line's target, after filling in what its rungs need.
  void AutoRun();
  void PrefillAccessCode();
  void PrefillFtp();
  /// One line per optional module that was not found, with what that hides; each ends in "\r\n".
  std::wstring MissingReport() const;
  /// The about box. Created on first use, and again after the user has closed it.
  frmAbout& About();
  /// Destroys the about box. One that was never opened is created first.
  void UnloadAbout();
  /// Shows a state of the K7 service, one of SvcUtl's pSvcCond values, in its label. Only "running" and
  /// "stopped" change the label.
  void ShowK7ServiceState(int32_t status);
  /// Shows the K7 Server's port from the services file in its label, unless the K7 Svc page is off.
  void CheckK7ServicesEntry();
  /// The K7 Server's entry of the services file, as far as it can be read. Shows no message box.
  ServiceEntry ReadK7Entry();
  /// Shows the entry's port in its label, if the services file has the name and the port.
  void ShowK7Port(const ServiceEntry& entry);
  std::wstring ServicesFile() const;
  void OpenServicesFileInEditor();
  void EndServiceControl();
  /// The decoded secret. Empty when `encoded` is empty, and after showing `failure` when it is undecodable.
  std::wstring Decoded(const std::wstring& encoded, Message failure);

  /// Records the minimum window size and the list's size at it, from which Form_Resize derives the list's
  /// size.
  void RecordInitialSizes(ui::Size window);
  /// Lays the window out for the present captions and scaling. A size that the user has enlarged is kept.
  void UpdateLayout();
  /// Sets how far the result list scrolls sideways, from its width at the current scaling.
  void SetListExtent();
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
  report::RunRecorder recorder_{deps_.pump};
  report::RecordedBoxes boxes_{deps_.form.Boxes(), recorder_};
  report::CheckContext context_{results_, boxes_, texts_, deps_.pump, recorder_};
  CommandLineValues commandLine_;
  IcmpLibrary::Handle icmpHandle_ = 0;
  MissingModules missing_;
  std::vector<FoundModule> foundModules_;
  std::vector<std::wstring> notFoundModules_;
  std::wstring versionReport_;  ///< empty until the about box is first opened
  std::unique_ptr<frmAbout> about_;
  Boolean16 k7ApiBusy_;
  bool shownOnTaskbar_ = false;     ///< a run is inside ShowOnTaskbar
  bool changingService_ = false;    ///< Start or Stop is active
  bool queryingService_ = false;    ///< Debug or a status query is active
  std::unique_ptr<SvcUtl> svcUtl_;  ///< null in the family edition
  bool loading_ = false;
  uint32_t nxlibOptions_ = 0;            ///< the option word that the CNC library last returned
  std::unique_ptr<frmPmcTest> pmcTest_;  ///< null until the window is first shown

  // The commands of the result list
  void WireCommands();
  bool RunActive() const { return deps_.flags.busy || k7ApiBusy_; }
  void CopyLine();
  void CopyAllLines();
  void CopyReport();
  void SaveReport();
  /// Explains what the user looks at in the result list.
  void Explain();
  /// What the report says besides the run and its answer, to both of which the result refers.
  report::ReportSource MakeReportSource(const report::Run& run, const report::Answer& answer);
  /// Where the save dialog begins: the folder last used, otherwise the desktop. Always on a drive of this PC.
  std::wstring FolderForReports();
  /// Each optional library with its version. Reads them from the files on the first call.
  const std::vector<std::wstring>& LibraryVersions();
  /// A server may repeat the FTP name and password of a run in its replies.
  void KeepSecrets();

  std::vector<std::wstring> libraryVersions_;  ///< empty until the first report
  std::vector<std::wstring> secrets_;          ///< typed for the runs so far
  bool saving_ = false;                        ///< the save dialog is open, or about to open
  std::wstring reportFolder_;                  ///< of the last report that was saved on a drive of this PC

  // Explain (F1)
  void WireExplain();
  /// The explanations inside the program. Read at the first call.
  const report::Explanations& KnownExplanations();
  /// Explains the status bar's field.
  void ExplainField(int field);
  /// Explains a message box that is open.
  void ExplainBox(const std::wstring& text);
  /// Shows what `find` finds, with the numbers of the run.
  void ShowExplanation(const report::Run& run,
                       const std::function<report::FoundExplanation(const ExplainSubject& subject)>& find);
  /// The line that the user has selected; -1 = none, or the selection was moved since by the program or by
  /// another one.
  int LineSelectedByUser() const;
  /// A secondary window. There F1 means the same, and explains its message boxes.
  std::unique_ptr<ui::Form> NewForm(const wchar_t* windowClass);

  std::unique_ptr<report::Explanations> explanations_;  ///< null until they are first needed
  std::unique_ptr<frmExplain> explain_;                 ///< null until F1 is first pressed
  int selectedLine_ = -1;  ///< the line that the user selected last, unless a line was added since
  std::wstring selectedText_;
  bool linesArePasted_ = false;  ///< the list shows what another Tarvik has copied

  // In twips (1/1440 inch), so that they hold at every scaling.
  float initialListHeight_ = 0;
  float initialListWidth_ = 0;
  float initialWindowHeight_ = 0;
  float initialWindowWidth_ = 0;
};

}  // namespace tarvik
