// Measures adding lines to the result list, and a pass of the PMC window.

#include <stdexcept>

#include "cnclib/cnc_connection.h"
#include "cnclib/cnc_library.h"
#include "lab/helpers/speed_probe/speed_probe_win32.h"
#include "platform/code_page.h"
#include "platform/text.h"
#include "report/result_list.h"
#include "ui/result_list_view.h"
#include "ui/win32/form_win32.h"

namespace tarvik::lab {
namespace {

constexpr int kListId = 1;
constexpr int kRounds = 5;

/// A visible window with one list box of the size of the program's.
struct ListWindow {
  ListWindow()
      : form(L"SpeedProbe", ui::FormRole::Secondary), box(form.AddListBox(kListId, ui::kNoPage, L"")) {
    form.SetWindowSize({520, 300});
    form.Show();
    box.SetBounds({0, 0, 500, 250});
    window = GetDlgItem(form.Window(), kListId);
  }
  LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const {
    return SendMessageW(window, message, wparam, lparam);
  }

  ui::Win32Form form;
  ui::ListBox& box;
  HWND window = nullptr;
};

int32_t Number(const Words& words, size_t index) {
  const auto number = ParseInt32(words.at(index));
  if (!number) throw std::runtime_error("not a number");
  return *number;
}

}  // namespace

void MeasureLines(const Words& words) {
  const int32_t count = Number(words, 0);
  ListWindow list;
  ui::ResultListView view(list.box);
  report::ResultList results(view);
  const std::wstring line = L"192.168.1.100 > 192.168.1.100: 56 bytes time=1ms";
  const auto text = reinterpret_cast<LPARAM>(line.c_str());
  const auto report = [&](const char* name, const std::function<void()>& add) {
    double fastest = 0;
    for (int round = 0; round < kRounds; ++round) {
      results.ClearList();
      list.box.Clear();
      const double time = Milliseconds([&] {
        for (int32_t i = 0; i < count; ++i) add();
      });
      if (round == 0 || time < fastest) fastest = time;
    }
    Report(name, fastest);
  };
  report("bare", [&] { list.Send(LB_ADDSTRING, 0, text); });
  report("selecting", [&] {
    const LRESULT index = list.Send(LB_ADDSTRING, 0, text);
    list.Send(LB_SETCURSEL, static_cast<WPARAM>(index));
  });
  report("own", [&] { results.AddToList(line); });
}

void MeasurePmcPass(const Words& words) {
  constexpr int16_t kPort = 8193;
  const auto length = static_cast<int16_t>(Number(words, 1));
  const auto codePage = MakeCodePage();
  const auto library = MakeCncLibrary();
  CncLibrary::Handle handle = 0;
  if (library->nx_allochandle3(codePage->ToAnsi(words.at(0)).c_str(), kPort, 10, handle) != 0)
    throw std::runtime_error("no connection to the controller");
  ListWindow list;
  Report("pass", Milliseconds([&] {
           CncPmcRange range;
           const auto last = static_cast<int16_t>(length - 1);
           library->nx_pmc_rdrange(handle, 9, 0, 0, last,
                                   static_cast<int16_t>(length + CncPmcRange::kHeaderSize), range);
           list.Send(LB_RESETCONTENT);
           for (int16_t i = 0; i < length; ++i) {
             const std::wstring text = ZeroPadded(i, 4) + L"\t" + Hexadecimal(range.data[i]);
             list.Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
           }
         }));
  library->nx_freehandle(handle);
}

}  // namespace tarvik::lab
