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

/// The PMC read test window: reads one range of PMC data again and again and keeps a log of how that went.
/// It stands beside the main window, which stays usable, and which it asks for the controller to talk to.
class frmPmcTest {
 public:
  /// `form`: a new window. `target`: the controller of the main window's boxes, asked for at each run.
  frmPmcTest(std::unique_ptr<ui::Form> form, const Texts& texts, report::Pump& pump, CncLibrary& library,
             CodePage& codePage, System& system, std::function<CncTarget()> target);
  frmPmcTest(const frmPmcTest&) = delete;
  frmPmcTest& operator=(const frmPmcTest&) = delete;

  void Show() { form_->Show(); }
  void MakeTopmost() { form_->MakeTopmost(); }
  void SetPointer(ui::Pointer pointer) { form_->SetPointer(pointer); }
  /// The user has closed the window; it can be let go of.
  bool Unloaded() const { return unloaded_ && !running_; }
  /// A read run is active. The window refuses to close, and must not be let go of.
  bool Running() const { return running_; }

 private:
  /// One read run: while it lives the window offers the stop and refuses to close.
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

  // What the boxes hold. Nothing when it is refused; the user has been told then.
  std::optional<int16_t> ReadLength();
  std::optional<Range> ReadRange();
  /// The range of the next pass. A box that holds no acceptable number, half typed perhaps, counts with its
  /// last good value: a box refused in the middle of a long run would end it.
  Range RangeOfPass() const;
  std::optional<int32_t> ReadNumber(ui::TextBox& box, const ui::Label& label, int32_t least, int32_t most);

  std::unique_ptr<ui::Form> form_;
  const Texts& texts_;
  report::Pump& pump_;
  CncLibrary& library_;
  CodePage& codePage_;
  System& system_;
  PmcTestControls controls_;
  std::function<CncTarget()> target_;
  Range lastGood_{};  ///< range of the latest pass of the run
  bool stopRequested_ = false;
  bool running_ = false;
  bool unloaded_ = false;
};

}  // namespace tarvik
