#include "lab/pc/program.h"

#include <cstdio>
#include <sstream>

namespace tarvik::lab {
namespace {

using Fields = std::vector<std::string>;

std::string Text(milliseconds time) { return std::to_string(time.count()); }

/// Longer than the driver's own time-out, so that its error message arrives.
milliseconds Longer(milliseconds timeOut) { return timeOut + kUnblocked; }

int Number(const Fields& fields, size_t index) { return std::stoi(fields.at(index)); }

bool Flag(const Fields& fields, size_t index) { return fields.at(index) == "1"; }

ScreenRect RectOf(const Fields& fields, size_t first) {
  return {Number(fields, first), Number(fields, first + 1), Number(fields, first + 2),
          Number(fields, first + 3)};
}

Fields RectFields(const ScreenRect& rect) {
  return {std::to_string(rect.left), std::to_string(rect.top), std::to_string(rect.width),
          std::to_string(rect.height)};
}

}  // namespace

Fields WindowUnderTest::Ask(const char* command, int id, Fields more, milliseconds timeOut) const {
  more.insert(more.begin(), std::to_string(id));
  return AskWindow(command, std::move(more), timeOut);
}

Fields WindowUnderTest::AskWindow(const char* command, Fields more, milliseconds timeOut) const {
  more.insert(more.begin(), {command, handle_});
  return pc_->Ask(more, timeOut);
}

std::string WindowUnderTest::Text(int id) const { return Ask("text", id).at(0); }
int WindowUnderTest::TextLength(int id) const { return Number(Ask("text_length", id), 0); }
void WindowUnderTest::SetText(int id, const std::string& text) const { Ask("set_text", id, {text}); }

void WindowUnderTest::WaitForText(int id, const std::string& text, milliseconds timeOut) const {
  Ask("wait_text", id, {text, lab::Text(timeOut)}, Longer(timeOut));
}

void WindowUnderTest::WaitCloselyForText(int id, const std::string& text, milliseconds timeOut) const {
  Ask("wait_text_closely", id, {text, lab::Text(timeOut)}, Longer(timeOut));
}

std::string WindowUnderTest::ClassName(int id) const { return Ask("class", id).at(0); }
std::string WindowUnderTest::Owner() const { return AskWindow("owner").at(0); }
bool WindowUnderTest::Enabled(int id) const { return Flag(Ask("state", id), 0); }
bool WindowUnderTest::Visible(int id) const { return Flag(Ask("state", id), 1); }
bool WindowUnderTest::Checked(int id) const { return Flag(Ask("checked", id), 0); }
bool WindowUnderTest::Minimised() const { return Flag(Ask("state", 0), 2); }
bool WindowUnderTest::Topmost() const { return Flag(Ask("state", 0), 3); }
bool WindowUnderTest::InForeground() const { return Flag(Ask("state", 0), 4); }

uint32_t WindowUnderTest::Style(int id) const {
  return static_cast<uint32_t>(std::stoul(Ask("styles", id).at(0)));
}

uint32_t WindowUnderTest::ExtendedStyle(int id) const {
  return static_cast<uint32_t>(std::stoul(Ask("styles", id).at(1)));
}

ScreenRect WindowUnderTest::Rect(int id) const { return RectOf(Ask("rect", id), 0); }
ScreenRect WindowUnderTest::ClientRect(int id) const { return RectOf(Ask("client_rect", id), 0); }

std::vector<WindowUnderTest::ControlInfo> WindowUnderTest::Controls() const {
  constexpr size_t kFieldsPerItem = 9;
  const Fields fields = AskWindow("controls");
  std::vector<ControlInfo> controls;
  for (size_t i = 0; i + kFieldsPerItem <= fields.size(); i += kFieldsPerItem) {
    controls.push_back({Number(fields, i), fields[i + 1], fields[i + 2], Flag(fields, i + 3),
                        Flag(fields, i + 4), RectOf(fields, i + 5)});
  }
  return controls;
}

WindowUnderTest::TextSize WindowUnderTest::NeededFor(int id) const {
  const Fields fields = Ask("text_size", id);
  return {Number(fields, 0), Number(fields, 1)};
}

WindowUnderTest::ControlInfo WindowUnderTest::Previous(int id) const {
  const Fields fields = Ask("previous", id);
  ControlInfo control;
  control.id = Number(fields, 0);
  control.windowClass = fields.at(1);
  control.text = fields.at(2);
  return control;
}

int WindowUnderTest::Focus() const { return Number(AskWindow("focus"), 0); }

void WindowUnderTest::WaitForFocus(int id, milliseconds timeOut) const {
  Ask("wait_focus", id, {lab::Text(timeOut)}, Longer(timeOut));
}

void WindowUnderTest::SetFocus(int id) const { Ask("set_focus", id); }
void WindowUnderTest::Type(int id, const std::string& characters) const { Ask("type", id, {characters}); }
void WindowUnderTest::TypeDecimalComma(int id) const { Ask("decimal_comma", id); }
void WindowUnderTest::Press(const std::string& keys) const { AskWindow("keys", {keys}); }
void WindowUnderTest::Click(int id, const std::string& modifiers) const { Ask("click", id, {modifiers}); }
void WindowUnderTest::DoubleClick(int id) const { Ask("double_click", id); }

void WindowUnderTest::RightClickLine(int id, int line) const {
  Ask("right_click", id, {std::to_string(line)});
}

void WindowUnderTest::Settle(milliseconds timeOut) const {
  AskWindow("settle", {lab::Text(timeOut)}, Longer(timeOut));
}

double WindowUnderTest::MillisecondsFromClickTo(int id, const std::string& caption,
                                                milliseconds timeOut) const {
  return std::stod(Ask("measure_click", id, {caption, lab::Text(timeOut)}, Longer(timeOut)).at(0));
}

std::vector<std::string> WindowUnderTest::Lines(int id) const { return Ask("lines", id); }
int WindowUnderTest::LineCount(int id) const { return Number(Ask("line_count", id), 0); }

WindowUnderTest::ListState WindowUnderTest::StateOfList(int id) const {
  const Fields fields = Ask("list_state", id);
  return {Number(fields, 0), Number(fields, 1), Number(fields, 2), Number(fields, 3)};
}

void WindowUnderTest::WaitForLine(int id, const std::string& line, milliseconds timeOut) const {
  Ask("wait_line", id, {line, lab::Text(timeOut)}, Longer(timeOut));
}

void WindowUnderTest::WaitForLastLine(int id, const std::string& line, milliseconds timeOut) const {
  Ask("wait_last", id, {line, lab::Text(timeOut)}, Longer(timeOut));
}

bool WindowUnderTest::ReadNewLines(int id, std::vector<std::string>& known) const {
  Fields fields =
      Ask("new_lines", id, {std::to_string(known.size()), known.empty() ? std::string() : known.back()});
  const bool extends = Flag(fields, 0);
  if (!extends) known.clear();
  known.insert(known.end(), fields.begin() + 1, fields.end());
  return extends;
}

void WindowUnderTest::WaitForChange(int id, const std::vector<std::string>& known,
                                    milliseconds timeOut) const {
  Ask("wait_changed", id,
      {std::to_string(known.size()), known.empty() ? std::string() : known.back(), lab::Text(timeOut)},
      Longer(timeOut));
}

void WindowUnderTest::EmptyList(int id) const { Ask("clear_list", id); }

void WindowUnderTest::AddLines(int id, int count, const std::string& line) const {
  Ask("add_lines", id, {std::to_string(count), line});
}

int WindowUnderTest::WidthOfLine(int id, const std::string& line, int tabStop) const {
  return Number(Ask("line_width", id, {line, std::to_string(tabStop)}), 0);
}

std::vector<std::string> WindowUnderTest::ComboItems(int id) const { return Ask("combo_items", id); }

std::vector<WindowUnderTest::StatusField> WindowUnderTest::StatusFields(int id) const {
  constexpr size_t kFieldsPerItem = 5;
  const Fields fields = Ask("status_fields", id);
  std::vector<StatusField> all;
  for (size_t i = 0; i + kFieldsPerItem <= fields.size(); i += kFieldsPerItem)
    all.push_back({fields[i], RectOf(fields, i + 1)});
  return all;
}

void WindowUnderTest::Hover(int id) const { Ask("hover", id); }

std::string WindowUnderTest::ToolTipOfField(int id, int field) const {
  return Ask("tool_tip", id, {std::to_string(field)}).at(0);
}

WindowUnderTest::Tabs WindowUnderTest::StateOfTabs(int id) const {
  Fields fields = Ask("tabs", id);
  Tabs tabs;
  tabs.front = Number(fields, 0);
  fields.erase(fields.begin());
  tabs.captions = std::move(fields);
  return tabs;
}

ScreenRect WindowUnderTest::RectOfTab(int id, int index) const {
  return RectOf(Ask("tab_rect", id, {std::to_string(index)}), 0);
}

void WindowUnderTest::SelectTab(int id, int index, milliseconds timeOut) const {
  Ask("select_tab", id, {std::to_string(index), lab::Text(timeOut)}, Longer(timeOut));
}

std::vector<WindowUnderTest::MenuItem> WindowUnderTest::Menu() const {
  constexpr size_t kFieldsPerItem = 4;
  const Fields fields = AskWindow("menu");
  std::vector<MenuItem> items;
  for (size_t i = 0; i + kFieldsPerItem <= fields.size(); i += kFieldsPerItem) {
    items.push_back({Number(fields, i), Number(fields, i + 1), fields[i + 2], Flag(fields, i + 3)});
  }
  return items;
}

void WindowUnderTest::InvokeCommand(int commandId) const {
  AskWindow("command", {std::to_string(commandId)});
}

WindowUnderTest::Pointer WindowUnderTest::CurrentPointer() const {
  const std::string name = AskWindow("pointer").at(0);
  return name == "hourglass" ? Pointer::Hourglass : name == "arrow" ? Pointer::Arrow : Pointer::Other;
}

void WindowUnderTest::BringToForeground() const { AskWindow("foreground"); }
void WindowUnderTest::Disarrange(int id) const { Ask("disarrange", id); }

void WindowUnderTest::Move(const ScreenRect& outer) const { AskWindow("move", RectFields(outer)); }
void WindowUnderTest::Minimise() const { AskWindow("minimise"); }
void WindowUnderTest::Restore() const { AskWindow("restore"); }

void WindowUnderTest::ChangeDpi(int dpi, const ScreenRect& suggested) const {
  Fields fields = RectFields(suggested);
  fields.insert(fields.begin(), std::to_string(dpi));
  AskWindow("dpi", fields);
}

void WindowUnderTest::ChangeTheme() const { AskWindow("change_theme"); }
void WindowUnderTest::ChangeColours() const { AskWindow("change_colours"); }
void WindowUnderTest::Close() const { AskWindow("close"); }

void WindowUnderTest::WaitUntilGone(milliseconds timeOut) const {
  AskWindow("wait_gone", {lab::Text(timeOut)}, Longer(timeOut));
}

ProgramUnderTest::ProgramUnderTest(WindowsPc& pc, const std::string& program, const std::string& commandLine,
                                   const std::string& workingFolder)
    : pc_(pc),
      id_(pc.Ask({"start", WindowsPath(program), commandLine,
                  workingFolder.empty() ? std::string() : WindowsPath(workingFolder)})
              .at(0)) {}

ProgramUnderTest::~ProgramUnderTest() {
  try {
    Kill();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
}

double ProgramUnderTest::WaitForFirstIdle(milliseconds timeOut) {
  return std::stod(pc_.Ask({"wait_idle", id_, Text(timeOut)}, Longer(timeOut)).at(0));
}

WindowUnderTest ProgramUnderTest::WaitForWindow(const std::string& windowClass, milliseconds timeOut) {
  return WindowUnderTest(pc_,
                         pc_.Ask({"wait_window", id_, windowClass, Text(timeOut)}, Longer(timeOut)).at(0));
}

bool ProgramUnderTest::HasWindow(const std::string& windowClass) {
  return pc_.Ask({"has_window", id_, windowClass}).at(0) == "1";
}

BoxUnderTest ProgramUnderTest::WaitForBox(milliseconds timeOut) {
  const Fields fields = pc_.Ask({"wait_box", id_, Text(timeOut)}, Longer(timeOut));
  BoxUnderTest box{fields.at(0), fields.at(1), fields.at(2), fields.at(3), {}};
  for (size_t i = 4; i + 1 < fields.size(); i += 2)
    box.buttons.emplace_back(Number(fields, i), fields[i + 1]);
  return box;
}

bool ProgramUnderTest::HasBox() { return HasWindow("#32770"); }

std::vector<std::string> ProgramUnderTest::Boxes() { return pc_.Ask({"list_windows", id_, "#32770"}); }

void ProgramUnderTest::Answer(const BoxUnderTest& box, BoxButton button) {
  pc_.Ask({"answer_box", box.handle, std::to_string(static_cast<int>(button)), Text(kSoon)});
}

bool ProgramUnderTest::SessionMayEnd() { return pc_.Ask({"session_may_end", id_}).at(0) == "1"; }

void ProgramUnderTest::EndSession() { pc_.Ask({"end_session", id_}); }

bool ProgramUnderTest::Runs() { return pc_.Ask({"runs", id_}).at(0) == "1"; }

void ProgramUnderTest::RequireRunning() {
  if (Runs()) return;
  std::ostringstream code;
  code << std::hex << WaitForEnd();
  throw LabError("The program has ended with exit code 0x" + code.str());
}

uint32_t ProgramUnderTest::WaitForEnd(milliseconds timeOut) {
  return static_cast<uint32_t>(std::stoul(pc_.Ask({"wait_end", id_, Text(timeOut)}, Longer(timeOut)).at(0)));
}

int64_t ProgramUnderTest::Memory() { return std::stoll(pc_.Ask({"memory", id_}).at(0)); }

int64_t ProgramUnderTest::Handles() { return std::stoll(pc_.Ask({"handles", id_}).at(0)); }

void ProgramUnderTest::Kill() { pc_.Ask({"kill", id_}); }

}  // namespace tarvik::lab
