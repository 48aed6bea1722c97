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

/// The whole program on recorded libraries, each behind one that fails as the plan says.
class FailingProgram : public FakeProgram {
 public:
  explicit FailingProgram(FailurePlan& plan);
  FailingProgram(const FailingProgram&) = delete;
  FailingProgram& operator=(const FailingProgram&) = delete;

  /// As the process does it: the main window, then its start-up. An error that leaves either is shown;
  /// without a main window the process ends.
  void Start(const std::wstring& commandLine = L"-LANGID 1 -X 0", bool familyEdition = false);
  /// A run begins; what has no end is told by the length of one run.
  void BeginRun() { pauses_ = 0; }
  /// The user closes the main window, and the process ends. False when the window stays.
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

  /// The latest window beside the main one; null when there is none.
  ui::MemoryForm* Further() const { return furtherLife_.expired() ? nullptr : further_; }

  /// Hear of the secondary windows by their classes: before one is created, and when one is destroyed.
  std::function<void(const std::wstring&windowClass)> onCreate, onDestroy;
  bool endless = false;  ///< something came to no end and had to be stopped
  std::unique_ptr<Form1> form1;

 private:
  void Construct(const std::wstring& commandLine, bool familyEdition);
  std::unique_ptr<ui::Form> NewForm();
  /// The same, reported by onCreate and onDestroy.
  std::unique_ptr<ui::Form> NewForm(const std::wstring& windowClass);
  /// How the controls of a form take their texts.
  ui::BeforeText TakingTexts();
  /// How a form takes its own.
  void TakeCaption();
  void OnEvents();

  int pauses_ = 0;
  ui::MemoryForm* further_ = nullptr;
  std::weak_ptr<int> furtherLife_;
};

}  // namespace tarvik::test
