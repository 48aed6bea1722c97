// The module check at start-up, and the about box, which lists the modules found.

#include "app/form1.h"
#include "platform/runtime_error.h"

namespace tarvik {

void Form1::CheckModules() {
  FileUtil files(deps_.kernel, deps_.version);
  ModuleCheckResult found = tarvik::CheckModules(files, !IsOptionMask_HideK7Test());
  missing_ = found.missing;
  foundModules_ = std::move(found.found);
  const auto switchOff = [this](bool missing, Page page) {
    if (missing) controls_.tabMode.SetPageOn(page, false);
  };
  switchOff(missing_.cncLibrary, kNexalPage);
  switchOff(missing_.k7Api, kK7ApiPage);
  switchOff(missing_.serviceSetup, kK7SvcPage);
  switchOff(missing_.internet, kFtpPage);
  if (missing_.Any()) controls_.cmdAllTest.SetVisible(false);
  if (missing_.cncLibrary) controls_.mnuPMC.SetVisible(false);
}

frmAbout& Form1::About() {
  if (about_ == nullptr || about_->Closed()) {
    // The old window is destroyed first: two windows cannot register the same class.
    about_.reset();
    about_ = std::make_unique<frmAbout>(deps_.newForm(L"frmAbout"), texts_, deps_.system, deps_.processes,
                                        versionReport_);
    // Otherwise a topmost main window would cover it.
    if (TestOptionMask(kTopmost)) about_->MakeTopmost();
  }
  return *about_;
}

void Form1::mnuHelpSub_Click() {
  FileUtil files(deps_.kernel, deps_.version);
  versionReport_ = VersionReport(files, foundModules_);
  About().Show();
}

void Form1::UnloadAbout() {
  try {
    if (about_ == nullptr) About();
  } catch (const RuntimeError&) {
    // The window could not be created, so there is nothing to unload.
  }
  about_.reset();
}

}  // namespace tarvik
