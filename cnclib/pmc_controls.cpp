#include "cnclib/pmc_controls.h"

#include <algorithm>
#include <utility>

#include "app/control_ids.h"
#include "ui/form_layout.h"

namespace tarvik {
namespace {

using ui::Boxed;
using ui::BoxPtr;
using ui::Captioned;
using ui::Sized;

/// Minimum height of the two lists, in lines of text.
constexpr int kMinListLines = 14;
constexpr wchar_t kWidestData[] = L"0000\tFF";
constexpr wchar_t kWidestResult[] = L"2147483647 ERR Ret=-16,-32768,-32768";

/// A list under its caption.
struct CaptionedList {
  ui::Label& caption;
  ui::ListBox& list;
  const wchar_t* sample;

  int MinWidth() const { return std::max(Captioned(caption)->Measure().width, list.SizeFor(sample).width); }
  void Place(const ui::Rect& place, int gap) {
    const int captionHeight = Captioned(caption)->Measure().height;
    caption.SetBounds({place.x, place.y, place.width, captionHeight});
    const int above = captionHeight + gap;
    list.SetBounds({place.x, place.y + above, place.width, place.height - above});
  }
};

}  // namespace

PmcTestControls::PmcTestControls(ui::Form& form)
    : lblPmcAddr(form.AddLabel(ID_Label1_0, ui::kNoPage, Message::PmcAddressLabel)),
      cmbPmcAddr(form.AddComboBox(ID_cmbPmcAddr, ui::kNoPage, ui::ComboBoxStyle::DropDownList)),
      lblPmcStart(form.AddLabel(ID_Label1_1, ui::kNoPage, Message::PmcStartLabel)),
      txtPmcStart(form.AddTextBox(ID_txtPmcStart, ui::kNoPage, ui::TextBoxStyle::Number)),
      lblPmcLen(form.AddLabel(ID_Label1_2, ui::kNoPage, Message::PmcLengthLabel)),
      txtPmcLen(form.AddTextBox(ID_txtPmcLen, ui::kNoPage, ui::TextBoxStyle::Number)),
      lblTest(form.AddLabel(ID_Label1_3, ui::kNoPage, Message::PmcCountLabel)),
      txtCount(form.AddTextBox(ID_txtCount, ui::kNoPage, ui::TextBoxStyle::Number)),
      lblSleep(form.AddLabel(ID_Label1_4, ui::kNoPage, Message::PmcIntervalLabel)),
      txtSleep(form.AddTextBox(ID_txtSleep, ui::kNoPage, ui::TextBoxStyle::Number)),

      lblData(form.AddLabel(ID_Label1_5, ui::kNoPage, Message::PmcDataLabel)),
      lstData(form.AddListBox(ID_lstData, ui::kNoPage, L"")),
      lblResult(form.AddLabel(ID_Label1_6, ui::kNoPage, Message::PmcResultLabel)),
      lstResult(form.AddListBox(ID_pmc_lstResult, ui::kNoPage, L"")),

      lblCount(form.AddLabel(ID_lblCount, ui::kNoPage, L"")),
      cmdRead(form.AddButton(ID_cmdRead, ui::kNoPage, Message::PmcReadButton)),
      cmdStop(form.AddButton(ID_cmdStop, ui::kNoPage, Message::PmcStopButton)),
      cmdClose(form.AddButton(ID_cmdClose, ui::kNoPage, Message::PmcCloseButton)) {}

ui::Size LayOutPmcTest(ui::Form& form, PmcTestControls& c) {
  const int line = form.LineHeight();
  const auto [gap, margin] = ui::SpacingOf(form);

  // An empty column keeps a field apart from the label of the next one.
  std::vector<std::vector<BoxPtr>> rows;
  rows.push_back(Boxed(Captioned(c.lblPmcAddr), ui::Stretch(c.cmbPmcAddr, L"D"), BoxPtr(),
                       Captioned(c.lblPmcStart), ui::Stretch(c.txtPmcStart, L"32767"), BoxPtr(),
                       Captioned(c.lblPmcLen), Sized(c.txtPmcLen, L"8000")));
  rows.push_back(Boxed(Captioned(c.lblTest), ui::Stretch(c.txtCount, L"2147483647"), BoxPtr(),
                       Captioned(c.lblSleep), ui::Stretch(c.txtSleep, L"2147483647")));
  const BoxPtr fields = ui::Grid(gap, gap, std::move(rows));
  const BoxPtr buttons =
      ui::Row(gap, Boxed(Sized(c.lblCount, L"2147483647"), ui::Filler(), Captioned(c.cmdRead),
                         Captioned(c.cmdStop), Captioned(c.cmdClose)));
  CaptionedList data{c.lblData, c.lstData, kWidestData};
  CaptionedList result{c.lblResult, c.lstResult, kWidestResult};

  const int dataWidth = data.MinWidth();
  const int minWidth =
      std::max({fields->Measure().width, buttons->Measure().width, dataWidth + margin + result.MinWidth()});
  const int fieldsHeight = fields->Measure().height;
  const int buttonsHeight = buttons->Measure().height;
  const int others = fieldsHeight + buttonsHeight + 2 * margin;
  // On a small screen the lists shrink, down to their captions and two lines.
  const int minListsHeight =
      std::max(ui::ListHeightFor(form, kMinListLines * line, others + 2 * margin), 4 * line);
  const int minHeight = others + minListsHeight;

  const ui::Size client = form.ClientSize();
  const int width = std::max(minWidth, client.width - 2 * margin);
  const int height = std::max(minHeight, client.height - 2 * margin);

  fields->Place({margin, margin, width, fieldsHeight});
  const int listsTop = 2 * margin + fieldsHeight;
  const int listsHeight = height - fieldsHeight - buttonsHeight - 2 * margin;
  data.Place({margin, listsTop, dataWidth, listsHeight}, gap);
  result.Place({2 * margin + dataWidth, listsTop, width - margin - dataWidth, listsHeight}, gap);
  buttons->Place({margin, margin + height - buttonsHeight, width, buttonsHeight});

  return ui::MinWindowSizeFor(form, {minWidth + 2 * margin, minHeight + 2 * margin});
}

}  // namespace tarvik
