#pragma once

#include <memory>
#include <string>

#include "platform/processes.h"
#include "platform/system.h"
#include "resources/messages.h"
#include "ui/form.h"

namespace tarvik {

/// The four numbers of a version resource.
struct ProgramVersion {
  int first;
  int second;
  int third;
  int fourth;
};

/// "Version 1.2.4" for 1.2.3.4: the fourth number is the one that counts up between releases.
std::wstring VersionText(const ProgramVersion& version);

/// The program's title, followed by the extra description of the edition in brackets. Dormant: no edition
/// has such a description today, so it is always empty.
std::wstring AboutTitle(const std::wstring& extraDescription);

/// The about box: the program's version, Windows' and those of the modules.
class frmAbout {
 public:
  /// `form`: a new window. `versionReport`: as the module check made it.
  frmAbout(std::unique_ptr<ui::Form> form, const Texts& texts, System& system, Processes& processes,
           const std::wstring& versionReport);
  frmAbout(const frmAbout&) = delete;
  frmAbout& operator=(const frmAbout&) = delete;

  /// Shows the box beside the main window, or brings it to front.
  void Show() { form_->Show(); }
  void MakeTopmost() { form_->MakeTopmost(); }
  void SetPointer(ui::Pointer pointer) { form_->SetPointer(pointer); }

  /// True once the user has closed it; a closed box cannot be shown again.
  bool Closed() const { return closed_; }

 private:
  void cmdOK_Click();
  void cmdSysInfo_Click();
  void LayOut();

  std::unique_ptr<ui::Form> form_;
  System& system_;
  Processes& processes_;
  ui::Button& cmdOK;
  ui::Button& cmdSysInfo;
  ui::Label& lblTitle;
  ui::Label& lblVersion;
  ui::Label& lblOsVersion;
  ui::Label& lblModules;
  bool closed_ = false;
};

}  // namespace tarvik
