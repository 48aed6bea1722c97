#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "ui/form.h"

// Controls without a window. They only store their state, so that the whole program runs as an ordinary
// process. Tests raise their events and read their state.

namespace tarvik::ui {

/// Which control of a memory form has the focus.
struct MemoryFocus {
  Control* owner = nullptr;
};

/// Called before a text is stored: a caption, the content of a box or a line of a list. Windows may reject it
/// when memory is short; tests simulate that by throwing RuntimeError.
using BeforeText = std::function<void(const Element&)>;

/// Implements what all elements share. Base is the interface of one kind of element.
template <typename Base>
class MemoryElement : public Base {
 public:
  void SetCaption(const std::wstring& caption) override {
    ThrowIfTextRefused();
    caption_ = caption;
  }
  std::wstring Caption() const override { return caption_; }
  void SetVisible(bool visible) override {
    ThrowIfRefusing();
    visible_ = visible;
  }
  bool Visible() const override { return visible_; }
  void SetEnabled(bool enabled) override {
    ThrowIfRefusing();
    enabled_ = enabled;
  }
  bool Enabled() const override { return enabled_; }

  /// True: operations throw RuntimeError, as when Windows rejects them.
  bool refusing = false;
  const BeforeText* beforeText = nullptr;
  Form* form = nullptr;  ///< its event boundary; null: handlers are called without one

 protected:
  /// Calls the program's handler, if it is set, inside the event boundary.
  template <typename Handler, typename... Arguments>
  void Raise(const Handler& handler, Arguments... arguments) const {
    if (!handler) return;
    if (form == nullptr)
      handler(arguments...);
    else
      form->Guarded([&] { handler(arguments...); });
  }
  void ThrowIfRefusing() const {
    if (refusing) throw RuntimeError(L"The control rejects the operation.");
  }
  void ThrowIfTextRefused() const {
    ThrowIfRefusing();
    if (beforeText != nullptr && *beforeText) (*beforeText)(*this);
  }

 private:
  std::wstring caption_;
  bool visible_ = true;
  bool enabled_ = true;
};

template <typename Base>
class MemoryControl : public MemoryElement<Base> {
 public:
  explicit MemoryControl(MemoryFocus& focus) : focus_(focus) {}
  void SetFocus() override {
    this->ThrowIfRefusing();
    focus_.owner = this;
  }
  bool HasFocus() const override { return focus_.owner == this; }
  void SetBounds(const Rect& bounds) override { bounds_ = bounds; }
  Rect Bounds() const override { return bounds_; }
  /// Every control is 23 high. Letters are 7 wide, full-width ones 14.
  Size SizeFor(const std::wstring& caption) const override {
    int width = 0;
    for (const wchar_t letter : caption)
      width += letter == L'&' ? 0 : letter < 0x2E80 || letter >= 0xFF61 ? 7 : 14;
    return {width + 12, 23};
  }

 protected:
  MemoryFocus& focus_;

 private:
  Rect bounds_;
};

class MemoryLabel final : public MemoryControl<Label> {
 public:
  using MemoryControl::MemoryControl;
  void SetToolTip(const std::wstring& text) override { toolTip = text; }
  void Click() { Raise(onClick); }
  void PressMouse(int16_t button, int16_t shift) { Raise(onMouseDown, button, shift); }

  std::wstring toolTip;
  bool live = false;  ///< screen readers announce each change of the caption
};

class MemoryButton final : public MemoryControl<Button> {
 public:
  using MemoryControl::MemoryControl;
  void Click() { Raise(onClick); }
};

class MemoryCheckBox final : public MemoryControl<CheckBox> {
 public:
  using MemoryControl::MemoryControl;
  bool Checked() const override { return checked_; }
  void SetChecked(bool checked) override {
    ThrowIfRefusing();
    if (checked == checked_) return;
    checked_ = checked;
    Raise(onClick);
  }

 private:
  bool checked_ = false;
};

class MemoryTextBox final : public MemoryControl<TextBox> {
 public:
  using MemoryControl::MemoryControl;
  std::wstring Text() const override { return text_; }
  void SetText(const std::wstring& text) override {
    ThrowIfTextRefused();
    text_ = text;
  }
  void SetPasswordMask(bool masked) override { masked_ = masked; }
  bool PasswordMask() const override { return masked_; }
  void SetSelection(int start, int length) override {
    selectionStart = start;
    selectionLength = length;
  }
  void ReceiveFocus() { Raise(onGotFocus); }
  void PressMouse(int16_t button, int16_t shift) { Raise(onMouseDown, button, shift); }

  TextBoxStyle style = TextBoxStyle::Plain;
  int selectionStart = 0;
  int selectionLength = 0;

 private:
  std::wstring text_;
  bool masked_ = false;
};

class MemoryComboBox final : public MemoryControl<ComboBox> {
 public:
  explicit MemoryComboBox(MemoryFocus& focus, ComboBoxStyle style = ComboBoxStyle::Editable)
      : MemoryControl<ComboBox>(focus), style_(style) {}
  std::wstring Text() const override { return text_; }
  void SetText(const std::wstring& text) override {
    ThrowIfTextRefused();
    if (style_ == ComboBoxStyle::DropDownList) throw RuntimeError(L"The drop-down list has no edit field.");
    text_ = text;
    selected_ = -1;
  }
  int Count() const override { return static_cast<int>(items_.size()); }
  std::wstring Item(int index) const override {
    return index >= 0 && index < Count() ? items_[static_cast<size_t>(index)] : std::wstring();
  }
  void InsertItem(int index, const std::wstring& text) override {
    ThrowIfTextRefused();
    if (index < 0 || index > Count()) throw RuntimeError(L"The index is beyond the end of the list.");
    items_.insert(items_.begin() + index, text);
  }
  void Clear() override {
    items_.clear();
    text_.clear();
    selected_ = -1;
  }
  void Select(int index) override {
    if (index < 0 || index >= Count()) throw RuntimeError(L"There is no such item in the list.");
    text_ = Item(index);
    selected_ = index;
  }
  int SelectedIndex() const override { return selected_; }
  void PressKey(int16_t keyCode, int16_t shift) { Raise(onKeyDown, keyCode, shift); }
  void Type(const std::wstring& text) {
    SetText(text);
    Raise(onChange, text);
  }

 private:
  ComboBoxStyle style_;
  int selected_ = -1;
  std::wstring text_;
  std::vector<std::wstring> items_;
};

class MemoryListBox final : public MemoryControl<ListBox> {
 public:
  using MemoryControl::MemoryControl;
  int Count() const override { return static_cast<int>(lines.size()); }
  std::wstring Item(int index) const override {
    return index >= 0 && index < Count() ? lines[static_cast<size_t>(index)] : std::wstring();
  }
  void AddItem(const std::wstring& text) override {
    ThrowIfTextRefused();
    lines.push_back(text);
    if (redrawing) ++painted;
  }
  void Clear() override {
    ThrowIfRefusing();
    lines.clear();
    selected_ = -1;
  }
  void Select(int index) override { selected_ = index; }
  int SelectedIndex() const override { return selected_; }
  int ClientWidth() const override { return clientWidth; }
  void SetHorizontalExtent(int pixels) override { horizontalExtent = pixels; }
  void UseFixedPitch(bool japanese) override { fixedPitch = japanese ? L"Japanese" : L"Latin"; }
  void SetRedraw(bool redraw) override { redrawing = redraw; }
  void DoubleClick() { Raise(onDoubleClick); }
  /// Selects a line as the user does.
  void ClickLine(int index) {
    Select(index);
    Raise(onSelect);
  }

  std::vector<std::wstring> lines;
  int clientWidth = 500;
  int horizontalExtent = 0;
  std::wstring fixedPitch;  ///< "Japanese", "Latin", or empty for the message font
  bool redrawing = true;
  int painted = 0;  ///< lines added while painting was not suspended

 private:
  int selected_ = -1;
};

class MemoryTabStrip final : public MemoryControl<TabStrip> {
 public:
  MemoryTabStrip(MemoryFocus& focus, const std::vector<std::wstring>& captions)
      : MemoryControl(focus), captions_(captions), on_(captions.size(), true) {}
  int PageCount() const override { return static_cast<int>(captions_.size()); }
  void SetPageCaption(int page, const std::wstring& caption) override {
    pageTakingCaption = page;
    ThrowIfTextRefused();
    captions_.at(static_cast<size_t>(page)) = caption;
  }
  std::wstring PageCaption(int page) const override { return captions_.at(static_cast<size_t>(page)); }
  void SetPageOn(int page, bool on) override { on_.at(static_cast<size_t>(page)) = on; }
  bool PageOn(int page) const override { return on_.at(static_cast<size_t>(page)); }
  void BringToFront(int page) override {
    if (!PageOn(page)) throw RuntimeError(L"The page is switched off.");
    if (front_ == page) return;
    front_ = page;
    Raise(onPageFront, page);
  }
  int FrontPage() const override { return front_; }
  Size FrameSize() const override { return {8, 30}; }

  int pageTakingCaption = kNoPage;  ///< the page whose caption `beforeText` is called for

 private:
  std::vector<std::wstring> captions_;
  std::vector<bool> on_;
  int front_ = 0;
};

class MemoryStatusBar final : public MemoryControl<StatusBar> {
 public:
  MemoryStatusBar(MemoryFocus& focus, int fields)
      : MemoryControl(focus), fields_(static_cast<size_t>(fields)) {}
  int FieldCount() const override { return static_cast<int>(fields_.size()); }
  void SetField(int field, const std::wstring& text, const std::wstring& whole) override {
    fields_.at(static_cast<size_t>(field)) = {text, whole};
  }
  std::wstring FieldText(int field) const override { return fields_.at(static_cast<size_t>(field)).first; }
  std::wstring FieldWhole(int field) const override { return fields_.at(static_cast<size_t>(field)).second; }
  void SetFieldWidths(const std::vector<int>& all) override { widths = all; }
  int GripWidth() const override { return 17; }
  void ClickField(int field) { Raise(onFieldClick, field); }

  std::vector<int> widths;

 private:
  std::vector<std::pair<std::wstring, std::wstring>> fields_;  ///< text and whole text
};

class MemoryTextView final : public MemoryControl<TextView> {
 public:
  using MemoryControl::MemoryControl;
  void SetParagraphs(const std::vector<Paragraph>& all) override {
    ThrowIfTextRefused();
    paragraphs = all;
  }
  std::wstring Text() const override {
    std::wstring text;
    int step = 0;
    for (const Paragraph& paragraph : paragraphs) {
      if (!text.empty()) text += L"\r\n";
      if (paragraph.kind == ParagraphKind::Step) text += std::to_wstring(++step) + L".\u00A0\u00A0";
      text += paragraph.text;
    }
    return text;
  }

  std::vector<Paragraph> paragraphs;
};

class MemoryMenuItem final : public MemoryElement<MenuItem> {
 public:
  void Click() {
    if (form != nullptr) Raise(form->onUpdateCommands);
    if (Enabled()) Raise(onClick);
  }
};

}  // namespace tarvik::ui
