#include "lab/monkey/monkey.h"

#include <algorithm>
#include <numeric>

#include "app/control_ids.h"
#include "lab/pc/main_window.h"

namespace tarvik::lab {
namespace {

using std::chrono::seconds;

/// The longest that the window may stand still: Wine's internet library waits half a minute for a server.
constexpr seconds kLongestCall(90);
/// A command to the service polls for ten seconds, a run ends with the call that it is in.
constexpr seconds kLongestStop(150);
/// A number box that holds none keeps the focus, and its page stays in front.
constexpr seconds kPatience(2);
constexpr int kMostBoxesInARow = 30;
/// What the program takes in time and keeps: its libraries, the event of each of their threads. A handle that
/// is forgotten with every action is many more.
constexpr int64_t kMostFurtherHandles = 40;
constexpr int kLastEchoes = 2;
constexpr char kHistory[] = "Software\\NORVAX_FN_PingUtil\\History";

constexpr char kPmcClass[] = "frmPmcTest";
constexpr char kAboutClass[] = "frmAbout";

struct Target {
  const char* name;
  int id;
  int page;  ///< -1 = on every page
};
constexpr Target kMainButtons[] = {
    {"cmdPing", ID_cmdPing, 0},
    {"cmdAllTest", ID_cmdAllTest, 0},
    {"cmdGetInfo", ID_cmdGetInfo, 1},
    {"chkAccessCode", ID_chkAccessCode, 1},
    {"cmdK7Api", ID_cmdK7Api, 2},
    {"cmdStartStopK7Server_0", ID_cmdStartStopK7Server_0, 3},
    {"cmdStartStopK7Server_1", ID_cmdStartStopK7Server_1, 3},
    {"cmdK7ServerDebug", ID_cmdK7ServerDebug, 3},
};
constexpr Target kBoxes[] = {
    {"cmbIPAddr", ID_cmbIPAddr, -1},
    {"txtPingReqCount", ID_txtPingReqCount, 0},
    {"txtNxlibTimeOut", ID_txtNxlibTimeOut, 1},
    {"txtTcpPortNo", ID_txtTcpPortNo, 1},
    {"txtAccessCode", ID_txtAccessCode, 1},
    {"txtK7ApiTestCount", ID_txtK7ApiTestCount, 2},
    {"txtFtpUsername", ID_txtFtpUsername, 4},
    {"txtFtpPasswd", ID_txtFtpPasswd, 4},
};
constexpr Target kPmcButtons[] = {
    {"cmdRead", ID_cmdRead, -1}, {"cmdStop", ID_cmdStop, -1}, {"cmdClose", ID_cmdClose, -1}};
constexpr Target kPmcBoxes[] = {{"txtPmcStart", ID_txtPmcStart, -1},
                                {"txtPmcLen", ID_txtPmcLen, -1},
                                {"txtCount", ID_txtCount, -1},
                                {"txtSleep", ID_txtSleep, -1}};

constexpr const char* kAddresses[] = {kNearAddress, kNearAddress, kFarAddress, kGatewayAddress,
                                      "cnc-near",   "cnc-9",      "",          "192.168.1.7",
                                      "10.1.2.3",   "1.2.3.4.5"};
constexpr const char* kNumbers[] = {"1", "2", "3", "0", "5", "60", "", "-1", "x", "99999999999", "8193"};
/// A time-out that is no number or below 1 would be ten seconds, of which a minute has not many.
constexpr const char* kTimeOuts[] = {"1", "2", "1", "2", "x", ""};
constexpr const char* kTyped[] = {"1", "23", "abc", "192.", "-", " ", "漢字", "\b", "\b\b\b\b", "4711"};
constexpr const char* kKeys[] = {"Esc",   "Tab",   "Shift+Tab", "Enter", "Space", "Alt+P", "Alt+1", "Alt+2",
                                 "Alt+3", "Alt+5", "Ctrl+Tab",  "Down",  "Up",    "Home",  "Alt+A", "Delete"};

template <typename Items>
const auto& Pick(const Items& items, uint32_t draw) {
  return items[draw % std::size(items)];
}

std::string HostName(Host host) {
  switch (host) {
    case Host::Pc:
      return "the PC";
    case Host::Gateway:
      return "the gateway";
    case Host::Near:
      return "the near controller";
    case Host::Far:
      break;
  }
  return "the far controller";
}

/// One that nobody has tested before: a known address would not move to the front.
std::string LastAddress(int start) { return "cnc-last-" + std::to_string(start); }

}  // namespace

const Monkey::Kind Monkey::kKinds[] = {
    {"press", 22, &Monkey::PressButton},
    {"FTP", 2, &Monkey::TestFtp},
    {"address", 10, &Monkey::ChooseAddress},
    {"type", 8, &Monkey::TypeIntoBox},
    {"fill", 10, &Monkey::FillBox},
    {"tab", 6, &Monkey::SelectTab},
    {"keys", 10, &Monkey::PressKeys},
    {"resize", 6, &Monkey::Resize},
    {"minimise", 2, &Monkey::Minimise},
    {"scaling", 1, &Monkey::ChangeScaling},
    {"close", 2, &Monkey::Close},
    {"session", 2, &Monkey::EndSession},
    {"open", 5, &Monkey::OpenWindow},
    {"about", 4, &Monkey::UseAboutBox},
    {"PMC", 12, &Monkey::UsePmcWindow},
    {"cable", 8, &Monkey::MoveCable},
    {"copy", 2, &Monkey::CopyList},
    {"label", 2, &Monkey::ClickLabel},
    {"idle", 8, &Monkey::Idle},
};

Monkey::Monkey(const Setup& setup, uint64_t seed)
    : setup_(setup), numbers_(static_cast<std::mt19937::result_type>(seed)) {
  setup_.net.SetHostNames(Host::Pc, {{"cnc-near", kNearAddress}});
  setup_.pc.DeleteRegistryKey(kHistory);
}

Monkey::~Monkey() = default;

void Monkey::StartProgram() {
  ++starts_;
  PlugEverything();
  program_.reset();
  program_ = std::make_unique<ProgramUnderTest>(setup_.pc, setup_.program, "-NXLIB_TMOUT 1 -PING_N 2 -X");
  Listener listener;
  listener.onBox = [](const BoxUnderTest&) {};
  window_ = WaitForMainWindow(*program_, listener);
  window_->Settle();
  tabs_.clear();
  for (const std::string& caption : window_->StateOfTabs(ID_tabMode).captions) {
    // Each names its page from 1 on, as in "Ftp(&5)".
    const size_t number = caption.find('&');
    if (number == std::string::npos) throw LabError("A tab without a number: " + caption);
    tabs_.push_back(caption.at(number + 1) - '1');
  }
  k7ApiCaption_ = window_->Text(ID_cmdK7Api);
  handlesAtStart_ = program_->Handles();
}

void Monkey::Play(seconds length) {
  StartProgram();
  const auto end = std::chrono::steady_clock::now() + length;
  while (std::chrono::steady_clock::now() < end) TakeOneAction();
}

const Monkey::Kind& Monkey::Choose(uint32_t draw) const {
  const unsigned all = std::accumulate(std::begin(kKinds), std::end(kKinds), 0U,
                                       [](unsigned sum, const Kind& kind) { return sum + kind.weight; });
  unsigned place = draw % all;
  const Kind* kind = kKinds;
  while (place >= kind->weight) place -= kind++->weight;
  return *kind;
}

uint32_t Monkey::Draw() { return static_cast<uint32_t>(numbers_()); }

void Monkey::Note(const std::string& text) { done_ += " " + text; }

void Monkey::TakeOneAction() {
  const Kind& kind = Choose(Draw());
  Draws draws;
  for (uint32_t& draw : draws) draw = Draw();
  const bool yes = Draw() % 2 == 0;
  // The next action then comes under the box.
  const bool leavesBox = Draw() % 4 == 0;
  ++actions_;
  done_ = std::to_string(actions_) + " " + kind.name;
  std::string outcome;
  const auto begun = std::chrono::steady_clock::now();
  try {
    if ((this->*kind.act)(draws) == Outcome::NotPossible) {
      outcome = " - not possible now";
      ++notPossible_;
    }
  } catch (const LabError& error) {
    // The window was blocked by a call, or a box had come in between. Whether it lives is seen behind.
    outcome = std::string(" - not done: ") + error.what();
    ++notPossible_;
  }
  log_.push_back(done_ + outcome);
  if (kind.act != &Monkey::Close) WaitUntilIdle();
  CheckAlive();
  const auto taken = std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - begun);
  log_.back() += " (" + std::to_string(taken.count()) + " ms)";
  if (!leavesBox || kind.act == &Monkey::Close) AnswerBoxes(yes);
}

// What must hold at any time

void Monkey::CheckAlive() {
  if (!program_->Runs()) {
    throw Misbehaviour("The program has ended with " + std::to_string(program_->WaitForEnd()));
  }
  WaitForAnswer();
}

void Monkey::WaitUntilIdle() {
  try {
    // A click that was posted under no box must not be taken under the next: no mouse could do that.
    if (program_->Runs()) window_->Settle(kLongestCall);
  } catch (const LabError&) {
    // A box has gone or come meanwhile.
  }
}

void Monkey::WaitForAnswer() {
  const bool answers = WaitUntil(kLongestCall, [this] {
    try {
      window_->Text(ID_cmdPing);
      return true;
    } catch (const LabError&) {
      if (!program_->Runs()) throw Misbehaviour("The program has ended while it was asked");
      return false;
    }
  });
  if (!answers) throw Misbehaviour("The window hangs");
}

void Monkey::AnswerBoxes(bool yes) {
  for (int i = 0; program_->HasBox(); ++i) {
    if (i == kMostBoxesInARow) throw Misbehaviour("The boxes do not end");
    AnswerBox(yes);
    // The next one may come right behind.
    WaitUntilIdle();
  }
}

void Monkey::AnswerBox(bool yes) {
  const BoxUnderTest box = program_->WaitForBox();
  ++boxes_;
  log_.push_back("  box: " + box.title + ": " + box.text);
  // A box without an owner leaves every window of the program free, and may come up behind them.
  const std::string owner = WindowUnderTest(setup_.pc, box.handle).Owner();
  bool owned = owner == window_->Handle();
  for (const char* const further : {kPmcClass, kAboutClass})
    owned = owned || (program_->HasWindow(further) && program_->WaitForWindow(further).Handle() == owner);
  if (!owned) throw Misbehaviour("The box belongs to no window");
  RequireAllDisabled();
  const bool asks = std::any_of(box.buttons.begin(), box.buttons.end(), [](const auto& button) {
    return button.first == static_cast<int>(BoxButton::Yes);
  });
  program_->Answer(box, !asks ? BoxButton::Ok : yes ? BoxButton::Yes : BoxButton::No);
}

std::vector<std::pair<std::string, WindowUnderTest>> Monkey::Windows() {
  std::vector<std::pair<std::string, WindowUnderTest>> windows;
  for (const char* const name : {"Form1", kPmcClass, kAboutClass})
    if (program_->HasWindow(name)) windows.emplace_back(name, program_->WaitForWindow(name));
  return windows;
}

void Monkey::RequireAllDisabled() {
  for (const auto& [name, window] : Windows())
    if (window.Enabled(0)) throw Misbehaviour(name + " is enabled under a box");
}

void Monkey::CloseAllUnderBox() {
  const auto windows = Windows();
  for (const auto& [name, window] : windows) window.Close();
  WaitUntilIdle();
  for (const auto& [name, window] : windows)
    if (!program_->HasWindow(name)) throw Misbehaviour(name + " has closed under a box");
}

bool Monkey::Enabled() const { return window_->Enabled(0); }

bool Monkey::IsActive() const { return RunIsActive(*window_) || window_->Text(ID_cmdK7Api) != k7ApiCaption_; }

bool Monkey::PmcReads() {
  return program_->HasWindow(kPmcClass) && !program_->WaitForWindow(kPmcClass).Enabled(ID_cmdClose);
}

bool Monkey::AtRest() {
  // Over a box the pointer at rest is another than the arrow.
  return !program_->HasBox() && Enabled() && !IsActive() && !PmcReads() &&
         window_->CurrentPointer() != WindowUnderTest::Pointer::Hourglass;
}

// The actions

Monkey::Outcome Monkey::PressButton(const Draws& draws) {
  const Target& button = Pick(kMainButtons, draws[0]);
  Note(button.name);
  if (std::find(tabs_.begin(), tabs_.end(), button.page) == tabs_.end()) return Outcome::NotPossible;
  if (!Enabled()) return Outcome::NotPossible;
  window_->BringToForeground();
  if (!window_->Visible(button.id)) {
    const auto tab = std::find(tabs_.begin(), tabs_.end(), button.page) - tabs_.begin();
    window_->SelectTab(ID_tabMode, static_cast<int>(tab), kPatience);
  }
  if (!window_->Visible(button.id) || !window_->Enabled(button.id)) return Outcome::NotPossible;
  window_->Click(button.id);
  return Outcome::Done;
}

Monkey::Outcome Monkey::TestFtp(const Draws& draws) {
  // Without a cable the system's library may stand still for minutes, so this one goes to its end alone.
  const int button = draws[0] % 2 == 0 ? ID_cmdFtpConnect : ID_cmdAllFtpTest;
  Note(button == ID_cmdFtpConnect ? "connect" : "all");
  PlugEverything();
  if (!Enabled() || IsActive() || PmcReads()) return Outcome::NotPossible;
  window_->SelectTab(ID_tabMode, static_cast<int>(tabs_.size()) - 1, kPatience);
  window_->SetText(ID_txtPingReqCount, "1");
  window_->SetText(ID_cmbIPAddr, draws[1] % 3 == 0 ? kFarAddress : kNearAddress);
  window_->Click(button);
  window_->Settle(kLongestCall);
  const bool ended = WaitUntil(kLongestCall, [this] {
    AnswerBoxes(false);
    CheckAlive();
    return !IsActive();
  });
  if (!ended) throw Misbehaviour("The FTP test does not end");
  return Outcome::Done;
}

Monkey::Outcome Monkey::ChooseAddress(const Draws& draws) {
  const std::string address = Pick(kAddresses, draws[0]);
  const bool enter = draws[1] % 2 == 0;
  Note("\"" + address + "\"" + (enter ? " Enter" : ""));
  if (!Enabled()) return Outcome::NotPossible;
  window_->SetText(ID_cmbIPAddr, address);
  if (!enter) return Outcome::Done;
  window_->SetFocus(ID_cmbIPAddr);
  window_->Press("Enter");
  return Outcome::Done;
}

Monkey::Outcome Monkey::TypeIntoBox(const Draws& draws) {
  const Target& box = Pick(kBoxes, draws[0]);
  const std::string typed = Pick(kTyped, draws[1]);
  Note(std::string(box.name) + " \"" + (typed.front() == '\b' ? "Back" : typed) + "\"");
  if (!Enabled() || !window_->Visible(box.id) || !window_->Enabled(box.id)) return Outcome::NotPossible;
  window_->Type(box.id, typed);
  return Outcome::Done;
}

Monkey::Outcome Monkey::FillBox(const Draws& draws) {
  const Target& box = Pick(kBoxes, draws[0]);
  const std::string text =
      box.id == ID_txtNxlibTimeOut ? Pick(kTimeOuts, draws[1]) : Pick(kNumbers, draws[1]);
  Note(std::string(box.name) + " \"" + text + "\"");
  if (!Enabled()) return Outcome::NotPossible;
  window_->SetText(box.id, text);
  return Outcome::Done;
}

Monkey::Outcome Monkey::SelectTab(const Draws& draws) {
  const auto tab = static_cast<int>(draws[0] % tabs_.size());
  Note(std::to_string(tab));
  if (!Enabled()) return Outcome::NotPossible;
  window_->SelectTab(ID_tabMode, tab, kPatience);
  return Outcome::Done;
}

Monkey::Outcome Monkey::PressKeys(const Draws& draws) {
  const std::string keys = Pick(kKeys, draws[0]);
  Note(keys);
  if (!Enabled()) return Outcome::NotPossible;
  window_->Press(keys);
  return Outcome::Done;
}

Monkey::Outcome Monkey::Resize(const Draws& draws) {
  const ScreenRect rect{static_cast<int>(draws[0] % 600), static_cast<int>(draws[1] % 500),
                        static_cast<int>(draws[2] % 1200), static_cast<int>(draws[3] % 900)};
  const bool pmc = draws[0] % 4 == 0;
  Note((pmc ? "PMC window to " : "to ") + std::to_string(rect.width) + " x " + std::to_string(rect.height));
  if (pmc && !program_->HasWindow(kPmcClass)) return Outcome::NotPossible;
  const WindowUnderTest window = pmc ? program_->WaitForWindow(kPmcClass) : *window_;
  if (!window.Enabled(0)) return Outcome::NotPossible;
  window.Move(rect);
  return Outcome::Done;
}

Monkey::Outcome Monkey::Minimise(const Draws&) {
  if (!Enabled()) return Outcome::NotPossible;
  window_->Minimise();
  if (!WaitUntil(kSoon, [this] { return window_->Minimised(); }))
    throw Misbehaviour("The window does not minimise");
  window_->Restore();
  if (!WaitUntil(kSoon, [this] { return !window_->Minimised(); }))
    throw Misbehaviour("The window does not come back");
  return Outcome::Done;
}

Monkey::Outcome Monkey::ChangeScaling(const Draws& draws) {
  const int dpi = Pick(std::array{96, 120, 144}, draws[0]);
  Note(std::to_string(dpi));
  if (!Enabled()) return Outcome::NotPossible;
  window_->ChangeDpi(dpi, window_->Rect(0));
  return Outcome::Done;
}

Monkey::Outcome Monkey::Close(const Draws&) {
  ++closings_;
  if (program_->HasBox()) {
    CloseAllUnderBox();
    Note("all, refused under a box");
    return Outcome::Done;
  }
  window_->Close();
  // A run refuses it, and so does a window under a box.
  const bool gone =
      WaitUntil(kPatience, [this] { return !program_->HasWindow("Form1") || program_->HasBox(); });
  bool refused = false;
  try {
    refused = program_->HasBox() || (!gone && !AtRest());
  } catch (const LabError&) {
    refused = program_->HasWindow("Form1");  // it blocks
  }
  // What the window has not taken yet may end it all the same.
  if (refused) WaitUntilIdle();
  if (refused && program_->HasWindow("Form1")) {
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
  // With code on the stack the program goes on: whoever ended it here would do so in the middle of that.
  if (program_->HasWindow("Form1")) return Outcome::Done;
  CloseProgram();
  Note("and ended");
  StartProgram();
  return Outcome::Done;
}

Monkey::Outcome Monkey::OpenWindow(const Draws& draws) {
  const bool pmc = draws[0] % 3 != 0;
  Note(pmc ? kPmcClass : kAboutClass);
  if (!Enabled()) return Outcome::NotPossible;
  window_->InvokeCommand(pmc ? ID_mnuPMC : ID_mnuHelpSub);
  program_->WaitForWindow(pmc ? kPmcClass : kAboutClass);
  return Outcome::Done;
}

Monkey::Outcome Monkey::UseAboutBox(const Draws& draws) {
  const bool ok = draws[0] % 2 == 0;
  Note(ok ? "cmdOK" : "cmdSysInfo");
  if (!program_->HasWindow(kAboutClass)) return Outcome::NotPossible;
  const WindowUnderTest about = program_->WaitForWindow(kAboutClass);
  if (!about.Enabled(0)) return Outcome::NotPossible;
  about.BringToForeground();
  about.Click(ok ? ID_cmdOK : ID_cmdSysInfo);
  return Outcome::Done;
}

Monkey::Outcome Monkey::UsePmcWindow(const Draws& draws) {
  const Target& button = Pick(kPmcButtons, draws[1]);
  const Target& box = Pick(kPmcBoxes, draws[1]);
  const std::string text = Pick(kNumbers, draws[2]);
  const bool fills = draws[0] % 3 == 0;
  Note(fills ? box.name + (" \"" + text + "\"") : button.name);
  if (!program_->HasWindow(kPmcClass)) return Outcome::NotPossible;
  const WindowUnderTest pmc = program_->WaitForWindow(kPmcClass);
  if (!pmc.Enabled(0)) return Outcome::NotPossible;
  if (fills) {
    pmc.SetText(box.id, text);
    return Outcome::Done;
  }
  if (!pmc.Enabled(button.id)) return Outcome::NotPossible;
  pmc.BringToForeground();
  pmc.Click(button.id);
  return Outcome::Done;
}

Monkey::Outcome Monkey::MoveCable(const Draws& draws) {
  const Host host = Pick(std::array{Host::Pc, Host::Gateway, Host::Near, Host::Far}, draws[0]);
  // Plugged in more often than pulled, else there would soon be no network at all.
  const bool plugged = draws[1] % 3 != 0;
  Note((plugged ? "in at " : "out of ") + HostName(host));
  plugged ? setup_.net.PlugCable(host) : setup_.net.PullCable(host);
  return Outcome::Done;
}

Monkey::Outcome Monkey::CopyList(const Draws&) {
  if (!Enabled()) return Outcome::NotPossible;
  window_->DoubleClick(ID_lstResult);
  return Outcome::Done;
}

Monkey::Outcome Monkey::ClickLabel(const Draws& draws) {
  constexpr int kServicePage = 3;
  const bool services = draws[0] % 2 == 0;
  Note(services ? "lblK7UdpPortNo" : "lblK7ServerStatus");
  const auto tab = std::find(tabs_.begin(), tabs_.end(), kServicePage);
  if (tab == tabs_.end() || !Enabled()) return Outcome::NotPossible;
  window_->SelectTab(ID_tabMode, static_cast<int>(tab - tabs_.begin()), kPatience);
  if (services)
    window_->Click(ID_lblK7UdpPortNo, "Ctrl+Alt");
  else
    window_->Click(ID_lblK7ServerStatus);
  return Outcome::Done;
}

Monkey::Outcome Monkey::Idle(const Draws& draws) {
  const milliseconds time(draws[0] % 700);
  Note(std::to_string(time.count()) + " ms");
  WaitUntil(time, [] { return false; });
  return Outcome::Done;
}

// The end

void Monkey::PlugEverything() const {
  for (const Host host : {Host::Pc, Host::Gateway, Host::Near, Host::Far}) setup_.net.PlugCable(host);
}

void Monkey::StopEverything() {
  const bool stopped = WaitUntil(kLongestStop, [this] {
    CheckAlive();
    AnswerBoxes(false);
    try {
      if (PmcReads()) program_->WaitForWindow(kPmcClass).Click(ID_cmdStop);
      // Not the button: behind the end of a run its click would begin the next.
      if (Enabled() && IsActive()) window_->Press("Esc");
      return AtRest();
    } catch (const LabError&) {
      return false;  // blocked by a call, or a box has come up
    }
  });
  if (!stopped) throw Misbehaviour("The program does not come to rest");
}

void Monkey::CloseFurtherWindows() {
  for (const char* const further : {kPmcClass, kAboutClass}) {
    if (!program_->HasWindow(further)) continue;
    const WindowUnderTest window = program_->WaitForWindow(further);
    window.Close();
    window.WaitUntilGone();
  }
}

void Monkey::StartAndStopRun() {
  // First: a count that is none would keep the focus.
  window_->SetText(ID_txtPingReqCount, "60");
  window_->SelectTab(ID_tabMode, 0);
  window_->SetText(ID_cmbIPAddr, kNearAddress);
  window_->Click(ID_cmdPing);
  if (!WaitUntil(kSoon, [this] { return RunIsActive(*window_); })) throw Misbehaviour("No run begins");
  StopEverything();
}

void Monkey::CloseProgram() {
  // More than once: the run that has refused it may end right behind, and a command to the service, which
  // nothing shows, refuses it for as long as it polls.
  const bool ended = WaitUntil(kLongestStop, [this] {
    if (!program_->Runs()) return true;
    try {
      AnswerBoxes(false);
      if (program_->HasWindow("Form1")) window_->Close();
    } catch (const LabError&) {
      // The window falls apart.
    }
    return false;
  });
  if (!ended) throw Misbehaviour("The program is at rest and does not close");
  const uint32_t code = program_->WaitForEnd();
  if (code != 0) throw Misbehaviour("The program has ended with " + std::to_string(code));
}

void Monkey::TestOneMoreAddress() {
  const std::string address = LastAddress(starts_);
  setup_.net.SetHostNames(Host::Pc, {{"cnc-near", kNearAddress}, {address, kNearAddress}});
  window_->SetText(ID_txtPingReqCount, std::to_string(kLastEchoes));
  window_->SetText(ID_cmbIPAddr, address);
  window_->Click(ID_cmdPing);
  Listener listener;
  // A command to the service may still be polling, which nothing shows; it has the last word in a box.
  listener.onBox = [this](const BoxUnderTest& box) { log_.push_back("  box: " + box.text); };
  window_->WaitForLine(ID_lstResult, address + " -> " + kNearAddress, kSoon);
  const std::vector<std::string> lines = FollowRun(*program_, *window_, kLongestCall, listener);
  // On a machine under load an answer may come too late; a stop that was left behind sends none at all.
  const auto echoes = std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
    return line.find(" Reply From ") != std::string::npos || line.starts_with("ICMP_Error:");
  });
  if (echoes != kLastEchoes)
    throw Misbehaviour("The last test sends " + std::to_string(echoes) +
                       " echoes: " + (lines.empty() ? std::string() : lines.back()));
}

void Monkey::Finish() {
  log_.emplace_back("the end");
  PlugEverything();
  StopEverything();
  CloseFurtherWindows();
  window_->Settle();
  if (!AtRest()) throw Misbehaviour("The program does not stay at rest");
  handlesAtEnd_ = program_->Handles();
  StartAndStopRun();
  TestOneMoreAddress();
  CloseProgram();
  const auto kept = setup_.pc.RegistryText(kHistory, "01");
  if (kept != LastAddress(starts_))
    throw Misbehaviour("The last address is not kept: " + kept.value_or("none"));
  if (handlesAtEnd_ > handlesAtStart_ + kMostFurtherHandles)
    throw Misbehaviour("Handles are lost: " + Summary());
}

std::string Monkey::Summary() const {
  return std::to_string(actions_) + " actions, of which " + std::to_string(notPossible_) +
         " were not possible then; " + std::to_string(boxes_) + " boxes, " + std::to_string(closings_) +
         " closings, " + std::to_string(starts_) + " starts; handles " + std::to_string(handlesAtStart_) +
         " -> " + std::to_string(handlesAtEnd_);
}

}  // namespace tarvik::lab
