// Starting the program, closing it as an action, and the final checks. A program that works must come to rest
// from any state once the cables are plugged in, its message boxes are answered and its runs are stopped.

#include <algorithm>

#include "app/control_ids.h"
#include "lab/monkey/monkey.h"
#include "lab/pc/main_window.h"

namespace tarvik::lab {
namespace {

/// A command to the K7 service polls for ten seconds; a run ends after the library call in progress.
constexpr std::chrono::seconds kMaxStopTime(150);
/// The program keeps the libraries that it loads, and an event per thread of theirs. One handle leaked per
/// action would be many more.
constexpr int64_t kMaxHandleGrowth = 40;
constexpr int kLastEchoes = 2;

/// A new name for each start: a known one would not show that the last address is saved as the first entry.
std::string LastAddress(int start) { return "cnc-last-" + std::to_string(start); }

}  // namespace

void Monkey::StartProgram() {
  ++starts_;
  PlugInAllCables();
  program_.reset();
  program_ = std::make_unique<ProgramUnderTest>(setup_.pc, setup_.program, "-NXLIB_TMOUT 1 -PING_N 2 -X");
  window_ = WaitForMainWindow(*program_, {.onBox = [](const BoxUnderTest&) {}});
  window_->Settle();
  tabs_.clear();
  for (const std::string& caption : window_->StateOfTabs(ID_tabMode).captions) {
    // The access key is the number of the page, from 1, as in "Ftp(&5)".
    const size_t ampersand = caption.find('&');
    if (ampersand == std::string::npos) throw LabError("A tab has no number: " + caption);
    tabs_.push_back(static_cast<Page>(caption.at(ampersand + 1) - '1'));
  }
  k7ApiCaption_ = window_->Text(ID_cmdK7Api);
  handlesAtStart_ = program_->Handles();
}

/// True when the main window stays although it was asked to close: during a run, and under a message box.
bool Monkey::RefusesToClose() {
  const bool gone =
      WaitUntil(kShortWait, [this] { return !program_->HasWindow(kMainWindowClass) || program_->HasBox(); });
  bool refuses = false;
  try {
    refuses = program_->HasBox() || (!gone && !AtRest());
  } catch (const LabError&) {
    refuses = program_->HasWindow(kMainWindowClass);  // a library call blocks it
  }
  // The request may still be in the window's message queue.
  if (refuses) WaitUntilIdle();
  return refuses && program_->HasWindow(kMainWindowClass);
}

Monkey::Outcome Monkey::Close(const Draws&) {
  ++closings_;
  if (program_->HasBox()) {
    CheckNoneCloses();
    Note("every window, refused under a message box");
    return Outcome::Done;
  }
  window_->Close();
  if (RefusesToClose()) {
    Note("refused");
    return Outcome::Done;
  }
  CloseProgram();
  Note("ended");
  StartProgram();
  return Outcome::Done;
}

Monkey::Outcome Monkey::EndSession(const Draws& draws) {
  const bool forced = draws[0] % 2 == 0;
  const bool agreed = program_->SessionMayEnd();
  Note(agreed ? "agreed" : forced ? "forced" : "refused");
  if (!agreed && !forced) return Outcome::Done;
  program_->EndSession();
  // During a run the program ignores a forced end: it would destroy windows whose code is still running.
  if (program_->HasWindow(kMainWindowClass)) return Outcome::Done;
  CloseProgram();
  Note("and ended");
  StartProgram();
  return Outcome::Done;
}

void Monkey::CloseProgram() {
  // Asks again and again: a run that refused may end at any time, and a command to the K7 service, which no
  // caption shows, refuses until it stops polling.
  const bool ended = WaitUntil(kMaxStopTime, [this] {
    if (!program_->Runs()) return true;
    try {
      AnswerBoxes(false);
      if (program_->HasWindow(kMainWindowClass)) window_->Close();
    } catch (const LabError&) {
      // The window is being destroyed.
    }
    return false;
  });
  if (!ended) throw Misbehaviour("The program is at rest but does not close");
  CheckExitCode();
}

void Monkey::PlugInAllCables() const {
  for (const Host host : {Host::Pc, Host::Gateway, Host::Near, Host::Far}) setup_.net.PlugCable(host);
}

void Monkey::BringToRest() {
  const bool stopped = WaitUntil(kMaxStopTime, [this] {
    CheckAlive();
    AnswerBoxes(false);
    try {
      if (PmcReads()) program_->WaitForWindow(kPmcWindowClass).Click(ID_cmdStop);
      // Not with the button: if the run ends first, the click would start another.
      if (Enabled() && IsActive()) window_->Press("Esc");
      return AtRest();
    } catch (const LabError&) {
      return false;  // a library call blocks the window, or a message box has opened
    }
  });
  if (!stopped) throw Misbehaviour("The program does not come to rest");
}

void Monkey::CloseOtherWindows() {
  for (const char* const name : {kPmcWindowClass, kAboutBoxClass}) {
    if (!program_->HasWindow(name)) continue;
    const WindowUnderTest window = program_->WaitForWindow(name);
    window.Close();
    window.WaitUntilGone();
  }
}

void Monkey::StartAndStopRun() {
  // The count first: an invalid one would keep its page in front.
  window_->SetText(ID_txtPingReqCount, "60");
  window_->SelectTab(ID_tabMode, 0);
  window_->SetText(ID_cmbIPAddr, kNearAddress);
  window_->Click(ID_cmdPing);
  if (!WaitUntil(kSoon, [this] { return RunIsActive(*window_); })) throw Misbehaviour("No run starts");
  BringToRest();
}

void Monkey::TestOneMoreAddress() {
  const std::string address = LastAddress(starts_);
  setup_.net.SetHostNames(Host::Pc, {{"cnc-near", kNearAddress}, {address, kNearAddress}});
  window_->SetText(ID_txtPingReqCount, std::to_string(kLastEchoes));
  window_->SetText(ID_cmbIPAddr, address);
  window_->Click(ID_cmdPing);
  Listener listener;
  // A command to the K7 service, which no caption shows, may still be polling; it ends with a message box.
  listener.onBox = [this](const BoxUnderTest& box) { log_.push_back("  box: " + box.text); };
  window_->WaitForLine(ID_lstResult, address + " -> " + kNearAddress, kSoon);
  const std::vector<std::string> lines = FollowRun(*program_, *window_, kMaxCallTime, listener);
  // On a loaded machine an echo may time out. A stop request left over from before sends no echo at all.
  const auto echoes = std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
    return line.find(" Reply From ") != std::string::npos || line.starts_with("ICMP_Error:");
  });
  if (echoes != kLastEchoes)
    throw Misbehaviour("The last test sent " + std::to_string(echoes) + " echoes, expected " +
                       std::to_string(kLastEchoes) +
                       "; last line: " + (lines.empty() ? std::string() : lines.back()));
}

void Monkey::Finish() {
  log_.emplace_back("the end");
  PlugInAllCables();
  BringToRest();
  CloseOtherWindows();
  window_->Settle();
  if (!AtRest()) throw Misbehaviour("The program does not stay at rest");
  handlesAtEnd_ = program_->Handles();
  StartAndStopRun();
  TestOneMoreAddress();
  CloseProgram();
  const auto saved = setup_.pc.RegistryText(kHistoryKey, "01");
  if (saved != LastAddress(starts_))
    throw Misbehaviour("The last address was not saved; the first entry is " + saved.value_or("missing"));
  if (handlesAtEnd_ > handlesAtStart_ + kMaxHandleGrowth) throw Misbehaviour("Handles leak: " + Summary());
}

}  // namespace tarvik::lab
