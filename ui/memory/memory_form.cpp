#include "ui/memory/memory_form.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tarvik::ui {

/// An open message box of the owner. Until it is destroyed, every form of the screen is disabled.
class MemoryScreen::OpenBox {
 public:
  OpenBox(MemoryScreen& screen, MemoryForm& owner)
      : screen_(screen), owner_(owner), outer_(std::exchange(screen.boxOwner, &owner)) {
    for (MemoryForm* form : screen_.forms_)
      if (form->Enabled()) disabled_.push_back(form);
    for (MemoryForm* form : disabled_) form->SetEnabled(false);
  }
  ~OpenBox() {
    screen_.boxOwner = outer_;
    for (MemoryForm* form : disabled_)
      if (std::find(screen_.forms_.begin(), screen_.forms_.end(), form) != screen_.forms_.end())
        form->SetEnabled(true);
    screen_.active = owner_.Enabled() && owner_.Visible() ? &owner_ : nullptr;
  }
  OpenBox(const OpenBox&) = delete;
  OpenBox& operator=(const OpenBox&) = delete;

 private:
  MemoryScreen& screen_;
  MemoryForm& owner_;
  MemoryForm* const outer_;
  std::vector<MemoryForm*> disabled_;
};

void MemoryScreen::Answer(MemoryForm& owner, const std::function<void(report::MessageBoxes&)>& answer) {
  const OpenBox box(*this, owner);
  answer(user_);
}

void MemoryScreen::Modal(MemoryForm& owner, const std::function<void()>& dialog) {
  const OpenBox box(*this, owner);
  dialog();
}

std::optional<SavePlace> MemoryForm::AskWhereToSave(const SavePrompt& prompt) {
  std::optional<SavePlace> place;
  Screen().Modal(*this, [&] {
    if (onSavePrompt) place = onSavePrompt(prompt);
  });
  return place;
}

void MemoryBoxes::Show(const std::wstring& text, report::BoxIcon icon, const std::wstring& title) {
  owner_.Screen().Answer(owner_, [&](report::MessageBoxes& user) { user.Show(text, icon, title); });
}

void MemoryBoxes::ShowSystemModal(const std::wstring& text) {
  owner_.Screen().Answer(owner_, [&](report::MessageBoxes& user) { user.ShowSystemModal(text); });
}

bool MemoryBoxes::AskYesNo(const std::wstring& text, bool defaultIsNo, const std::wstring& title) {
  bool yes = false;
  owner_.Screen().Answer(owner_,
                         [&](report::MessageBoxes& user) { yes = user.AskYesNo(text, defaultIsNo, title); });
  return yes;
}

MemoryForm::MemoryForm(MemoryScreen& screen) : screen_(&screen) { screen.forms_.push_back(this); }

MemoryForm::~MemoryForm() {
  if (screen_ == nullptr) return;
  std::erase(screen_->forms_, this);
  if (screen_->active == this) screen_->active = nullptr;
}

MemoryScreen& MemoryForm::Screen() const {
  if (screen_ == nullptr) throw std::logic_error("This form was created without a screen.");
  return *screen_;
}

void MemoryForm::Show() {
  visible_ = true;
  if (screen_ != nullptr) screen_->active = this;
}

template <typename MemoryType, typename... Arguments>
MemoryType& MemoryForm::Add(int id, int page, Arguments&&... arguments) {
  auto element = std::make_unique<MemoryType>(std::forward<Arguments>(arguments)...);
  MemoryType& added = *element;
  added.beforeText = &beforeText;
  added.form = this;
  if (!elements_.emplace(id, std::move(element)).second)
    throw RuntimeError(L"Two controls have the same id.");
  pages_[id] = page;
  order_.push_back(id);
  return added;
}

Label& MemoryForm::AddLabel(int id, int page, const std::wstring& caption) {
  Label& label = Add<MemoryLabel>(id, page, focus_);
  label.SetCaption(caption);
  return label;
}

Label& MemoryForm::AddLiveLabel(int id) {
  MemoryLabel& label = Add<MemoryLabel>(id, kNoPage, focus_);
  label.live = true;
  return label;
}

Button& MemoryForm::AddButton(int id, int page, const std::wstring& caption) {
  Button& button = Add<MemoryButton>(id, page, focus_);
  button.SetCaption(caption);
  return button;
}

CheckBox& MemoryForm::AddCheckBox(int id, int page, const std::wstring& caption) {
  CheckBox& box = Add<MemoryCheckBox>(id, page, focus_);
  box.SetCaption(caption);
  return box;
}

TextBox& MemoryForm::AddTextBox(int id, int page, TextBoxStyle style) {
  MemoryTextBox& box = Add<MemoryTextBox>(id, page, focus_);
  box.style = style;
  box.SetPasswordMask(style == TextBoxStyle::Password);
  return box;
}

ComboBox& MemoryForm::AddComboBox(int id, int page, ComboBoxStyle style) {
  return Add<MemoryComboBox>(id, page, focus_, style);
}

ListBox& MemoryForm::AddListBox(int id, int page, const std::wstring& toolTip) {
  toolTip_ = toolTip;
  return Add<MemoryListBox>(id, page, focus_);
}

TabStrip& MemoryForm::AddTabStrip(int id, const std::vector<std::wstring>& captions) {
  return Add<MemoryTabStrip>(id, kNoPage, focus_, captions);
}

StatusBar& MemoryForm::AddStatusBar(int id, int fields) {
  return Add<MemoryStatusBar>(id, kNoPage, focus_, fields);
}

TextView& MemoryForm::AddTextView(int id) { return Add<MemoryTextView>(id, kNoPage, focus_); }

MenuItem& MemoryForm::AddMenu(int id, const std::wstring& caption) {
  MenuItem& menu = Add<MemoryMenuItem>(id, kNoPage);
  menu.SetCaption(caption);
  return menu;
}

MenuItem& MemoryForm::AddMenuCommand(int id, MenuItem& menu, const std::wstring& caption) {
  commands_[&menu].push_back(id);
  return AddMenu(id, caption);
}

void MemoryForm::PressHelpInBox(const std::wstring& boxText) {
  try {
    if (onBoxHelp) onBoxHelp(boxText);
  } catch (const RuntimeError&) {
    // Not reported: a second box could be answered after the first.
  }
}

bool MemoryForm::PressShortcut(int16_t keyCode, int16_t shift) {
  for (const auto& [id, element] : elements_) {
    auto* const item = dynamic_cast<MemoryMenuItem*>(element.get());
    if (item == nullptr || item->shortcut.keyCode != keyCode || item->shortcut.shift != shift) continue;
    if (item->shortcut.focus != nullptr && item->shortcut.focus != focus_.owner) continue;
    if (enabled_) item->Click();
    return true;
  }
  return false;
}

void MemoryForm::StartTimer(int timer, int milliseconds, std::function<void()> handler) {
  timers_[timer] = {milliseconds, std::move(handler)};
}

void MemoryForm::PassTime(int milliseconds) {
  const auto sooner = [](const auto& a, const auto& b) { return a.second.left < b.second.left; };
  for (;;) {
    const auto next = std::min_element(timers_.begin(), timers_.end(), sooner);
    const bool ends = next != timers_.end() && next->second.left <= milliseconds;
    const int step = ends ? next->second.left : milliseconds;
    for (auto& [number, timer] : timers_) timer.left -= step;
    milliseconds -= step;
    if (!ends) return;
    // The handler may start the timer again.
    const std::function<void()> handler = std::move(next->second.handler);
    timers_.erase(next);
    Raise(handler);
  }
}

void MemoryForm::SetTaskbarState(TaskbarState state) {
  const bool active = screen_ != nullptr && screen_->active == this;
  taskbarState = active && state == TaskbarState::Failed ? TaskbarState::None : state;
}

void MemoryForm::Activate() {
  if (taskbarState == TaskbarState::Failed) taskbarState = TaskbarState::None;
  Raise(onActivate);
}

void MemoryForm::SetWindowSize(Size size) {
  windowSize_ = size;
  Raise(onResize);
}

bool MemoryForm::MoveFocus(TextBox& from, Control& to) {
  const auto* button = dynamic_cast<const Button*>(&to);
  const bool asks = button == nullptr || button->causesValidation;
  bool agrees = true;
  if (asks && from.onValidate) Guarded([&] { agrees = from.onValidate(); });
  if (!agrees) return false;
  to.SetFocus();
  return true;
}

bool MemoryForm::Close() {
  if (!enabled_) return false;
  if (!Agrees(onQueryClose)) return false;
  if (!unloaded) Raise(onUnload);
  unloaded = true;
  visible_ = false;
  return true;
}

}  // namespace tarvik::ui
