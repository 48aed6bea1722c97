// Injects failures into a routine and checks the program after each run: it is usable, it has released what
// it acquired, and the user learns what failed. A failure counts as reported when the user sees less than in
// a run without failures, but also a new line or message box.

#include "tests/failures/fail_every_call.h"

#include <sanitizer/lsan_interface.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <set>
#include <tuple>

namespace tarvik::test {
namespace {

/// Runs that fail the test after these are not printed: they rarely show anything new.
constexpr int kMaxShown = 15;

using ResultLines = std::vector<std::wstring>;

/// Everything that the user sees of a run, sorted, each text after the kind of place where it is.
ResultLines Seen(FailingProgram& program) {
  ResultLines seen;
  const auto add = [&seen](const wchar_t* where, const std::wstring& text) {
    if (!text.empty()) seen.push_back(where + text);
  };
  const auto addLines = [&add](const ui::MemoryListBox& list) {
    for (const std::wstring& line : list.lines) add(L"line ", line);
  };
  // Questions do not count, only what the answers lead to.
  for (const FakeBoxes::Box& box : program.boxes.boxes)
    if (!box.asksYesNo) add(L"box ", box.text);
  if (!program.form1) return seen;
  addLines(program.List());
  for (const std::wstring& started : program.processes.commandLines) add(L"started ", started);
  add(L"copied ", program.clipboard.text.value_or(std::wstring()));
  add(L"caption ", program.form.Caption());
  for (const int id : program.form.Order()) {
    const auto& element = program.form.Get<ui::Element>(id);
    add(id == ID_lblAnswer ? L"answer " : L"caption ", element.Caption());
    if (!element.Visible()) add(L"hidden ", Decimal(id));
  }
  for (int page = 0; page < program.Tabs().PageCount(); ++page) {
    add(L"page ", program.Tabs().PageCaption(page));
    if (!program.Tabs().PageOn(page)) add(L"page off ", Decimal(page));
  }
  add(L"address ", program.Address().Text());
  for (int i = 0; i < program.Address().Count(); ++i) add(L"history ", program.Address().Item(i));
  for (const int id : {ID_txtAccessCode, ID_txtFtpUsername, ID_txtFtpPasswd})
    add(L"field ", program.Box(id).Text());
  if (const ui::MemoryForm* const other = program.OtherWindow()) {
    for (const int id : other->Order()) {
      const auto& element = other->Get<ui::Element>(id);
      add(L"other caption ", element.Caption());
      if (const auto* const list = dynamic_cast<const ui::MemoryListBox*>(&element)) addLines(*list);
    }
  }
  std::sort(seen.begin(), seen.end());
  return seen;
}

/// The lines of `all` that are not in `without`.
ResultLines Difference(const ResultLines& all, const ResultLines& without) {
  ResultLines difference;
  std::set_difference(all.begin(), all.end(), without.begin(), without.end(), std::back_inserter(difference));
  return difference;
}

std::string InWords(const ResultLines& texts) {
  std::string words;
  for (const std::wstring& text : texts) words += "\n    " + NarrowAscii(text);
  return words;
}

/// What every run must restore.
struct RunInvariants {
  explicit RunInvariants(FailingProgram& program)
      : enabled(Enabled(program.form)),
        otherEnabled(program.OtherWindow() == nullptr ? std::vector<bool>()
                                                      : Enabled(*program.OtherWindow())),
        sessions(program.failingWinsock.sessions) {}

  static std::vector<bool> Enabled(const ui::MemoryForm& form) {
    std::vector<bool> enabled;
    for (const int id : form.Order()) enabled.push_back(form.Get<ui::Element>(id).Enabled());
    return enabled;
  }

  std::vector<bool> enabled;
  std::vector<bool> otherEnabled;
  int sessions;
};

/// Collects what is wrong after a run.
class Faults {
 public:
  void Unless(bool right, const char* fault) {
    if (!right) words_ += std::string("\n  ") + fault;
  }
  void Add(const std::string& fault) {
    if (!fault.empty()) words_ += "\n  " + fault;
  }
  const std::string& Words() const { return words_; }

 private:
  std::string words_;
};

void CheckReleases(FailingProgram& program, Faults& faults) {
  faults.Unless(program.failingWinsock.sockets.OpenCount() == 0, "a socket was not closed");
  faults.Unless(program.failingWinsock.sockets.StrayCloses() == 0, "a socket was closed twice");
  faults.Unless(program.ipHelper.neighbourTables.empty(), "a neighbour table was not freed");
  faults.Unless(program.cncLibrary.AllGivenBack(), "a connection handle was not freed exactly once");
  faults.Unless(program.k7Api.openHandles.empty() && program.k7Api.wrongFrees == 0,
                "a K7 handle was not freed exactly once");
  faults.Unless(program.wininet.open.empty() && program.wininet.misuses == 0,
                "an internet handle was not closed exactly once");
  faults.Unless(program.failingProcesses.handles.OpenCount() == 0, "a process handle was not closed");
  faults.Unless(program.failingProcesses.handles.StrayCloses() == 0, "a process handle was closed twice");
  faults.Unless(program.failingKernel.modules.OpenCount() == 0, "a library was not freed");
  faults.Unless(program.failingKernel.modules.StrayCloses() == 0, "a library was freed twice");
  faults.Unless(program.failingConfiguration.sessions == 0,
                "the configuration library was not terminated exactly once");
}

void CheckWindow(FailingProgram& program, Faults& faults) {
  if (!program.form1) return;
  const bool captionFailed = program.plan.HasFailed("SetWindowText");
  faults.Unless(!program.endless, "a run does not end");
  faults.Unless(!program.flags.busy, "the busy flag is still set");
  faults.Unless(!program.flags.stopRequested, "the stop flag is still set");
  faults.Unless(program.form.Enabled(), "the window is disabled");
  faults.Unless(program.form.CurrentPointer() == ui::Pointer::Default, "the pointer is still an hourglass");
  faults.Unless(program.List().redrawing, "drawing of the list is still off");
  faults.Unless(captionFailed || program.Button(ID_cmdK7Api).Caption() != L"&Stop",
                "the K7 button still reads Stop");
  if (const ui::MemoryForm* const other = program.OtherWindow()) {
    faults.Unless(other->Enabled(), "the other window is disabled");
    for (const int id : other->Order()) {
      const auto* const list = dynamic_cast<ui::MemoryListBox*>(&other->Get<ui::Element>(id));
      faults.Unless(list == nullptr || list->redrawing, "drawing of a list of the other window is still off");
    }
  }
}

void CheckAfterRun(FailingProgram& program, const RunInvariants& before, Faults& faults) {
  CheckWindow(program, faults);
  CheckReleases(program, faults);
  const RunInvariants now(program);
  faults.Unless(program.plan.HasFailed("SetWindowText") || program.Button(ID_cmdPing).Caption() == L"&Ping",
                "the Ping button does not read Ping");
  faults.Unless(now.enabled == before.enabled, "the enabled controls are not the same as before");
  faults.Unless(
      now.otherEnabled.size() != before.otherEnabled.size() || now.otherEnabled == before.otherEnabled,
      "the enabled controls of the other window are not the same as before");
  faults.Unless(now.sessions == before.sessions, "WSAStartup and WSACleanup do not match");
}

void CheckAfterProcess(FailingProgram& program, Faults& faults) {
  CheckReleases(program, faults);
  faults.Unless(program.OtherWindow() == nullptr, "a secondary window was not destroyed");
  faults.Unless(
      program.failingIcmp.handles.OpenCount() == 0 && program.failingIcmp.handles.StrayCloses() == 0,
      "the ICMP handle was not closed exactly once");
  for (const std::wstring& text : program.boxes.Texts())
    faults.Unless(text != L"SvcUtl is not Terminated", "the service utility was not terminated");
}

int& TotalOfSuite() {
  static int total = 0;
  return total;
}

/// Runs one routine with failures. Keeps the program from run to run while nothing is wrong with it.
class FailureInjector {
 public:
  explicit FailureInjector(const Routine& routine) : routine_(routine) {}
  ~FailureInjector() { EndProgram(); }
  FailureInjector(const FailureInjector&) = delete;
  FailureInjector& operator=(const FailureInjector&) = delete;

  /// Runs without a failure. Returns the calls and remembers what the user sees.
  std::vector<FailurePlan::Call> RunWithoutFailure() {
    auto calls = Run({});
    usual_ = seen_;
    return calls;
  }

  /// Runs with these failures. Returns the calls.
  std::vector<FailurePlan::Call> RunWithFailures(std::vector<FailurePlan::Failure> failures) {
    ++runs_;
    injected_ += static_cast<int>(failures.size());
    return Run(std::move(failures));
  }

  /// Closes the program and destroys it.
  void EndProgram() {
    if (!program_) return;
    Faults faults;
    faults.Unless(program_->Close(), "the window does not close");
    CheckAfterProcess(*program_, faults);
    program_.reset();
    Report(faults, "at the end of the process");
  }

  int Injected() const { return injected_; }
  int Runs() const { return runs_; }
  bool Enough() const { return shown_ >= kMaxShown; }
  std::vector<std::string> UnusedSilences() const {
    std::vector<std::string> unused;
    for (const Silence& silence : routine_.silences)
      if (!usedSilences_.contains(&silence)) unused.emplace_back(silence.call);
    return unused;
  }

 private:
  std::vector<FailurePlan::Call> Run(std::vector<FailurePlan::Failure> failures) {
    if (!program_) {
      program_ = std::make_unique<FailingProgram>(plan_);
      if (routine_.start) routine_.start(*program_);
    }
    Faults faults;
    const bool failing = !failures.empty();
    Begin();
    const RunInvariants before(*program_);
    plan_.Begin(std::move(failures));
    Attempt(faults);
    plan_.End();
    seen_ = Seen(*program_);
    auto calls = plan_.Calls();
    if (routine_.start && !program_->form.unloaded)
      CheckAfterRun(*program_, before, faults);
    else
      CheckWindow(*program_, faults);
    faults.Add(routine_.check(*program_));
    if (failing) CheckReported(faults);
    const std::string words = failing ? plan_.InWords() : "without a failure";
    if (failing && routine_.runsAgain) RunAgain(faults);
    const bool wrong = Report(faults, words);
    if (wrong || !routine_.runsAgain) EndProgram();
    return calls;
  }

  void Begin() {
    if (program_->form1) program_->form1->Results().ClearList();
    program_->boxes.boxes.clear();
    program_->processes.commandLines.clear();
    routine_.prepare(*program_);
    program_->BeginRun();
  }

  void Attempt(Faults& faults) {
    try {
      routine_.run(*program_);
    } catch (const RuntimeError& error) {
      faults.Add("an error escapes from the event: " + NarrowAscii(error.Text()));
    } catch (const std::exception& error) {
      faults.Add(std::string("an exception escapes from the event: ") + error.what());
    }
  }

  void CheckReported(Faults& faults) {
    ResultLines lost = Difference(usual_, seen_);
    // When the caption of a run's button cannot be set back, it reads Stop until the next run. A sentence
    // that cannot be shown must not end the run; the marks beside it are right.
    if (plan_.HasFailed("SetWindowText")) {
      for (const wchar_t* const caption : {L"caption &Ping", L"caption &Test"}) std::erase(lost, caption);
      std::erase_if(lost, [](const std::wstring& text) { return text.starts_with(L"answer "); });
    }
    const ResultLines found = Difference(seen_, usual_);
    const auto reports = [this](const std::wstring& text) {
      return routine_.captionsReport || text.starts_with(L"line ") || text.starts_with(L"box ");
    };
    if (lost.empty() || std::any_of(found.begin(), found.end(), reports)) return;
    for (const FailurePlan::Call& call : plan_.Failed())
      for (const Silence& silence : routine_.silences)
        if (std::string_view(silence.call) == call.name && (silence.way == 0 || silence.way == call.ways)) {
          usedSilences_.insert(&silence);
          return;
        }
    faults.Add("the failure is not reported; missing:" + InWords(lost));
  }

  void RunAgain(Faults& faults) {
    Begin();
    Attempt(faults);
    const ResultLines seen = Seen(*program_);
    if (seen != usual_)
      faults.Add("the next run shows something else; missing:" + InWords(Difference(usual_, seen)) +
                 "\n  new:" + InWords(Difference(seen, usual_)));
  }

  /// True when there are faults.
  bool Report(const Faults& faults, const std::string& words) {
    if (faults.Words().empty()) return false;
    if (!Enough()) ADD_FAILURE() << routine_.name << ", " << words << faults.Words();
    ++shown_;
    return true;
  }

  const Routine& routine_;
  FailurePlan plan_;
  std::unique_ptr<FailingProgram> program_;
  ResultLines usual_;
  ResultLines seen_;
  std::set<const Silence*> usedSilences_;
  int injected_ = 0;
  int runs_ = 0;
  int shown_ = 0;
};

/// A pair of failures: the call and the way of each.
using KindOfPair = std::tuple<std::string, int, std::string, int>;

/// The kinds of pairs that the suite has injected. A routine that runs alone therefore injects more of them.
std::set<KindOfPair>& KindsOfSuite() {
  static std::set<KindOfPair> kinds;
  return kinds;
}

}  // namespace

void FailureTest::FailEveryCall(const Routine& routine) {
  FailureInjector injector(routine);
  const auto calls = injector.RunWithoutFailure();
  ASSERT_FALSE(calls.empty()) << routine.name;
  ASSERT_FALSE(HasFailure());
  std::set<KindOfPair>& kinds = KindsOfSuite();
  for (size_t first = 0; first < calls.size(); ++first) {
    for (int way = 1; way <= calls[first].ways; ++way) {
      const auto later = injector.RunWithFailures({{first, way}});
      if (routine.pairs == Pairs::None) continue;
      for (size_t second = first + 1; second < later.size(); ++second)
        for (int secondWay = 1; secondWay <= later[second].ways && !injector.Enough(); ++secondWay) {
          const bool isNew = kinds.insert({calls[first].name, way, later[second].name, secondWay}).second;
          if (isNew || routine.pairs == Pairs::All)
            injector.RunWithFailures({{first, way}, {second, secondWay}});
        }
      injector.EndProgram();
    }
  }
  for (const std::string& call : injector.UnusedSilences())
    ADD_FAILURE() << routine.name << ": the failure of " << call << " is always reported: remove its silence";
  EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0) << routine.name;
  TotalOfSuite() += injector.Injected();
  RecordProperty("failures_injected", injector.Injected());
  std::printf("%s: %d failures injected on %zu calls, in %d runs\n", routine.name, injector.Injected(),
              calls.size(), injector.Runs());
}

void FailureTest::TearDownTestSuite() {
  std::printf("%d failures injected in total\n", TotalOfSuite());
  TotalOfSuite() = 0;
  KindsOfSuite().clear();
}

}  // namespace tarvik::test
