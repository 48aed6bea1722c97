// The actions with their weights, and the loop that performs them. The actions themselves are in
// actions_*.cpp and start_and_stop.cpp, the checks after each of them in judging.cpp.

#include "lab/monkey/monkey.h"

#include <numeric>

namespace tarvik::lab {

const Monkey::Kind Monkey::kKinds[] = {
    {"press", 22, &Monkey::PressButton},
    {"FTP", 2, &Monkey::TestFtp},
    {"address", 10, &Monkey::ChooseAddress},
    {"type", 8, &Monkey::TypeIntoField},
    {"fill", 10, &Monkey::FillField},
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
  setup_.pc.DeleteRegistryKey(kHistoryKey);
}

Monkey::~Monkey() = default;

void Monkey::Play(std::chrono::seconds length) {
  StartProgram();
  const auto end = std::chrono::steady_clock::now() + length;
  while (std::chrono::steady_clock::now() < end) TakeOneAction();
}

const Monkey::Kind& Monkey::Choose(uint32_t draw) const {
  const unsigned total = std::accumulate(std::begin(kKinds), std::end(kKinds), 0U,
                                         [](unsigned sum, const Kind& kind) { return sum + kind.weight; });
  unsigned place = draw % total;
  const Kind* kind = kKinds;
  while (place >= kind->weight) place -= kind++->weight;
  return *kind;
}

uint32_t Monkey::Draw() { return static_cast<uint32_t>(numbers_()); }

void Monkey::Note(const std::string& text) { current_ += " " + text; }

void Monkey::TakeOneAction() {
  const Kind& kind = Choose(Draw());
  Draws draws;
  for (uint32_t& draw : draws) draw = Draw();
  const bool yes = Draw() % 2 == 0;
  // The next action then meets a program with an open message box.
  const bool leavesBox = Draw() % 4 == 0;
  ++actions_;
  current_ = std::to_string(actions_) + " " + kind.name;
  std::string outcome;
  const auto begun = std::chrono::steady_clock::now();
  try {
    if ((this->*kind.act)(draws) == Outcome::NotPossible) {
      outcome = " - not possible now";
      ++notPossible_;
    }
  } catch (const LabError& error) {
    // A library call blocked the window, or a message box appeared. CheckAlive below notices a crash.
    outcome = std::string(" - not done: ") + error.what();
    ++notPossible_;
  }
  log_.push_back(current_ + outcome);
  if (kind.act != &Monkey::Close) WaitUntilIdle();
  CheckAlive();
  const auto taken = std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - begun);
  log_.back() += " (" + std::to_string(taken.count()) + " ms)";
  if (!leavesBox || kind.act == &Monkey::Close) AnswerBoxes(yes);
}

std::string Monkey::Summary() const {
  return std::to_string(actions_) + " actions, " + std::to_string(notPossible_) + " of them not possible; " +
         std::to_string(boxes_) + " boxes, " + std::to_string(closings_) + " closings, " +
         std::to_string(starts_) + " starts; handles " + std::to_string(handlesAtStart_) + " -> " +
         std::to_string(handlesAtEnd_);
}

}  // namespace tarvik::lab
