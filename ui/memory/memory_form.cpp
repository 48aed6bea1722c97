#include "ui/memory/memory_form.h"

#include <utility>

namespace tarvik::ui {

template <typename MemoryType, typename... Arguments>
MemoryType& MemoryForm::Add(int id, int page, Arguments&&... arguments) {
  auto element = std::make_unique<MemoryType>(std::forward<Arguments>(arguments)...);
  MemoryType& added = *element;
  added.beforeText = &beforeText;
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
  TextBox& box = Add<MemoryTextBox>(id, page, focus_);
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

MenuItem& MemoryForm::AddMenu(int id, const std::wstring& caption) {
  MenuItem& menu = Add<MemoryMenuItem>(id, kNoPage);
  menu.SetCaption(caption);
  return menu;
}

MenuItem& MemoryForm::AddMenuCommand(int id, MenuItem&, const std::wstring& caption) {
  return AddMenu(id, caption);
}

void MemoryForm::SetWindowSize(Size size) {
  windowSize_ = size;
  if (onResize) onResize();
}

bool MemoryForm::MoveFocus(TextBox& from, Control& to) {
  if (from.onValidate && !from.onValidate()) return false;
  to.SetFocus();
  return true;
}

bool MemoryForm::Close() {
  if (!enabled_) return false;
  if (onQueryClose && !onQueryClose()) return false;
  if (!unloaded && onUnload) onUnload();
  unloaded = true;
  visible_ = false;
  return true;
}

}  // namespace tarvik::ui
