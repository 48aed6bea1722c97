// The module check at start-up, and the about box, which lists the modules found.

#include "app/form1.h"
#include "platform/runtime_error.h"
#include "report/typed_numbers.h"

namespace tarvik {

void Form1::CheckModules() {
  FileUtil files(deps_.kernel, deps_.version);
  ModuleCheckResult found = tarvik::CheckModules(files, !IsOptionMask_HideK7Test());
  missing_ = found.missing;
  foundModules_ = std::move(found.found);
  notFoundModules_ = std::move(found.notFound);
  if (missing_.cncLibrary) recorder_.SetLibraryMissing(report::Rung::CncLibrary);
  if (missing_.k7Api) recorder_.SetLibraryMissing(report::Rung::K7);
  if (missing_.internet) recorder_.SetLibraryMissing(report::Rung::Ftp);
  const auto switchOff = [this](bool missing, Page page) {
    if (missing) controls_.tabMode.SetPageOn(page, false);
  };
  switchOff(missing_.cncLibrary, kNexalPage);
  switchOff(missing_.k7Api, kK7ApiPage);
  switchOff(missing_.serviceSetup, kK7SvcPage);
  switchOff(missing_.internet, kFtpPage);
  if (missing_.cncLibrary) controls_.mnuPMC.SetVisible(false);
  if (!missing_.Any()) return;
  controls_.cmdAllTest.SetVisible(false);
  UpdateLayout();  // closes the gap next to the other button
}

std::wstring Form1::MissingReport() const {
  const auto page = [](const std::wstring& module) {
    if (module.starts_with(L"NxLib")) return kNexalPage;
    if (module == L"k7api.dll") return kK7ApiPage;
    return module == L"SvcKit.dll" ? kK7SvcPage : kFtpPage;
  };
  std::wstring report;
  for (const std::wstring& module : notFoundModules_) {
    const Page hidden = page(module);
    report += module + texts_.GetOrBuiltIn(Message::ModuleNotFound);
    // Without the K7 pages, which the edition or an option hides, a missing library hides only the button.
    const bool hasPage = !TestOptionMask(kFamilyMode) || (hidden != kK7ApiPage && hidden != kK7SvcPage);
    if (hasPage) report += report::BoxName(controls_.tabMode.PageCaption(hidden)) + L", ";
    report += report::BoxName(controls_.cmdAllTest.Caption()) + L"\r\n";
  }
  return report;
}

frmAbout& Form1::About() {
  if (about_ == nullptr || about_->Closed()) {
    // The old window is destroyed first: two windows cannot register the same class.
    about_.reset();
    about_ = std::make_unique<frmAbout>(NewForm(L"frmAbout"), texts_, deps_.system, deps_.processes,
                                        versionReport_, MissingReport());
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
