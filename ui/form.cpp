#include "ui/form.h"

namespace tarvik::ui {

template <typename Type>
Type& Form::WithMessage(Type& element, Message message) {
  element.captionMessage = message;
  captioned_.push_back(&element);
  return element;
}

Label& Form::AddLabel(int id, int page, Message message) {
  return WithMessage(AddLabel(id, page, RowOf(message).english), message);
}

Button& Form::AddButton(int id, int page, Message message) {
  return WithMessage(AddButton(id, page, RowOf(message).english), message);
}

CheckBox& Form::AddCheckBox(int id, int page, Message message) {
  return WithMessage(AddCheckBox(id, page, RowOf(message).english), message);
}

TabStrip& Form::AddTabStrip(int id, const std::vector<Message>& messages) {
  std::vector<std::wstring> captions;
  captions.reserve(messages.size());
  for (const Message message : messages) captions.emplace_back(RowOf(message).english);
  TabStrip& strip = AddTabStrip(id, captions);
  strip.pageMessages = messages;
  captioned_.push_back(&strip);
  return strip;
}

MenuItem& Form::AddMenu(int id, Message message) {
  return WithMessage(AddMenu(id, RowOf(message).english), message);
}

MenuItem& Form::AddMenuCommand(int id, MenuItem& menu, Message message) {
  return WithMessage(AddMenuCommand(id, menu, RowOf(message).english), message);
}

void Form::Guarded(const std::function<void()>& handler) {
  try {
    handler();
  } catch (const RuntimeError& error) {
    if (errorsInCaption) return SetCaption(error.Text());
    Boxes().Show(errorText ? errorText(error) : error.Text(), report::BoxIcon::Critical);
  }
}

bool Form::Agrees(const std::function<bool()>& question) {
  if (!question) return true;
  bool agrees = false;
  Guarded([&] { agrees = question(); });
  return agrees;
}

}  // namespace tarvik::ui
