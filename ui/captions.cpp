#include "ui/captions.h"

#include "platform/runtime_error.h"
#include "platform/text.h"

namespace tarvik::ui {
namespace {

constexpr int kRanks = 3;

/// Elements of lower rank get their captions first.
int Rank(const Element& element) {
  if (element.TypeName() == L"Menu") return 0;
  return element.TypeName() == L"SSTab" ? 1 : 2;
}

}  // namespace

void LoadRes(Resource& resource, report::MessageBoxes& boxes, Element& ctl, int32_t id, int16_t idx) {
  const std::wstring_view type = ctl.TypeName();
  if (type == L"Label" || type == L"CommandButton" || type == L"OptionButton" || type == L"CheckBox" ||
      type == L"Frame" || type == L"Menu") {
    ctl.SetCaption(resource.LoadString(id));
  } else if (type == L"SSTab") {
    static_cast<TabStrip&>(ctl).SetPageCaption(idx, resource.LoadString(id));
  } else if (type == L"ComboBox") {
    auto& combo = static_cast<ComboBox&>(ctl);
    combo.InsertItem(combo.Count(), resource.LoadString(id));
  } else {
    boxes.Show(L"LoadRes(" + Decimal(id) + L"):Invalid control type [" + std::wstring(type) + L"]");
  }
}

void LoadCaptions(Form& form, Resource& resource) {
  const auto load = [&](Element& element, Message message, int16_t tab) {
    try {
      LoadRes(resource, form.Boxes(), element, RowOf(message).id, tab);
    } catch (const RuntimeError&) {
      // The element keeps its old caption; the others must still get theirs.
    }
  };
  for (int rank = 0; rank < kRanks; ++rank)
    for (Element* const element : form.Captioned()) {
      if (Rank(*element) != rank) continue;
      if (element->captionMessage) load(*element, *element->captionMessage, 0);
      if (auto* const strip = dynamic_cast<TabStrip*>(element))
        for (size_t page = 0; page < strip->pageMessages.size(); ++page)
          load(*strip, strip->pageMessages[page], static_cast<int16_t>(page));
    }
}

}  // namespace tarvik::ui
