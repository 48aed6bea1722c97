// The main window's layout: address, pages, answer, result list, status bar, from top to bottom. Every size
// comes from measured texts and the line height, so it fits any language and scaling.

#include "app/form1_layout.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <string>
#include <utility>

#include "app/rung_names.h"
#include "ui/form_layout.h"

namespace tarvik {
namespace {

using ui::Boxed;
using ui::BoxPtr;
using ui::Captioned;
using ui::Sized;

/// Design height of the result list, and minimum width of its column, in line heights.
constexpr int kResultLines = 16;
/// On a screen where fewer would be visible, the list gets the place of the status bar.
constexpr int kMinResultLines = 10;
constexpr int kMinWidthInLines = 36;

/// One page: fields on the left, buttons on the right.
BoxPtr Page(const ui::Spacing& spacing, BoxPtr fields, std::vector<BoxPtr> buttons) {
  return ui::Row(2 * spacing.margin,
                 Boxed(std::move(fields), ui::Filler(), ui::Row(spacing.gap, std::move(buttons))));
}

std::array<BoxPtr, kPageCount> Pages(const ui::Spacing& spacing, Form1Controls& c) {
  const int gap = spacing.gap;
  const auto fields = [gap](auto... row) {
    std::vector<std::vector<BoxPtr>> rows;
    (rows.push_back(std::move(row)), ...);
    return ui::Grid(gap, gap, std::move(rows));
  };
  std::array<BoxPtr, kPageCount> pages;
  std::vector<BoxPtr> pingButtons = Boxed(Captioned(c.cmdPing, {Message::StopButton}));
  if (c.cmdAllTest.Visible()) pingButtons.push_back(Captioned(c.cmdAllTest));
  pages[kPingPage] =
      Page(spacing, fields(Boxed(Captioned(c.lblPingReqCount), Sized(c.txtPingReqCount, L"2147483647"))),
           std::move(pingButtons));
  pages[kNexalPage] =
      Page(spacing,
           ui::Column(
               gap, Boxed(ui::Row(gap, Boxed(Captioned(c.lblNxlibTimeOut), Sized(c.txtNxlibTimeOut, L"32767"),
                                             Captioned(c.lblTcpPortNo), Sized(c.txtTcpPortNo, L"32767"))),
                          ui::Row(gap, Boxed(Captioned(c.chkAccessCode), Captioned(c.lblAccessCode),
                                             Sized(c.txtAccessCode, L"00000000"))))),
           Boxed(Captioned(c.cmdGetInfo)));
  pages[kK7ApiPage] =
      Page(spacing, fields(Boxed(Captioned(c.lblTestCount), Sized(c.txtK7ApiTestCount, L"2147483647"))),
           Boxed(Captioned(c.cmdK7Api, {Message::StopButton})));
  pages[kK7SvcPage] =
      Page(spacing,
           fields(Boxed(Captioned(c.lblStatus), Sized(c.lblK7ServerStatus, L"Stopped")),
                  Boxed(Captioned(c.lblPcUdpSetting), Sized(c.lblK7UdpPortNo, L"2147483647"))),
           Boxed(Captioned(c.cmdStartK7Server), Captioned(c.cmdStopK7Server), Captioned(c.cmdK7ServerDebug)));
  pages[kFtpPage] =
      Page(spacing,
           fields(Boxed(Captioned(c.lblFtpUsername), Sized(c.txtFtpUsername, L"000000000000000")),
                  Boxed(Captioned(c.lblFtpPasswd), Sized(c.txtFtpPasswd, L"000000000000000"))),
           Boxed(Captioned(c.cmdFtpConnect), Captioned(c.cmdAllFtpTest)));
  return pages;
}

/// The widths in which the fields of the status bar show every mark in both languages.
std::vector<int> FieldWidths(const ui::StatusBar& bar, bool familyEdition) {
  const auto widthOf = [&bar](const wchar_t* name, const wchar_t* mark) {
    return bar.SizeFor(std::wstring(name) + mark).width;
  };
  std::vector<int> widths;
  for (const RungName& name : RungNames(familyEdition))
    widths.push_back(
        std::max(widthOf(name.english, kWidestMark.english), widthOf(name.japanese, kWidestMark.japanese)));
  return widths;
}

}  // namespace

ui::Size LayOutForm1(ui::Form& form, Form1Controls& c, bool familyEdition) {
  const int line = form.LineHeight();
  const ui::Spacing spacing = ui::SpacingOf(form);
  const int margin = spacing.margin;

  const BoxPtr address =
      ui::Row(spacing.gap, Boxed(Captioned(c.lblIPAddr), ui::Stretch(c.cmbIPAddr, L"255.255.255.255")));
  const std::array<BoxPtr, kPageCount> pages = Pages(spacing, c);

  int width = std::max({address->Measure().width, kMinWidthInLines * line, c.tabMode.SizeFor(L"").width});
  int pageHeight = 0;
  const ui::Size frame = c.tabMode.FrameSize();
  for (const BoxPtr& page : pages) {
    const ui::Size size = page->Measure();
    width = std::max(width, size.width + frame.width + 2 * margin);
    pageHeight = std::max(pageHeight, size.height);
  }
  std::vector<int> fields = FieldWidths(c.sbrRungs, familyEdition);
  const int bar = std::accumulate(fields.begin(), fields.end(), c.sbrRungs.GripWidth());
  width = std::max(width, bar - 2 * margin);
  const int spare = (width + 2 * margin - bar) / static_cast<int>(fields.size());
  for (int& field : fields) field += spare;
  c.sbrRungs.SetFieldWidths(fields);

  int y = margin;
  const auto next = [&y](int height, int gap) {
    const int top = y;
    y += height + gap;
    return top;
  };
  const int addressHeight = address->Measure().height;
  address->Place({margin, next(addressHeight, margin), width, addressHeight});
  const int stripHeight = pageHeight + 2 * margin + frame.height;
  c.tabMode.SetBounds({margin, next(stripHeight, margin), width, stripHeight});
  for (const BoxPtr& page : pages)
    page->Place({margin, margin, width - frame.width - 2 * margin, page->Measure().height});
  const BoxPtr result = Captioned(c.lblResult);
  const ui::Size resultSize = result->Measure();
  const int resultTop = next(resultSize.height, spacing.gap);
  result->Place({margin, resultTop, resultSize.width, resultSize.height});
  const int answerX = margin + resultSize.width + spacing.gap;
  c.lblAnswer.SetBounds({answerX, resultTop, margin + width - answerX, resultSize.height});

  const int barHeight = c.sbrRungs.SizeFor(L"").height;
  int listHeight = ui::ListHeightFor(form, kResultLines * line, y + margin + barHeight);
  const bool barFits = listHeight >= (kMinResultLines - 1) * line + c.lstResult.SizeFor(L"").height;
  if (!barFits) listHeight = ui::ListHeightFor(form, kResultLines * line, y + margin);
  c.lstResult.SetBounds({margin, next(listHeight, margin), width, listHeight});
  c.sbrRungs.SetVisible(barFits);
  c.sbrRungs.SetBounds({0, y, width + 2 * margin, barHeight});
  if (barFits) y += barHeight;
  return ui::MinWindowSizeFor(form, {width + 2 * margin, y});
}

void ResizeResultList(ui::Form& form, Form1Controls& c, ui::Size size) {
  const ui::Rect list = c.lstResult.Bounds();
  const ui::Size client = form.ClientSize();
  const int barHeight = c.sbrRungs.Bounds().height;
  // First, so that a list that grows does not cover it.
  c.sbrRungs.SetBounds({0, client.height - barHeight, client.width, barHeight});
  c.lstResult.SetBounds({list.x, list.y, size.width, size.height});
  ui::Rect answer = c.lblAnswer.Bounds();
  answer.width = list.x + size.width - answer.x;
  c.lblAnswer.SetBounds(answer);
}

}  // namespace tarvik
