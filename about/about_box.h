#pragma once

#include <memory>
#include <string>

#include "platform/processes.h"
#include "platform/system.h"
#include "resources/messages.h"
#include "ui/form.h"

namespace tarvik {

/// The four numbers of a version resource, in its order.
struct ProgramVersion {
  int first;
  int second;
  int third;
  int fourth;
};

/// For example "Version 1.2.4" for 1.2.3.4. The third number is omitted; the fourth increases between
/// releases.
std::wstring VersionText(const ProgramVersion& version);

/// The program's title, followed by the edition's extra description in brackets if there is one. Dormant: no
/// edition has one today.
std::wstring AboutTitle(const std::wstring& extraDescription);

/// The about box: the versions of the program, of Windows and of the optional modules.
class frmAbout {
 public:
  /// `form`: an empty window, still hidden. `versionReport`: the result of VersionReport. `missingReport`:
  /// one line per module that was not found; empty if all were found. `system` and `processes` must outlive
  /// the box.
  frmAbout(std::unique_ptr<ui::Form> form, const Texts& texts, System& system, Processes& processes,
           const std::wstring& versionReport, const std::wstring& missingReport);
  frmAbout(const frmAbout&) = delete;
  frmAbout& operator=(const frmAbout&) = delete;

  /// Shows the box without disabling the main window, or brings it to the front.
  void Show() { form_->Show(); }
  void MakeTopmost() { form_->MakeTopmost(); }
  void SetPointer(ui::Pointer pointer) { form_->SetPointer(pointer); }

  /// True once the user has closed the box. A closed box cannot be shown again.
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
  ui::Label* lblMissing = nullptr;  ///< null when every module was found
  bool closed_ = false;
};

}  // namespace tarvik
