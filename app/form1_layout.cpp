#include "app/form1_layout.h"

#include <algorithm>
#include <array>
#include <utility>

#include "resources/messages.h"
#include "ui/layout.h"

namespace tarvik {
namespace {

using ui::Boxed;
using ui::BoxPtr;

/// Design size of the result list in lines, and of the window in letters of average width.
constexpr int kResultLines = 16;
constexpr int kLeastWidthInLines = 36;

/// A control wide enough for its caption in either language, whichever is loaded later.
BoxPtr Captioned(ui::Control& control, Message message) {
  const MessageRow& row = RowOf(message);
  return ui::Fit(control, {row.japanese, row.english});
}

BoxPtr Captioned(ui::Control& control, Message message, Message otherMessage) {
  const MessageRow& row = RowOf(message);
  const MessageRow& other = RowOf(otherMessage);
  return ui::Fit(control, {row.japanese, row.english, other.japanese, other.english});
}

BoxPtr Sized(ui::Control& control, const wchar_t* sample) { return ui::Fit(control, {sample}); }

/// The grid's unit: a third of a line of text, 5 pixels at 100 percent.
struct Grid {
  int unit;
  int near() const { return unit; }
  int far() const { return 2 * unit; }
};

BoxPtr Page(const Grid& grid, BoxPtr fields, std::vector<BoxPtr> buttons) {
  return ui::Row(2 * grid.far(),
                 Boxed(std::move(fields), ui::Filler(), ui::Row(grid.near(), std::move(buttons))));
}

std::array<BoxPtr, kPageCount> Pages(const Grid& grid, Form1Controls& c) {
  std::array<BoxPtr, kPageCount> pages;
  const auto rows = [](auto... row) {
    std::vector<std::vector<BoxPtr>> list;
    (list.push_back(std::move(row)), ...);
    return list;
  };
  const auto fields = [&grid](std::vector<std::vector<BoxPtr>> list) {
    return ui::Grid(grid.near(), grid.near(), std::move(list));
  };
  pages[kPingPage] = Page(grid,
                          fields(rows(Boxed(Captioned(c.lblPingReqCount, Message::PingCountLabel),
                                            Sized(c.txtPingReqCount, L"2147483647")))),
                          Boxed(Captioned(c.cmdPing, Message::PingButton, Message::StopButton),
                                Captioned(c.cmdAllTest, Message::AllTestButton)));
  pages[kNexalPage] =
      Page(grid,
           ui::Column(grid.near(),
                      Boxed(ui::Row(grid.near(), Boxed(Captioned(c.lblNxlibTimeOut, Message::TimeOutLabel),
                                                       Sized(c.txtNxlibTimeOut, L"32767"),
                                                       Captioned(c.lblTcpPortNo, Message::PortLabel),
                                                       Sized(c.txtTcpPortNo, L"32767"))),
                            ui::Row(grid.near(), Boxed(Captioned(c.chkAccessCode, Message::AccessCodeBox),
                                                       Captioned(c.lblAccessCode, Message::AccessCodeLabel),
                                                       Sized(c.txtAccessCode, L"00000000"))))),
           Boxed(Captioned(c.cmdGetInfo, Message::GetInfoButton)));
  pages[kK7ApiPage] = Page(grid,
                           fields(rows(Boxed(Captioned(c.lblTestCount, Message::TestCountLabel),
                                             Sized(c.txtK7ApiTestCount, L"2147483647")))),
                           Boxed(Captioned(c.cmdK7Api, Message::K7ApiButton, Message::StopButton)));
  pages[kK7SvcPage] = Page(
      grid,
      fields(rows(Boxed(Captioned(c.lblStatus, Message::StatusLabel), Sized(c.lblK7ServerStatus, L"Stopped")),
                  Boxed(Captioned(c.lblPcUdpSetting, Message::UdpPortLabel),
                        Sized(c.lblK7UdpPortNo, L"2147483647")))),
      Boxed(Captioned(c.cmdStartK7Server, Message::StartButton),
            Captioned(c.cmdStopK7Server, Message::StopServiceButton),
            Captioned(c.cmdK7ServerDebug, Message::DebugButton)));
  pages[kFtpPage] = Page(grid,
                         fields(rows(Boxed(Captioned(c.lblFtpUsername, Message::UserLabel),
                                           Sized(c.txtFtpUsername, L"000000000000000")),
                                     Boxed(Captioned(c.lblFtpPasswd, Message::PasswordLabel),
                                           Sized(c.txtFtpPasswd, L"000000000000000")))),
                         Boxed(Captioned(c.cmdFtpConnect, Message::FtpConnectButton),
                               Captioned(c.cmdAllFtpTest, Message::AllFtpTestButton)));
  return pages;
}

}  // namespace

ui::Size LayOutForm1(ui::Form& form, Form1Controls& c) {
  const int line = form.LineHeight();
  const Grid grid{std::max(1, (line + 1) / 3)};
  const int margin = grid.far();

  const BoxPtr address = ui::Row(grid.near(), Boxed(Captioned(c.lblIPAddr, Message::AddressLabel),
                                                    ui::Stretch(c.cmbIPAddr, L"255.255.255.255")));
  const std::array<BoxPtr, kPageCount> pages = Pages(grid, c);

  int width = std::max({address->Measure().width, kLeastWidthInLines * line, c.tabMode.SizeFor(L"").width});
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
  const ui::Size result = c.lblResult.SizeFor(c.lblResult.Caption());
  const int resultWidth =
      std::max({result.width, c.lblResult.SizeFor(RowOf(Message::ResultLabel).japanese).width,
                c.lblResult.SizeFor(RowOf(Message::ResultLabel).english).width});
  c.lblResult.SetBounds({margin, next(result.height, grid.near()), resultWidth, result.height});
  const int listHeight = kResultLines * line;
  c.lstResult.SetBounds({margin, next(listHeight, margin), width, listHeight});

  const ui::Size window = form.WindowSize();
  const ui::Size client = form.ClientSize();
  return {width + 2 * margin + window.width - client.width, y + window.height - client.height};
}

}  // namespace tarvik
