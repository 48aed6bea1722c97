// Actions on the main window. An action that the window does not allow at the moment is NotPossible; a
// LabError from a window that is blocked or disabled meanwhile counts as such too.

#include <algorithm>
#include <vector>

#include "app/control_ids.h"
#include "lab/monkey/choices.h"
#include "lab/monkey/monkey.h"

namespace tarvik::lab {
namespace {

constexpr const char* kAddresses[] = {kNearAddress, kNearAddress, kFarAddress, kGatewayAddress,
                                      "cnc-near",   "cnc-9",      "",          "192.168.1.7",
                                      "10.1.2.3",   "1.2.3.4.5"};
/// The program replaces an invalid time-out by ten seconds, too many for a short test: few of these are.
constexpr const char* kTimeOutTexts[] = {"1", "2", "1", "2", "x", ""};
constexpr const char* kTyped[] = {"1", "23", "abc", "192.", "-", " ", "漢字", "\b", "\b\b\b\b", "4711"};
constexpr const char* kKeys[] = {"Esc",   "Tab",   "Shift+Tab", "Enter", "Space", "Alt+P", "Alt+1", "Alt+2",
                                 "Alt+3", "Alt+5", "Ctrl+Tab",  "Down",  "Up",    "Home",  "Alt+A", "Delete"};

/// Every button and check box but those of the FTP page, which TestFtp clicks.
std::vector<WindowPart> PartsToClick() {
  std::vector<WindowPart> parts;
  for (const WindowPart& button : kButtons)
    if (button.page != Page::Ftp) parts.push_back(button);
  parts.insert(parts.end(), std::begin(kCheckBoxes), std::end(kCheckBoxes));
  parts.insert(parts.end(), std::begin(kK7ServiceButtons), std::end(kK7ServiceButtons));
  return parts;
}

}  // namespace

bool Monkey::BringToFront(Page page) const {
  const auto tab = std::find(tabs_.begin(), tabs_.end(), page);
  if (tab == tabs_.end()) return false;
  window_->SelectTab(ID_tabMode, static_cast<int>(tab - tabs_.begin()), kShortWait);
  return true;
}

Monkey::Outcome Monkey::PressButton(const Draws& draws) {
  static const std::vector<WindowPart> parts = PartsToClick();
  const WindowPart& button = Pick(parts, draws[0]);
  Note(button.name);
  if (!Enabled()) return Outcome::NotPossible;
  window_->BringToForeground();
  if (!window_->Visible(button.id) && !BringToFront(button.page)) return Outcome::NotPossible;
  if (!window_->Visible(button.id) || !window_->Enabled(button.id)) return Outcome::NotPossible;
  window_->Click(button.id);
  return Outcome::Done;
}

/// Runs to its end before the next action: without a cable WinINet may block for minutes.
Monkey::Outcome Monkey::TestFtp(const Draws& draws) {
  const int button = draws[0] % 2 == 0 ? ID_cmdFtpConnect : ID_cmdAllFtpTest;
  Note(button == ID_cmdFtpConnect ? "connect" : "all");
  PlugInAllCables();
  if (!Enabled() || IsActive() || PmcReads()) return Outcome::NotPossible;
  BringToFront(Page::Ftp);
  window_->SetText(ID_txtPingReqCount, "1");
  window_->SetText(ID_cmbIPAddr, draws[1] % 3 == 0 ? kFarAddress : kNearAddress);
  window_->Click(button);
  window_->Settle(kMaxCallTime);
  const bool ended = WaitUntil(kMaxCallTime, [this] {
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

/// Types keys into a field of the front page, through the field's key filter.
Monkey::Outcome Monkey::TypeIntoField(const Draws& draws) {
  const WindowPart& field = Pick(kFields, draws[0]);
  const std::string typed = Pick(kTyped, draws[1]);
  Note(std::string(field.name) + " \"" + (typed.front() == '\b' ? "Back" : typed) + "\"");
  if (!Enabled() || !window_->Visible(field.id) || !window_->Enabled(field.id)) return Outcome::NotPossible;
  window_->Type(field.id, typed);
  return Outcome::Done;
}

/// Sets the text of a field on any page, past its key filter.
Monkey::Outcome Monkey::FillField(const Draws& draws) {
  const WindowPart& field = Pick(kFields, draws[0]);
  const std::string text =
      field.id == ID_txtNxlibTimeOut ? Pick(kTimeOutTexts, draws[1]) : Pick(kNumberTexts, draws[1]);
  Note(std::string(field.name) + " \"" + text + "\"");
  if (!Enabled()) return Outcome::NotPossible;
  window_->SetText(field.id, text);
  return Outcome::Done;
}

Monkey::Outcome Monkey::SelectTab(const Draws& draws) {
  const size_t tab = draws[0] % tabs_.size();
  Note(std::to_string(tab));
  if (!Enabled()) return Outcome::NotPossible;
  BringToFront(tabs_[tab]);
  return Outcome::Done;
}

Monkey::Outcome Monkey::PressKeys(const Draws& draws) {
  const std::string keys = Pick(kKeys, draws[0]);
  Note(keys);
  if (!Enabled()) return Outcome::NotPossible;
  window_->Press(keys);
  return Outcome::Done;
}

Monkey::Outcome Monkey::Minimise(const Draws&) {
  if (!Enabled()) return Outcome::NotPossible;
  window_->Minimise();
  // The run may open a message box at any moment, and a disabled window obeys neither request.
  if (!WaitUntil(kSoon, [this] { return window_->Minimised() || !Enabled(); }))
    throw Misbehaviour("The window does not minimise");
  const bool restored = WaitUntil(kSoon, [this] {
    AnswerBoxes(false);
    window_->Restore();
    return WaitUntil(kShortWait, [this] { return !window_->Minimised(); });
  });
  if (!restored) throw Misbehaviour("The window cannot be restored");
  return Outcome::Done;
}

Monkey::Outcome Monkey::ChangeScaling(const Draws& draws) {
  const int dpi = Pick(std::array{96, 120, 144}, draws[0]);
  Note(std::to_string(dpi));
  if (!Enabled()) return Outcome::NotPossible;
  window_->ChangeDpi(dpi, window_->Rect(0));
  return Outcome::Done;
}

Monkey::Outcome Monkey::CopyList(const Draws&) {
  if (!Enabled()) return Outcome::NotPossible;
  window_->DoubleClick(ID_lstResult);
  return Outcome::Done;
}

/// Clicks the labels that are commands: the status is queried, Ctrl+Alt on the port opens the services file.
Monkey::Outcome Monkey::ClickLabel(const Draws& draws) {
  const bool port = draws[0] % 2 == 0;
  const int label = port ? ID_lblK7UdpPortNo : ID_lblK7ServerStatus;
  Note(port ? "K7 Server UDP port" : "K7 Server status");
  if (!Enabled() || !BringToFront(Page::K7Svc)) return Outcome::NotPossible;
  window_->Click(label, port ? "Ctrl+Alt" : "");
  return Outcome::Done;
}

}  // namespace tarvik::lab
