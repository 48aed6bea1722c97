#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "lab/network/laboratory.h"
#include "lab/pc/program.h"
#include "lab/pc/window_parts.h"

namespace tarvik::lab {

/// The program did what it must never do: it crashed, hung, showed a message box without an owner, did not
/// close when at rest. An action that is not possible at the moment is not misbehaviour.
class Misbehaviour : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Performs random actions on the real window while network cables are unplugged and plugged in. The seed
/// alone decides the sequence of actions; their effects also depend on timing. Play and Finish throw
/// Misbehaviour, and LabError when the laboratory itself fails.
class Monkey {
 public:
  struct Setup {
    const Laboratory& net;
    WindowsPc& pc;
    std::string program;  ///< path on this machine
  };

  Monkey(const Setup& setup, uint64_t seed);
  Monkey(const Monkey&) = delete;
  Monkey& operator=(const Monkey&) = delete;
  ~Monkey();

  /// Starts the program and performs actions until the time is up.
  void Play(std::chrono::seconds length);

  /// Call after Play. Stops what still runs, checks that the program is at rest and leaks no handles, starts
  /// and stops one more run, tests one more address, closes the program and checks that the address was
  /// saved.
  void Finish();

  /// The actions and their results, one per line.
  const std::vector<std::string>& Log() const { return log_; }
  /// Counts, on one line.
  std::string Summary() const;

 private:
  enum class Outcome { Done, NotPossible };
  /// The random numbers of one action. Every action draws all four, used or not, so that a change to one
  /// action does not change the ones after it.
  using Draws = std::array<uint32_t, 4>;
  struct Kind {
    const char* name;
    unsigned weight;
    Outcome (Monkey::*act)(const Draws&);
  };
  static const Kind kKinds[];

  /// How long one library call may block the window. Wine's WinINet waits half a minute for a server.
  static constexpr std::chrono::seconds kMaxCallTime{90};
  /// For what may never happen: a tab does not change while its page has an invalid number, and a run keeps
  /// the window open.
  static constexpr std::chrono::seconds kShortWait{2};
  static constexpr char kHistoryKey[] = "Software\\NORVAX_FN_PingUtil\\History";

  void TakeOneAction();
  const Kind& Choose(uint32_t draw) const;
  uint32_t Draw();
  /// Adds to the log line of the current action.
  void Note(const std::string& text);

  // Actions on the main window
  Outcome PressButton(const Draws& draws);
  Outcome TestFtp(const Draws& draws);
  Outcome ChooseAddress(const Draws& draws);
  Outcome TypeIntoField(const Draws& draws);
  Outcome FillField(const Draws& draws);
  Outcome SelectTab(const Draws& draws);
  Outcome PressKeys(const Draws& draws);
  Outcome Minimise(const Draws& draws);
  Outcome ChangeScaling(const Draws& draws);
  Outcome CopyList(const Draws& draws);
  Outcome ClickLabel(const Draws& draws);
  /// Selects the page's tab; false when this edition of the program does not have it. Throws LabError when
  /// an invalid number keeps another page in front.
  bool BringToFront(Page page) const;

  // Actions on other windows and on the network
  Outcome OpenWindow(const Draws& draws);
  Outcome UseAboutBox(const Draws& draws);
  Outcome UsePmcWindow(const Draws& draws);
  Outcome Resize(const Draws& draws);
  Outcome MoveCable(const Draws& draws);
  Outcome Idle(const Draws& draws);

  // Judging what the program shows
  void CheckAlive();
  void CheckAllDisabled();
  void CheckNoneCloses();
  void CheckExitCode();
  void AnswerBoxes(bool yes);
  void AnswerBox(bool yes);
  void WaitUntilIdle();
  void WaitForAnswer();
  std::vector<std::pair<std::string, WindowUnderTest>> Windows();
  bool Enabled() const;
  bool IsActive() const;
  bool PmcReads();
  bool AtRest();

  // Starting and stopping
  void StartProgram();
  Outcome Close(const Draws& draws);
  Outcome EndSession(const Draws& draws);
  bool RefusesToClose();
  void CloseProgram();
  void BringToRest();
  void CloseOtherWindows();
  void StartAndStopRun();
  void TestOneMoreAddress();
  void PlugInAllCables() const;

  Setup setup_;
  std::mt19937 numbers_;
  std::unique_ptr<ProgramUnderTest> program_;
  std::optional<WindowUnderTest> window_;
  std::vector<Page> tabs_;  ///< the page of each visible tab
  std::string k7ApiCaption_;
  std::string current_;  ///< the log line of the current action
  std::vector<std::string> log_;
  std::set<std::string> seenBoxes_;       ///< boxes since none was open; several are nested
  std::set<std::string> answeredOwners_;  ///< owners of those of them that were answered
  int actions_ = 0;
  int notPossible_ = 0;
  int boxes_ = 0;
  int closings_ = 0;
  int starts_ = 0;
  int64_t handlesAtStart_ = 0;
  int64_t handlesAtEnd_ = 0;
};

}  // namespace tarvik::lab
