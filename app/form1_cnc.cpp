// The CNC library's test, and the window for PMC read tests.

#include "app/form1.h"

namespace tarvik {

CncTarget Form1::ReadCncTarget() const {
  return {controls_.cmbIPAddr.Text(),
          {controls_.txtTcpPortNo.Text(), controls_.lblTcpPortNo.Caption()},
          {controls_.txtNxlibTimeOut.Text(), controls_.lblNxlibTimeOut.Caption()}};
}

bool Form1::RunLibraryTest() {
  std::optional<std::wstring> accessCode;
  if (controls_.chkAccessCode.Checked()) accessCode = controls_.txtAccessCode.Text();
  const auto showHourglass = [this](bool busy) {
    deps_.form.SetPointer(busy ? ui::Pointer::Hourglass : ui::Pointer::Default);
  };
  const CncTarget target = ReadCncTarget();
  recorder_.AddressUsed(report::Rung::CncLibrary, target.address);
  recorder_.run.settings.accessCodeSet = accessCode && !accessCode->empty();
  const bool passed = tarvik::RunLibraryTest(context_, deps_.cncLibrary, deps_.codePage, showHourglass,
                                             target, accessCode, missing_.cncLibrary, nxlibOptions_);
  report::CncFacts& facts = recorder_.run.facts.cnc;
  // Any other failed call has already proven that the port is open.
  if (!passed && facts.call == report::CncCall::Connect)
    LookAtPort(target.address, facts.port, facts.portAnswer);
  return passed;
}

void Form1::cmdGetInfo_Click() {
  RunOutermost({report::Rung::CncLibrary}, [this] { return RunLibraryTest(); });
}

void Form1::mnuPMC_Click() {
  if (pmcTest_ == nullptr || pmcTest_->Unloaded()) {
    // The old window is destroyed first: two windows cannot register the same class.
    pmcTest_.reset();
    pmcTest_ = std::make_unique<frmPmcTest>(NewForm(L"frmPmcTest"), texts_, deps_.pump, deps_.cncLibrary,
                                            deps_.codePage, deps_.system, [this] { return ReadCncTarget(); });
    if (TestOptionMask(kTopmost)) pmcTest_->MakeTopmost();
  }
  pmcTest_->Show();
}

}  // namespace tarvik
