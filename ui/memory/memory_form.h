#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "ui/form.h"
#include "ui/memory/memory_controls.h"

namespace tarvik::ui {

class MemoryForm;

/// The forms of one program, and what its message boxes do to them.
class MemoryScreen {
 public:
  /// `user` is shown every box and answers it.
  explicit MemoryScreen(report::MessageBoxes& user) : user_(user) {}

  const std::vector<MemoryForm*>& Forms() const { return forms_; }

  MemoryForm* active = nullptr;    ///< null: another program's window is in front
  MemoryForm* boxOwner = nullptr;  ///< whose box is open

 private:
  friend class MemoryForm;
  friend class MemoryBoxes;
  class OpenBox;
  /// Has the user answer a box of the owner. As with MessageBox, a disabled owner stays disabled after it,
  /// and then the system activates another program's window.
  void Answer(MemoryForm& owner, const std::function<void(report::MessageBoxes&)>& answer);

  report::MessageBoxes& user_;
  std::vector<MemoryForm*> forms_;
};

/// The boxes of one form.
class MemoryBoxes final : public report::MessageBoxes {
 public:
  explicit MemoryBoxes(MemoryForm& owner) : owner_(owner) {}
  void Show(const std::wstring& text, report::BoxIcon icon, const std::wstring& title) override;
  void ShowSystemModal(const std::wstring& text) override;
  bool AskYesNo(const std::wstring& text, bool defaultIsNo, const std::wstring& title) override;

 private:
  MemoryForm& owner_;
};

/// A form without a window. A test reaches its controls by their ids and raises what a user would.
class MemoryForm final : public Form {
 public:
  /// A form that shows no boxes.
  MemoryForm() = default;
  explicit MemoryForm(MemoryScreen& screen);
  ~MemoryForm() override;
  MemoryForm(const MemoryForm&) = delete;
  MemoryForm& operator=(const MemoryForm&) = delete;

  Label& AddLabel(int id, int page, const std::wstring& caption) override;
  Button& AddButton(int id, int page, const std::wstring& caption) override;
  CheckBox& AddCheckBox(int id, int page, const std::wstring& caption) override;
  TextBox& AddTextBox(int id, int page, TextBoxStyle style) override;
  ComboBox& AddComboBox(int id, int page, ComboBoxStyle style) override;
  ListBox& AddListBox(int id, int page, const std::wstring& toolTip) override;
  TabStrip& AddTabStrip(int id, const std::vector<std::wstring>& captions) override;
  MenuItem& AddMenu(int id, const std::wstring& caption) override;
  MenuItem& AddMenuCommand(int id, MenuItem& menu, const std::wstring& caption) override;

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
  Size WindowSize() const override { return windowSize_; }
  void SetWindowSize(Size size) override;
  void FixSize() override { fixedSize = true; }
  Size ClientSize() const override { return {windowSize_.width - 16, windowSize_.height - 60}; }
  void SetMinimumWindowSize(Size size) override { minimumWindowSize = size; }
  int Dpi() const override { return dpi; }
  int LineHeight() const override { return 15; }

  /// The control with the id. The type must be its own.
  template <typename MemoryType>
  MemoryType& Get(int id) const {
    return dynamic_cast<MemoryType&>(*elements_.at(id));
  }
  /// True when a control or menu item has the id.
  bool Has(int id) const { return elements_.contains(id); }
  /// The ids in the order of the Tab key.
  const std::vector<int>& Order() const { return order_; }
  /// The page that a control is on; kNoPage = the window itself.
  int PageOf(int id) const { return pages_.at(id); }
  /// The tool tip of the list box.
  const std::wstring& ToolTip() const { return toolTip_; }
  /// The control that has the focus, or null.
  Control* Focus() const { return focus_.owner; }

  /// What a user does when Tab or the mouse leads from a text box to another control: asks the box, and
  /// moves the focus when it agrees.
  bool MoveFocus(TextBox& from, Control& to);

  /// Presses a key in the control; returns false when it was swallowed.
  template <typename WithKeyPress>
  static bool PressKey(WithKeyPress& control, int16_t key) {
    int16_t keyAscii = key;
    if (control.onKeyPress) control.onKeyPress(keyAscii);
    return keyAscii != 0;
  }

  /// What Windows asks each window before its session ends; true agrees.
  bool QueryEndSession() { return Agrees(onQueryEndSession); }
  /// What Windows reports to each window when its session ends.
  void EndSession() {
    if (!unloaded) Raise(onEndSession);
  }
  void Activate() { Raise(onActivate); }
  void PressEscape() { Raise(onEscape); }

  BeforeText beforeText;                ///< of each of its controls
  std::function<void()> beforeCaption;  ///< before the window takes its own; throws to refuse it
  bool topmost = false;
  bool minimised = false;
  bool fixedSize = false;
  bool unloaded = false;
  int dpi = 96;
  Size minimumWindowSize;

 private:
  template <typename MemoryType, typename... Arguments>
  MemoryType& Add(int id, int page, Arguments&&... arguments);

  friend class MemoryBoxes;
  MemoryScreen& Screen() const;
  void Raise(const std::function<void()>& handler) {
    if (handler) Guarded(handler);
  }

  MemoryScreen* screen_ = nullptr;
  MemoryBoxes boxes_{*this};
  std::map<int, std::unique_ptr<Element>> elements_;
  std::map<int, int> pages_;
  std::vector<int> order_;
  MemoryFocus focus_;
  std::wstring caption_;
  std::wstring toolTip_;
  bool visible_ = false;
  bool enabled_ = true;
  Pointer pointer_ = Pointer::Default;
  Size windowSize_{400, 300};
};

}  // namespace tarvik::ui
