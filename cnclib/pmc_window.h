#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "cnclib/cnc_connection.h"
#include "cnclib/cnc_library.h"
#include "cnclib/pmc_controls.h"
#include "platform/code_page.h"
#include "platform/system.h"
#include "report/pump.h"
#include "resources/messages.h"
#include "ui/form.h"

namespace tarvik {

/// The PMC read test window: reads one range of PMC data repeatedly and logs the result of each read. It is
/// modeless and reads from the controller that is entered in the main window.
///
/// Dormant: its menu command is hidden, so it opens only for a program that sends the command.
class frmPmcTest {
 public:
  /// `form`: a new window. `target`: returns the controller entered in the main window; called at each run.
  frmPmcTest(std::unique_ptr<ui::Form> form, const Texts& texts, report::Pump& pump, CncLibrary& library,
             CodePage& codePage, System& system, std::function<CncTarget()> target);
  frmPmcTest(const frmPmcTest&) = delete;
  frmPmcTest& operator=(const frmPmcTest&) = delete;

  void Show() { form_->Show(); }
  void MakeTopmost() { form_->MakeTopmost(); }
  void SetPointer(ui::Pointer pointer) { form_->SetPointer(pointer); }
  /// True when the user has closed the window, which may then be destroyed.
  bool Unloaded() const { return unloaded_ && !running_; }
  /// True during a read run, when the window does not close and must not be destroyed.
  bool Running() const { return running_; }

 private:
  /// One read run: during its lifetime the window offers Stop and does not close.
  class ReadRun {
   public:
    explicit ReadRun(frmPmcTest& window);
    ~ReadRun();
    ReadRun(const ReadRun&) = delete;
    ReadRun& operator=(const ReadRun&) = delete;

   private:
    frmPmcTest& window_;
    bool focusWasOnRead_ = false;
  };
  struct Range {
    int16_t start;
    int16_t length;
  };

  void Form_Load();
  void Form_Resize();
  void Form_ScalingChanged();
  void cmdRead_Click();
  void cmdStop_Click() { stopRequested_ = true; }
  void cmdClose_Click() { form_->Close(); }
  void Form_Escape();

  void LoadCaptions();
  void Read();
  /// Reads once, reports it and lets events run.
  void ReadPmcOnce(CncLibrary::Handle handle, int32_t pass);
  void ShowData(const CncPmcRange& range, int16_t length);
  void AddVerdict(int32_t pass, const std::wstring& verdict);
  bool StopRequested() const { return stopRequested_ || pump_.StopRequested(); }

  // The values typed in the boxes; nothing, after a message box, when they are not acceptable.
  std::optional<int16_t> ReadLength();
  std::optional<Range> ReadRange();
  /// The range of the next pass. A box without an acceptable number, perhaps half typed, keeps its last valid
  /// value, because rejecting it would end a long run.
  Range RangeOfPass() const;
  std::optional<int32_t> ReadNumber(ui::TextBox& box, const ui::Label& label, int32_t minimum,
                                    int32_t maximum);

  std::unique_ptr<ui::Form> form_;
  const Texts& texts_;
  report::Pump& pump_;
  CncLibrary& library_;
  CodePage& codePage_;
  System& system_;
  PmcTestControls controls_;
  std::function<CncTarget()> target_;
  Range lastValid_{};  ///< range of the latest pass of the run
  bool stopRequested_ = false;
  bool running_ = false;
  bool unloaded_ = false;
};

}  // namespace tarvik
