// The main window's layout: address, pages, result list, from top to bottom. Every size comes from measured
// texts and the line height, so it fits any language and scaling.

#include "app/form1_layout.h"

#include <algorithm>
#include <array>
#include <utility>

#include "ui/form_layout.h"

namespace tarvik {
namespace {

using ui::Boxed;
using ui::BoxPtr;
using ui::Captioned;
using ui::Sized;

/// Design height of the result list, and minimum width of its column, in line heights.
constexpr int kResultLines = 16;
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
  pages[kPingPage] =
      Page(spacing, fields(Boxed(Captioned(c.lblPingReqCount), Sized(c.txtPingReqCount, L"2147483647"))),
           Boxed(Captioned(c.cmdPing, {Message::StopButton}), Captioned(c.cmdAllTest)));
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

}  // namespace

ui::Size LayOutForm1(ui::Form& form, Form1Controls& c) {
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
  result->Place({margin, next(resultSize.height, spacing.gap), resultSize.width, resultSize.height});
  const int listHeight = ui::ListHeightFor(form, kResultLines * line, y + margin);
  c.lstResult.SetBounds({margin, next(listHeight, margin), width, listHeight});
  return ui::MinWindowSizeFor(form, {width + 2 * margin, y});
}

}  // namespace tarvik
