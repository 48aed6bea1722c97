#include "cnclib/pmc_controls.h"

#include <algorithm>
#include <utility>

#include "app/control_ids.h"
#include "resources/messages.h"
#include "ui/layout.h"

namespace tarvik {
namespace {

using ui::Boxed;
using ui::BoxPtr;

/// Least height of the two lists, in lines of text.
constexpr int kListLines = 14;
constexpr wchar_t kLongestData[] = L"0000\tFF";
constexpr wchar_t kLongestResult[] = L"2147483647 ERR Ret=-16,-32768,-32768";

/// A control wide enough for its caption in either language, whichever is loaded later.
BoxPtr WithCaption(ui::Control& control, Message message) {
  return ui::Fit(control, {RowOf(message).japanese, RowOf(message).english});
}

BoxPtr WithRoomFor(ui::Control& control, const wchar_t* sample) { return ui::Fit(control, {sample}); }

/// A list under its caption.
struct CaptionedList {
  ui::Label& caption;
  Message text;
  ui::ListBox& list;
  const wchar_t* sample;

  int LeastWidth() const {
    return std::max(WithCaption(caption, text)->Measure().width, list.SizeFor(sample).width);
  }
  void Place(const ui::Rect& place, int gap) {
    const int captionHeight = WithCaption(caption, text)->Measure().height;
    caption.SetBounds({place.x, place.y, place.width, captionHeight});
    const int above = captionHeight + gap;
    list.SetBounds({place.x, place.y + above, place.width, place.height - above});
  }
};

}  // namespace

PmcTestControls::PmcTestControls(ui::Form& form)
    : lblPmcAddr(form.AddLabel(ID_Label1_0, ui::kNoPage, L"")),
      cmbPmcAddr(form.AddComboBox(ID_cmbPmcAddr, ui::kNoPage, ui::ComboBoxStyle::DropDownList)),
      lblPmcStart(form.AddLabel(ID_Label1_1, ui::kNoPage, L"")),
      txtPmcStart(form.AddTextBox(ID_txtPmcStart, ui::kNoPage, ui::TextBoxStyle::Plain)),
      lblPmcLen(form.AddLabel(ID_Label1_2, ui::kNoPage, L"")),
      txtPmcLen(form.AddTextBox(ID_txtPmcLen, ui::kNoPage, ui::TextBoxStyle::Plain)),
      lblTest(form.AddLabel(ID_Label1_3, ui::kNoPage, L"")),
      txtCount(form.AddTextBox(ID_txtCount, ui::kNoPage, ui::TextBoxStyle::Plain)),
      lblSleep(form.AddLabel(ID_Label1_4, ui::kNoPage, L"")),
      txtSleep(form.AddTextBox(ID_txtSleep, ui::kNoPage, ui::TextBoxStyle::Plain)),

      lblData(form.AddLabel(ID_Label1_5, ui::kNoPage, L"")),
      lstData(form.AddListBox(ID_lstData, ui::kNoPage, L"")),
      lblResult(form.AddLabel(ID_Label1_6, ui::kNoPage, L"")),
      lstResult(form.AddListBox(ID_pmc_lstResult, ui::kNoPage, L"")),

      lblCount(form.AddLabel(ID_lblCount, ui::kNoPage, L"")),
      cmdRead(form.AddButton(ID_cmdRead, ui::kNoPage, L"")),
      cmdStop(form.AddButton(ID_cmdStop, ui::kNoPage, L"")),
      cmdClose(form.AddButton(ID_cmdClose, ui::kNoPage, L"")) {}

ui::Size LayOutPmcTest(ui::Form& form, PmcTestControls& c) {
  const int line = form.LineHeight();
  // The main window's grid: a third of a line of text, and twice that around everything.
  const int near = std::max(1, (line + 1) / 3);
  const int margin = 2 * near;

  // An empty column keeps a field apart from the label of the next one.
  std::vector<std::vector<BoxPtr>> rows;
  rows.push_back(Boxed(WithCaption(c.lblPmcAddr, Message::PmcAddressLabel), ui::Stretch(c.cmbPmcAddr, L"D"),
                       BoxPtr(), WithCaption(c.lblPmcStart, Message::PmcStartLabel),
                       ui::Stretch(c.txtPmcStart, L"32767"), BoxPtr(),
                       WithCaption(c.lblPmcLen, Message::PmcLengthLabel), WithRoomFor(c.txtPmcLen, L"8000")));
  rows.push_back(Boxed(WithCaption(c.lblTest, Message::PmcCountLabel), ui::Stretch(c.txtCount, L"2147483647"),
                       BoxPtr(), WithCaption(c.lblSleep, Message::PmcIntervalLabel),
                       ui::Stretch(c.txtSleep, L"2147483647")));
  const BoxPtr fields = ui::Grid(near, near, std::move(rows));
  const BoxPtr buttons = ui::Row(near, Boxed(WithRoomFor(c.lblCount, L"2147483647"), ui::Filler(),
                                             WithCaption(c.cmdRead, Message::PmcReadButton),
                                             WithCaption(c.cmdStop, Message::PmcStopButton),
                                             WithCaption(c.cmdClose, Message::PmcCloseButton)));
  CaptionedList data{c.lblData, Message::PmcDataLabel, c.lstData, kLongestData};
  CaptionedList result{c.lblResult, Message::PmcResultLabel, c.lstResult, kLongestResult};

  const int dataWidth = data.LeastWidth();
  const int leastWidth =
      std::max({fields->Measure().width, buttons->Measure().width, dataWidth + margin + result.LeastWidth()});
  const int fieldsHeight = fields->Measure().height;
  const int buttonsHeight = buttons->Measure().height;
  const int leastHeight = fieldsHeight + kListLines * line + buttonsHeight + 2 * margin;

  const ui::Size window = form.WindowSize();
  const ui::Size client = form.ClientSize();
  const int width = std::max(leastWidth, client.width - 2 * margin);
  const int height = std::max(leastHeight, client.height - 2 * margin);

  fields->Place({margin, margin, width, fieldsHeight});
  const int listsTop = 2 * margin + fieldsHeight;
  const int listsHeight = height - fieldsHeight - buttonsHeight - 2 * margin;
  data.Place({margin, listsTop, dataWidth, listsHeight}, near);
  result.Place({2 * margin + dataWidth, listsTop, width - margin - dataWidth, listsHeight}, near);
  buttons->Place({margin, margin + height - buttonsHeight, width, buttonsHeight});

  return {leastWidth + 2 * margin + window.width - client.width,
          leastHeight + 2 * margin + window.height - client.height};
}

}  // namespace tarvik
