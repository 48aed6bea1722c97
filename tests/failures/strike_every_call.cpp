#include "tests/failures/strike_every_call.h"

#include <sanitizer/lsan_interface.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <set>
#include <tuple>

namespace tarvik::test {
namespace {

/// So many wrong runs are shown; more say nothing new.
constexpr int kMaxShown = 15;

using ResultLines = std::vector<std::wstring>;

/// Everything that the user sees of a run, each piece marked by where it stands.
ResultLines Seen(FailingProgram& program) {
  ResultLines seen;
  const auto add = [&seen](const wchar_t* where, const std::wstring& text) {
    if (!text.empty()) seen.push_back(where + text);
  };
  const auto addLines = [&add](const ui::MemoryListBox& list) {
    for (const std::wstring& line : list.lines) add(L"line ", line);
  };
  // A question tells nothing; what comes of its answer does.
  for (const FakeBoxes::Box& box : program.boxes.boxes)
    if (!box.asksYesNo) add(L"box ", box.text);
  if (!program.form1) return seen;
  addLines(program.List());
  for (const std::wstring& started : program.processes.commandLines) add(L"started ", started);
  add(L"copied ", program.clipboard.text.value_or(std::wstring()));
  add(L"caption ", program.form.Caption());
  for (const int id : program.form.Order()) {
    const auto& element = program.form.Get<ui::Element>(id);
    add(L"caption ", element.Caption());
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
  if (const ui::MemoryForm* const further = program.Further()) {
    for (const int id : further->Order()) {
      const auto& element = further->Get<ui::Element>(id);
      add(L"further caption ", element.Caption());
      if (const auto* const list = dynamic_cast<const ui::MemoryListBox*>(&element)) addLines(*list);
    }
  }
  std::sort(seen.begin(), seen.end());
  return seen;
}

ResultLines Beyond(const ResultLines& more, const ResultLines& less) {
  ResultLines beyond;
  std::set_difference(more.begin(), more.end(), less.begin(), less.end(), std::back_inserter(beyond));
  return beyond;
}

std::string InWords(const ResultLines& texts) {
  std::string words;
  for (const std::wstring& text : texts) words += "\n    " + NarrowAscii(text);
  return words;
}

/// What every run has to leave as it found it.
struct RunInvariants {
  explicit RunInvariants(FailingProgram& program)
      : enabled(Enabled(program.form)),
        furtherEnabled(program.Further() == nullptr ? std::vector<bool>() : Enabled(*program.Further())),
        sessions(program.failingWinsock.sessions) {}

  static std::vector<bool> Enabled(const ui::MemoryForm& form) {
    std::vector<bool> enabled;
    for (const int id : form.Order()) enabled.push_back(form.Get<ui::Element>(id).Enabled());
    return enabled;
  }

  std::vector<bool> enabled;
  std::vector<bool> furtherEnabled;
  int sessions;
};

/// Collects what is wrong.
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

void LookAtReleases(FailingProgram& program, Faults& faults) {
  faults.Unless(program.failingWinsock.sockets.Out() == 0, "a socket is open");
  faults.Unless(program.failingWinsock.sockets.Strays() == 0, "a socket was closed twice");
  faults.Unless(program.cncLibrary.AllGivenBack(), "a connection handle is not given back once");
  faults.Unless(program.k7Api.openHandles.empty() && program.k7Api.wrongFrees == 0,
                "a K7 handle is not given back once");
  faults.Unless(program.wininet.open.empty() && program.wininet.misuses == 0,
                "an internet handle is not closed once");
  faults.Unless(program.failingProcesses.handles.Out() == 0, "a process handle is open");
  faults.Unless(program.failingProcesses.handles.Strays() == 0, "a process handle was closed twice");
  faults.Unless(program.failingKernel.modules.Out() == 0, "a library is loaded");
  faults.Unless(program.failingKernel.modules.Strays() == 0, "a library was freed twice");
  faults.Unless(program.failingConfiguration.sessions == 0,
                "the configuration library is not terminated once");
}

void LookAtWindow(FailingProgram& program, Faults& faults) {
  if (!program.form1) return;
  const bool captionRefused = program.plan.HasStruck("SetWindowText");
  faults.Unless(!program.endless, "a run comes to no end");
  faults.Unless(!program.flags.busy, "the busy flag is set");
  faults.Unless(!program.flags.stopRequested, "the stop flag is set");
  faults.Unless(program.form.Enabled(), "the window is disabled");
  faults.Unless(program.form.CurrentPointer() == ui::Pointer::Default, "the pointer is an hourglass");
  faults.Unless(program.List().redrawing, "the list is not painted");
  faults.Unless(captionRefused || program.Button(ID_cmdK7Api).Caption() != L"&Stop",
                "the K7 button offers a stop");
  if (const ui::MemoryForm* const further = program.Further()) {
    faults.Unless(further->Enabled(), "the further window is disabled");
    for (const int id : further->Order()) {
      const auto* const list = dynamic_cast<ui::MemoryListBox*>(&further->Get<ui::Element>(id));
      faults.Unless(list == nullptr || list->redrawing, "a list of the further window is not painted");
    }
  }
}

void LookBehindRun(FailingProgram& program, const RunInvariants& before, Faults& faults) {
  LookAtWindow(program, faults);
  LookAtReleases(program, faults);
  const RunInvariants now(program);
  faults.Unless(program.plan.HasStruck("SetWindowText") || program.Button(ID_cmdPing).Caption() == L"&Ping",
                "the Ping button offers a stop");
  faults.Unless(now.enabled == before.enabled, "controls are enabled or disabled otherwise than before");
  faults.Unless(now.furtherEnabled.size() != before.furtherEnabled.size() ||
                    now.furtherEnabled == before.furtherEnabled,
                "controls of the further window are enabled or disabled otherwise than before");
  faults.Unless(now.sessions == before.sessions, "a socket session is not ended once");
}

void LookBehindProcess(FailingProgram& program, Faults& faults) {
  LookAtReleases(program, faults);
  faults.Unless(program.Further() == nullptr, "a further window is left");
  faults.Unless(program.failingIcmp.handles.Out() == 0 && program.failingIcmp.handles.Strays() == 0,
                "the ICMP handle is not closed once");
  for (const std::wstring& text : program.boxes.Texts())
    faults.Unless(text != L"SvcUtl is not Terminated", "the service utility is not terminated");
}

int& TotalOfSuite() {
  static int total = 0;
  return total;
}

/// Strikes the calls of one routine, on a program that it keeps as long as nothing is wrong with it.
class Striker {
 public:
  explicit Striker(const Routine& routine) : routine_(routine) {}
  ~Striker() { EndProgram(); }
  Striker(const Striker&) = delete;
  Striker& operator=(const Striker&) = delete;

  /// The calls on the way when nothing fails, and what the user sees then.
  std::vector<FailurePlan::Call> Observe() {
    auto calls = Run({});
    usual_ = seen_;
    return calls;
  }

  /// One run with these failures; its calls.
  std::vector<FailurePlan::Call> Strike(std::vector<FailurePlan::Failure> failures) {
    ++runs_;
    injected_ += static_cast<int>(failures.size());
    return Run(std::move(failures));
  }

  /// The program is closed and its process ends.
  void EndProgram() {
    if (!program_) return;
    Faults faults;
    faults.Unless(program_->Close(), "the window cannot be closed");
    LookBehindProcess(*program_, faults);
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
    const bool struck = !failures.empty();
    Begin();
    const RunInvariants before(*program_);
    plan_.Begin(std::move(failures));
    Attempt(faults);
    plan_.End();
    seen_ = Seen(*program_);
    auto calls = plan_.Calls();
    if (routine_.start && !program_->form.unloaded)
      LookBehindRun(*program_, before, faults);
    else
      LookAtWindow(*program_, faults);
    faults.Add(routine_.check(*program_));
    if (struck) LookWhatIsSaid(faults);
    const std::string words = struck ? plan_.InWords() : "nothing failing";
    if (struck && routine_.again) RunAgain(faults);
    const bool wrong = Report(faults, words);
    if (wrong || !routine_.again) EndProgram();
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
      faults.Add("an error leaves the event: " + NarrowAscii(error.Text()));
    } catch (const std::exception& error) {
      faults.Add(std::string("an exception: ") + error.what());
    }
  }

  void LookWhatIsSaid(Faults& faults) {
    ResultLines lost = Beyond(usual_, seen_);
    // A run is not undone by its button, which shows the stop until the next run when it does not take its
    // own caption back.
    if (plan_.HasStruck("SetWindowText"))
      for (const wchar_t* const caption : {L"caption &Ping", L"caption &Test"}) std::erase(lost, caption);
    const ResultLines found = Beyond(seen_, usual_);
    const auto tells = [this](const std::wstring& text) {
      return routine_.captionsTell || text.starts_with(L"line ") || text.starts_with(L"box ");
    };
    if (lost.empty() || std::any_of(found.begin(), found.end(), tells)) return;
    for (const FailurePlan::Call& call : plan_.Struck())
      for (const Silence& silence : routine_.silences)
        if (std::string_view(silence.call) == call.name && (silence.way == 0 || silence.way == call.ways)) {
          usedSilences_.insert(&silence);
          return;
        }
    faults.Add("nothing tells what failed; lost:" + InWords(lost));
  }

  void RunAgain(Faults& faults) {
    Begin();
    Attempt(faults);
    const ResultLines seen = Seen(*program_);
    if (seen != usual_)
      faults.Add("the next run is not as usual; lost:" + InWords(Beyond(usual_, seen)) +
                 "\n  new:" + InWords(Beyond(seen, usual_)));
  }

  /// True when there are any.
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

/// Knows which pairs of failures were struck.
class KindsOfPairs {
 public:
  using Kind = std::tuple<std::string, int, std::string, int>;

  explicit KindsOfPairs(Pairs pairs) : pairs_(pairs) {}
  /// True when the pair is one to strike.
  bool IsNew(Kind kind) { return pairs_ == Pairs::All || struck_.insert(std::move(kind)).second; }

 private:
  Pairs pairs_;
  std::set<Kind> struck_;
};

}  // namespace

void FailureTest::StrikeEveryCall(const Routine& routine) {
  Striker striker(routine);
  const auto calls = striker.Observe();
  ASSERT_FALSE(calls.empty()) << routine.name;
  ASSERT_FALSE(HasFailure());
  KindsOfPairs kinds(routine.pairs);
  for (size_t first = 0; first < calls.size(); ++first) {
    for (int way = 1; way <= calls[first].ways; ++way) {
      const auto later = striker.Strike({{first, way}});
      if (routine.pairs == Pairs::None) continue;
      for (size_t second = first + 1; second < later.size(); ++second)
        for (int secondWay = 1; secondWay <= later[second].ways && !striker.Enough(); ++secondWay)
          if (kinds.IsNew({calls[first].name, way, later[second].name, secondWay}))
            striker.Strike({{first, way}, {second, secondWay}});
      striker.EndProgram();
    }
  }
  for (const std::string& call : striker.UnusedSilences())
    ADD_FAILURE() << routine.name << ": the failure of " << call << " is never silent";
  EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0) << routine.name;
  TotalOfSuite() += striker.Injected();
  RecordProperty("failures_injected", striker.Injected());
  std::printf("%s: %d failures injected on %zu calls, in %d runs\n", routine.name, striker.Injected(),
              calls.size(), striker.Runs());
}

void FailureTest::TearDownTestSuite() { std::printf("%d failures injected in total\n", TotalOfSuite()); }

}  // namespace tarvik::test
