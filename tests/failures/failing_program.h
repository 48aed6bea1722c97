#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/form1.h"
#include "tests/failures/failing_cnc_library.h"
#include "tests/failures/failing_k7.h"
#include "tests/failures/failing_modules.h"
#include "tests/failures/failing_net.h"
#include "tests/failures/failing_platform.h"
#include "tests/failures/failing_wininet.h"
#include "tests/fakes/fake_program.h"

namespace tarvik::test {

/// The whole program on fake libraries, each wrapped in one that fails according to the plan.
class FailingProgram : public FakeProgram {
 public:
  explicit FailingProgram(FailurePlan& plan);
  FailingProgram(const FailingProgram&) = delete;
  FailingProgram& operator=(const FailingProgram&) = delete;

  /// Constructs the main window and runs its start-up as the process does. Shows an error of either in a
  /// message box; without a main window the process ends.
  void Start(const std::wstring& commandLine = L"-LANGID 1 -X 0", bool familyEdition = false);
  /// Resets the count of pauses by which OnEvents recognises a run that does not end.
  void BeginRun() { pauses_ = 0; }
  /// Closes the main window as the user does, then destroys it. False when the window refuses.
  bool Close();

  FailurePlan& plan;

  FailingConfiguration failingConfiguration{plan, configuration};
  FailingTxCodec failingTxCodec{plan, txCodec};
  FailingWinsock failingWinsock{plan, winsock};
  FailingIcmp failingIcmp{plan, icmp};
  FailingIpHelper failingIpHelper{plan, ipHelper};
  FailingWininet failingWininet{plan, wininet};
  FailingSystem failingSystem{plan, system};
  FailingFiles failingFiles{plan, files};
  FailingProcesses failingProcesses{plan, processes};
  FailingCodePage failingCodePage{plan, codePage};
  FailingSettings failingSettings{plan, settings};
  FailingClipboard failingClipboard{plan, clipboard};
  FailingKernel failingKernel{plan, kernel};
  FailingVersions failingVersions{plan, versions};
  FailingK7Api failingK7Api{plan, k7Api};
  FailingSvcKit failingSvcKit{plan, svcKit};
  FailingCncLibrary failingCncLibrary{plan, cncLibrary};

  /// The latest secondary window; null after its destruction.
  ui::MemoryForm* OtherWindow() const { return otherAlive_.expired() ? nullptr : other_; }

  /// Called before a secondary window is created, and when it is destroyed.
  std::function<void(const std::wstring&windowClass)> onCreate, onDestroy;
  bool endless = false;  ///< a run did not end and was aborted
  std::unique_ptr<Form1> form1;

 private:
  void Construct(const std::wstring& commandLine, bool familyEdition);
  std::unique_ptr<ui::Form> NewForm();
  /// The same with calls of onCreate and onDestroy.
  std::unique_ptr<ui::Form> NewForm(const std::wstring& windowClass);
  /// Makes setting a control's text fail when the plan says so.
  ui::BeforeText FailOnText();
  /// The same for the window's own caption.
  void FailOnCaption();
  void OnEvents();

  int pauses_ = 0;
  ui::MemoryForm* other_ = nullptr;
  std::weak_ptr<int> otherAlive_;
};

}  // namespace tarvik::test
