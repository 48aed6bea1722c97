// Measures the FTP listing.

#include <stdexcept>

#include "ftp/ftp_check.h"
#include "ftp/wininet.h"
#include "lab/helpers/speed_probe/speed_probe_win32.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/system.h"
#include "resources/resource.h"
#include "ui/result_list_view.h"
#include "ui/win32/form_win32.h"
#include "ui/win32/message_filter_win32.h"
#include "ui/win32/pump_win32.h"

namespace tarvik::lab {
namespace {

constexpr uint32_t kDirect = 1;  // no proxy
constexpr uint32_t kFtpService = 1;
constexpr uint32_t kFromServer = 0x80000000;

/// Connects, reads every entry and disconnects. Returns the number of entries.
int BareLoop(Wininet& wininet, const std::string& host) {
  const Wininet::Handle session = wininet.InternetOpenA("speed_probe", kDirect, nullptr, nullptr, 0);
  const Wininet::Handle connection =
      wininet.InternetConnectA(session, host.c_str(), 21, nullptr, nullptr, kFtpService, 0, 0);
  if (connection == 0) throw std::runtime_error("no connection to the FTP server");
  FindData entry;
  int count = 0;
  const Wininet::Handle search = wininet.FtpFindFirstFileA(connection, nullptr, &entry, kFromServer, 0);
  if (search != 0) {
    do ++count;
    while (wininet.InternetFindNextFileA(search, &entry) != 0);
    wininet.InternetCloseHandle(search);
  }
  wininet.InternetCloseHandle(connection);
  wininet.InternetCloseHandle(session);
  return count;
}

}  // namespace

void MeasureListing(const Words& words) {
  const auto codePage = MakeCodePage();
  const auto wininet = MakeWininet();
  const auto system = MakeSystem();
  ui::MessageFilter filter;
  ui::Win32Pump pump(filter, [] { return false; });
  ui::Win32Form form(L"SpeedProbe", ui::FormRole::Secondary);
  ui::ListBox& box = form.AddListBox(1, ui::kNoPage, L"");
  form.SetWindowSize({520, 300});
  form.Show();
  box.SetBounds({0, 0, 500, 250});
  ui::ResultListView view(box);
  report::ResultList results(view);
  const auto files = MakeFiles();
  Resource resource(*files, *system, *codePage);
  const LanguageMode mode = kBuiltInEnglish;
  const Texts texts(mode, resource);
  report::RunRecorder recorder(pump);
  int entries = 0;
  Report("bare", Milliseconds([&] { entries = BareLoop(*wininet, codePage->ToAnsi(words.at(0))); }));
  Report("own", Milliseconds([&] {
           TestFtp(
               {results, form.Boxes(), texts, pump, recorder}, *wininet, *codePage, *system, [](bool) {},
               words.at(0), L"", L"");
         }));
  Report("entries", entries);
}

}  // namespace tarvik::lab
