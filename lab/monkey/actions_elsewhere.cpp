// Actions on the about box, the PMC window, either window's size, and the network.

#include <array>

#include "app/control_ids.h"
#include "lab/monkey/choices.h"
#include "lab/monkey/monkey.h"

namespace tarvik::lab {
namespace {

struct PmcPart {
  const char* name;
  int id;
};

constexpr PmcPart kPmcButtons[] = {{"Read", ID_cmdRead}, {"Stop", ID_cmdStop}, {"Close", ID_cmdClose}};
constexpr PmcPart kPmcFields[] = {
    {"start", ID_txtPmcStart}, {"length", ID_txtPmcLen}, {"count", ID_txtCount}, {"sleep", ID_txtSleep}};

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

}  // namespace

Monkey::Outcome Monkey::OpenWindow(const Draws& draws) {
  const bool pmc = draws[0] % 3 != 0;
  Note(pmc ? kPmcWindowClass : kAboutBoxClass);
  if (!Enabled()) return Outcome::NotPossible;
  window_->InvokeCommand(pmc ? ID_mnuPMC : ID_mnuHelpSub);
  program_->WaitForWindow(pmc ? kPmcWindowClass : kAboutBoxClass);
  return Outcome::Done;
}

Monkey::Outcome Monkey::UseAboutBox(const Draws& draws) {
  const bool ok = draws[0] % 2 == 0;
  Note(ok ? "OK" : "System Info");
  if (!program_->HasWindow(kAboutBoxClass)) return Outcome::NotPossible;
  const WindowUnderTest about = program_->WaitForWindow(kAboutBoxClass);
  if (!about.Enabled(0)) return Outcome::NotPossible;
  about.BringToForeground();
  about.Click(ok ? ID_cmdOK : ID_cmdSysInfo);
  return Outcome::Done;
}

Monkey::Outcome Monkey::UsePmcWindow(const Draws& draws) {
  const PmcPart& button = Pick(kPmcButtons, draws[1]);
  const PmcPart& field = Pick(kPmcFields, draws[1]);
  const std::string text = Pick(kNumberTexts, draws[2]);
  const bool fills = draws[0] % 3 == 0;
  Note(fills ? field.name + (" \"" + text + "\"") : button.name);
  if (!program_->HasWindow(kPmcWindowClass)) return Outcome::NotPossible;
  const WindowUnderTest pmc = program_->WaitForWindow(kPmcWindowClass);
  if (!pmc.Enabled(0)) return Outcome::NotPossible;
  if (fills) {
    pmc.SetText(field.id, text);
    return Outcome::Done;
  }
  if (!pmc.Enabled(button.id)) return Outcome::NotPossible;
  pmc.BringToForeground();
  pmc.Click(button.id);
  return Outcome::Done;
}

Monkey::Outcome Monkey::Resize(const Draws& draws) {
  const ScreenRect rect{static_cast<int>(draws[0] % 600), static_cast<int>(draws[1] % 500),
                        static_cast<int>(draws[2] % 1200), static_cast<int>(draws[3] % 900)};
  const bool pmc = draws[0] % 4 == 0;
  Note((pmc ? "PMC window to " : "to ") + std::to_string(rect.width) + " x " + std::to_string(rect.height));
  if (pmc && !program_->HasWindow(kPmcWindowClass)) return Outcome::NotPossible;
  const WindowUnderTest window = pmc ? program_->WaitForWindow(kPmcWindowClass) : *window_;
  if (!window.Enabled(0)) return Outcome::NotPossible;
  window.Move(rect);
  return Outcome::Done;
}

Monkey::Outcome Monkey::MoveCable(const Draws& draws) {
  const Host host = Pick(std::array{Host::Pc, Host::Gateway, Host::Near, Host::Far}, draws[0]);
  // Plugged in more often than pulled; otherwise the PC would soon have no network at all.
  const bool plugged = draws[1] % 3 != 0;
  Note((plugged ? "in at " : "out of ") + HostName(host));
  plugged ? setup_.net.PlugCable(host) : setup_.net.PullCable(host);
  return Outcome::Done;
}

Monkey::Outcome Monkey::Idle(const Draws& draws) {
  const milliseconds time(draws[0] % 700);
  Note(std::to_string(time.count()) + " ms");
  WaitUntil(time, [] { return false; });
  return Outcome::Done;
}

}  // namespace tarvik::lab
