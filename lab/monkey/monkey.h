#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "lab/network/laboratory.h"
#include "lab/pc/program.h"

namespace tarvik::lab {

/// The program does what it must not: ends, hangs, shows a box that belongs to no window of its own, does not
/// close when it is at rest. What a single action cannot do is no such thing.
class Misbehaviour : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A user who does anything at any time on the real window, while somebody pulls cables and plugs them in
/// again. What it does follows from its seed alone, one action after the other; only what comes of an action
/// depends on the moment. Play and Finish throw Misbehaviour, and LabError when the laboratory itself fails.
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

  /// Starts the program, and acts for so long.
  void Play(std::chrono::seconds length);

  /// Stops whatever still runs, and one more run, sees that the program is at rest as if nothing had been,
  /// lets it test one more address, closes it and sees that the address was kept. Call behind Play.
  void Finish();

  /// What was done, and what came of it.
  const std::vector<std::string>& Log() const { return log_; }
  /// Counts, on one line.
  std::string Summary() const;

 private:
  enum class Outcome { Done, NotPossible };
  /// The numbers of one action. Each action draws as many, so that what one makes of them moves no other.
  using Draws = std::array<uint32_t, 4>;
  struct Kind {
    const char* name;
    unsigned weight;
    Outcome (Monkey::*act)(const Draws&);
  };
  static const Kind kKinds[];

  void StartProgram();
  void TakeOneAction();
  const Kind& Choose(uint32_t draw) const;
  uint32_t Draw();
  void Note(const std::string& text);

  // The actions
  Outcome PressButton(const Draws& draws);
  Outcome TestFtp(const Draws& draws);
  Outcome ChooseAddress(const Draws& draws);
  Outcome TypeIntoBox(const Draws& draws);
  Outcome FillBox(const Draws& draws);
  Outcome SelectTab(const Draws& draws);
  Outcome PressKeys(const Draws& draws);
  Outcome Resize(const Draws& draws);
  Outcome Minimise(const Draws& draws);
  Outcome ChangeScaling(const Draws& draws);
  Outcome Close(const Draws& draws);
  Outcome EndSession(const Draws& draws);
  Outcome OpenWindow(const Draws& draws);
  Outcome UseAboutBox(const Draws& draws);
  Outcome UsePmcWindow(const Draws& draws);
  Outcome MoveCable(const Draws& draws);
  Outcome CopyList(const Draws& draws);
  Outcome ClickLabel(const Draws& draws);
  Outcome Idle(const Draws& draws);

  // What must hold at any time
  void CheckAlive();
  void AnswerBoxes(bool yes);
  void AnswerBox(bool yes);
  void RequireAllDisabled();
  void CloseAllUnderBox();
  std::vector<std::pair<std::string, WindowUnderTest>> Windows();
  void WaitUntilIdle();
  void WaitForAnswer();

  bool Enabled() const;
  bool IsActive() const;
  bool PmcReads();
  bool AtRest();
  void PlugEverything() const;
  void StopEverything();
  void CloseFurtherWindows();
  void StartAndStopRun();
  void CloseProgram();
  void TestOneMoreAddress();

  Setup setup_;
  std::mt19937 numbers_;
  std::unique_ptr<ProgramUnderTest> program_;
  std::optional<WindowUnderTest> window_;
  std::vector<int> tabs_;  ///< the pages that the program shows, by their numbers
  std::string k7ApiCaption_;
  std::string done_;  ///< what the present action says of itself
  std::vector<std::string> log_;
  int actions_ = 0;
  int notPossible_ = 0;
  int boxes_ = 0;
  int closings_ = 0;
  int starts_ = 0;
  int64_t handlesAtStart_ = 0;
  int64_t handlesAtEnd_ = 0;
};

}  // namespace tarvik::lab
