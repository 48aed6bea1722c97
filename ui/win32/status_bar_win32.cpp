#include "ui/win32/status_bar_win32.h"

#include "ui/win32/common_controls_win32.h"
#include "ui/win32/form_win32.h"
#include "ui/win32/tool_tip_win32.h"

namespace tarvik::ui {
namespace {

// In pixels at 96 dots per inch.
constexpr int kFieldPaddingAcross = 14;  ///< left and right of the text, with the line between two fields
constexpr int kFieldPaddingDown = 8;     ///< above and below the text
constexpr int kTipWidth = 400;           ///< longer texts of a tool tip are wrapped
constexpr int kTipTimeMs = 30000;        ///< the usual 5 s are too short to read a sentence with figures

}  // namespace

Win32StatusBar::Win32StatusBar(Win32Form& form, int page, int id, int fields)
    : UncaptionedControl(form, page, id, {STATUSCLASSNAMEW, CCS_NOPARENTALIGN | CCS_NORESIZE | WS_GROUP}),
      fields_(static_cast<size_t>(fields)) {}

Win32StatusBar::~Win32StatusBar() {
  if (toolTips_ != nullptr) DestroyWindow(toolTips_);
}

void Win32StatusBar::OnCreated() { PlaceFields(); }

Size Win32StatusBar::SizeFor(const std::wstring& text) const {
  return {form_.Font().TextWidth(text) + form_.Scaled(kFieldPaddingAcross),
          form_.LineHeight() + form_.Scaled(kFieldPaddingDown)};
}

int Win32StatusBar::GripWidth() const { return form_.Metric(SM_CXVSCROLL); }

void Win32StatusBar::SetField(int field, const std::wstring& text, const std::wstring& whole) {
  const auto index = static_cast<size_t>(field);
  Field& shown = fields_.at(index);
  if (shown.whole != whole) {
    shown.whole = whole;
    form_.ScreenReaders().SetName(Window(), field + 1, whole);
    SendTool(TTM_UPDATETIPTEXTW, index);
  }
  if (shown.text == text) return;
  shown.text = text;
  Send(SB_SETTEXTW, index, reinterpret_cast<LPARAM>(shown.text.c_str()));
}

void Win32StatusBar::SetFieldWidths(const std::vector<int>& widths) {
  int right = 0;
  for (size_t field = 0; field < fields_.size(); ++field) fields_[field].right = right += widths.at(field);
  if (form_.EverShown()) PlaceFields();
}

void Win32StatusBar::ApplyPlace() {
  UncaptionedControl::ApplyPlace();
  PlaceFields();
}

void Win32StatusBar::PlaceFields() {
  const LONG style = GetWindowLongW(Window(), GWL_STYLE);
  const auto formStyle = static_cast<DWORD>(GetWindowLongW(form_.Window(), GWL_STYLE));
  const bool sizable = (formStyle & WS_THICKFRAME) != 0 && (formStyle & WS_MAXIMIZE) == 0;
  const LONG wanted = sizable ? style | SBARS_SIZEGRIP : style & ~SBARS_SIZEGRIP;
  if (style != wanted) SetWindowLongW(Window(), GWL_STYLE, wanted);
  std::vector<int> rights;
  for (const Field& field : fields_) rights.push_back(field.right);
  Send(SB_SETPARTS, rights.size(), reinterpret_cast<LPARAM>(rights.data()));
  for (size_t field = 0; field < fields_.size(); ++field) SendTool(TTM_NEWTOOLRECTW, field);
}

void Win32StatusBar::SendTool(UINT message, size_t field) {
  if (toolTips_ == nullptr) return;
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_SUBCLASS;
  tool.hwnd = Window();
  tool.uId = field;
  tool.lpszText = fields_[field].whole.data();
  Send(SB_GETRECT, field, reinterpret_cast<LPARAM>(&tool.rect));
  SendMessageW(toolTips_, message, 0, reinterpret_cast<LPARAM>(&tool));
}

void Win32StatusBar::OnPointerOver() {
  if (toolTips_ != nullptr) return;
  toolTips_ = CreateToolTipWindow();
  SendMessageW(toolTips_, TTM_SETMAXTIPWIDTH, 0, form_.Scaled(kTipWidth));
  SendMessageW(toolTips_, TTM_SETDELAYTIME, TTDT_AUTOPOP, kTipTimeMs);
  for (size_t field = 0; field < fields_.size(); ++field) SendTool(TTM_ADDTOOLW, field);
}

void Win32StatusBar::OnNotify(const NMHDR& notification) {
  if (notification.code != NM_CLICK) return;
  // A click next to the fields has an index after the last one.
  const size_t field = reinterpret_cast<const NMMOUSE&>(notification).dwItemSpec;
  if (field < fields_.size()) Raise(onFieldClick, static_cast<int>(field));
}

void Win32StatusBar::Annotate() {
  for (int field = 0; field < FieldCount(); ++field)
    form_.ScreenReaders().SetName(Window(), field + 1, At(field).whole);
}

}  // namespace tarvik::ui
