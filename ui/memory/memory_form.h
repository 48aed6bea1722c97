#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "ui/form.h"
#include "ui/memory/memory_controls.h"

namespace tarvik::ui {

class MemoryForm;

/// All forms of one program. While one of their message boxes is open, it disables them as Windows does.
class MemoryScreen {
 public:
  /// `user` receives every message box and answers it.
  explicit MemoryScreen(report::MessageBoxes& user) : user_(user) {}

  const std::vector<MemoryForm*>& Forms() const { return forms_; }

  MemoryForm* active = nullptr;    ///< null: another program's window is in front
  MemoryForm* boxOwner = nullptr;  ///< the form whose box is open; null = none

 private:
  friend class MemoryForm;
  friend class MemoryBoxes;
  class OpenBox;
  /// Lets the user answer a box of the owner. As with MessageBox, an owner that was disabled before stays
  /// disabled, and another program's window becomes active.
  void Answer(MemoryForm& owner, const std::function<void(report::MessageBoxes&)>& answer);
  /// The same for a dialog that Windows shows.
  void Modal(MemoryForm& owner, const std::function<void()>& dialog);

  report::MessageBoxes& user_;
  std::vector<MemoryForm*> forms_;
};

/// The message boxes of one form.
class MemoryBoxes final : public report::MessageBoxes {
 public:
  explicit MemoryBoxes(MemoryForm& owner) : owner_(owner) {}
  void Show(const std::wstring& text, report::BoxIcon icon, const std::wstring& title) override;
  void ShowSystemModal(const std::wstring& text) override;
  bool AskYesNo(const std::wstring& text, bool defaultIsNo, const std::wstring& title) override;

 private:
  MemoryForm& owner_;
};

/// A form without a window. Tests find its controls by id and raise the events that a user would.
class MemoryForm final : public Form {
 public:
  /// A form that cannot show message boxes.
  MemoryForm() = default;
  explicit MemoryForm(MemoryScreen& screen);
  ~MemoryForm() override;
  MemoryForm(const MemoryForm&) = delete;
  MemoryForm& operator=(const MemoryForm&) = delete;

  Label& AddLabel(int id, int page, const std::wstring& caption) override;
  Label& AddLiveLabel(int id) override;
  Button& AddButton(int id, int page, const std::wstring& caption) override;
  CheckBox& AddCheckBox(int id, int page, const std::wstring& caption) override;
  TextBox& AddTextBox(int id, int page, TextBoxStyle style) override;
  ComboBox& AddComboBox(int id, int page, ComboBoxStyle style) override;
  ListBox& AddListBox(int id, int page, const std::wstring& toolTip) override;
  TabStrip& AddTabStrip(int id, const std::vector<std::wstring>& captions) override;
  StatusBar& AddStatusBar(int id, int fields) override;
  TextView& AddTextView(int id) override;
  MenuItem& AddMenu(int id, const std::wstring& caption) override;
  MenuItem& AddMenuCommand(int id, MenuItem& menu, const std::wstring& caption) override;
  void AddMenuSeparator(MenuItem& menu) override { commands_[&menu].push_back(0); }

  report::MessageBoxes& Boxes() override { return boxes_; }
  void SetCaption(const std::wstring& caption) override {
    if (beforeCaption) beforeCaption();
    caption_ = caption;
  }
  std::wstring Caption() const override { return caption_; }
  void Show() override;
  bool Visible() const override { return visible_; }
  bool Close() override;
  void SetEnabled(bool enabled) override { enabled_ = enabled; }
  bool Enabled() const override { return enabled_; }
  bool Minimised() const override { return minimised; }
  void MakeTopmost() override { topmost = true; }
  void SetPointer(Pointer pointer) override { pointer_ = pointer; }
  Pointer CurrentPointer() const override { return pointer_; }
  void StartTimer(int timer, int milliseconds, std::function<void()> handler) override;
  void StopTimer(int timer) override { timers_.erase(timer); }
  void SetTaskbarState(TaskbarState state) override;
  Size WindowSize() const override { return windowSize_; }
  void SetWindowSize(Size size) override;
  void FixSize() override { fixedSize = true; }
  Size ClientSize() const override { return {windowSize_.width - 16, windowSize_.height - 60}; }
  void SetMinimumWindowSize(Size size) override { minimumWindowSize = size; }
  Size WorkArea() const override { return workArea; }
  void PlaceBeside(const Form& other, const Control& keep) override { beside = {&other, &keep}; }
  int Dpi() const override { return dpi; }
  int LineHeight() const override { return lineHeight; }
  std::optional<SavePlace> AskWhereToSave(const SavePrompt& prompt) override;

  /// The control with the id. Throws std::out_of_range or std::bad_cast for a wrong id or type.
  template <typename MemoryType>
  MemoryType& Get(int id) const {
    return dynamic_cast<MemoryType&>(*elements_.at(id));
  }
  /// True when there is a control or menu item with the id.
  bool Has(int id) const { return elements_.contains(id); }
  /// The ids in Tab order.
  const std::vector<int>& Order() const { return order_; }
  /// The page that the control is on; kNoPage = the window itself.
  int PageOf(int id) const { return pages_.at(id); }
  /// The ids of a menu's commands in their order; 0 = a separator.
  const std::vector<int>& CommandsOf(int menu) const {
    return commands_.at(dynamic_cast<const MenuItem*>(elements_.at(menu).get()));
  }
  /// The tool tip of the list box.
  const std::wstring& ToolTip() const { return toolTip_; }
  /// The control that has the focus, or null.
  Control* Focus() const { return focus_.owner; }

  /// Moves the focus as Tab or the mouse would. False when onValidate of the text box keeps it; a button
  /// without causesValidation does not ask.
  bool MoveFocus(TextBox& from, Control& to);

  /// Types a character into the control; false when the handler discarded it.
  template <typename WithKeyPress>
  static bool PressKey(WithKeyPress& control, int16_t key) {
    int16_t keyAscii = key;
    if (control.onKeyPress) control.form->Guarded([&] { control.onKeyPress(keyAscii); });
    return keyAscii != 0;
  }

  /// WM_QUERYENDSESSION: true when the window agrees.
  bool QueryEndSession() { return Agrees(onQueryEndSession); }
  /// WM_ENDSESSION.
  void EndSession() {
    if (!unloaded) Raise(onEndSession);
  }
  void Activate();
  /// Lets that much time pass and calls the handlers of the timers that end in it, earliest first.
  void PassTime(int milliseconds);
  void PressEscape() { Raise(onEscape); }
  void PressHelp() { Raise(onHelp); }
  /// F1 in a message box of the window.
  void PressHelpInBox(const std::wstring& boxText);
  /// Presses the keys of a shortcut. False when no command of the window has them.
  bool PressShortcut(int16_t keyCode, int16_t shift);
  /// Opens the context menu of a list and returns its commands, null for a separator.
  std::vector<MenuItem*> OpenContextMenu(const ListBox& list) {
    Raise(onUpdateCommands);
    return list.contextMenu;
  }

  /// The user's answer to a save dialog; without this function the user cancels.
  std::function<std::optional<SavePlace>(const SavePrompt& prompt)> onSavePrompt;
  BeforeText beforeText;                ///< called for each of its controls
  std::function<void()> beforeCaption;  ///< called before the form's own caption is set; may throw
  /// The window and the control of the latest PlaceBeside.
  std::pair<const Form*, const Control*> beside{nullptr, nullptr};
  TaskbarState taskbarState = TaskbarState::None;
  bool topmost = false;
  bool minimised = false;
  bool fixedSize = false;
  bool unloaded = false;
  int dpi = 96;
  int lineHeight = 15;
  Size workArea{1920, 1040};
  Size minimumWindowSize;

 private:
  template <typename MemoryType, typename... Arguments>
  MemoryType& Add(int id, int page, Arguments&&... arguments);

  friend class MemoryBoxes;
  MemoryScreen& Screen() const;
  void Raise(const std::function<void()>& handler) {
    if (handler) Guarded(handler);
  }

  struct Timer {
    int left = 0;  ///< milliseconds
    std::function<void()> handler;
  };

  MemoryScreen* screen_ = nullptr;
  MemoryBoxes boxes_{*this};
  std::map<int, std::unique_ptr<Element>> elements_;
  std::map<int, int> pages_;
  std::vector<int> order_;
  std::map<const MenuItem*, std::vector<int>> commands_;
  std::map<int, Timer> timers_;
  MemoryFocus focus_;
  std::wstring caption_;
  std::wstring toolTip_;
  bool visible_ = false;
  bool enabled_ = true;
  Pointer pointer_ = Pointer::Default;
  Size windowSize_{400, 300};
};

}  // namespace tarvik::ui
