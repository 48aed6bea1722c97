// What other programs, the account and the end of the session do to the product, and what it leaves.

#include "lab/windows_check/clipboard_win32.h"
#include "lab/windows_check/controls_win32.h"
#include "lab/windows_check/folders_win32.h"
#include "lab/windows_check/handles_win32.h"
#include "lab/windows_check/practice_controller_win32.h"

namespace tarvik::check {
namespace {

constexpr int kNoticedMs = 5000;
/// Runs and starts, and fewer in tests, which only see that what each of them leaves is noticed.
constexpr int kRepetitions = 20;
constexpr int kFewRepetitions = 6;
/// The first runs load libraries and fill caches.
constexpr int kFirstRuns = 3;
constexpr int kRunTimeOutMs = 30000;

constexpr int kPort = 18196;
constexpr wchar_t kArguments[] = L"-X 0 -TCP_PORT 18196 -X";
constexpr char kAllWell[] = "options 1\n";

// The end of the session

std::string ShutdownReason(HWND window) {
  using Query = BOOL WINAPI(HWND, wchar_t*, DWORD*);
  auto* const query = reinterpret_cast<Query*>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "ShutdownBlockReasonQuery")));
  wchar_t reason[MAX_STR_BLOCKREASON] = {};
  DWORD size = MAX_STR_BLOCKREASON;
  if (query == nullptr || !query(window, reason, &size))
    return "(error " + std::to_string(GetLastError()) + ")";
  return ToUtf8(reason);
}

/// With the PMC test, which runs for several seconds without a network.
void CheckSession(Kit& kit) {
  const PracticeController controller(kit, kPort, kAllWell);
  Driver driver(kit);
  RunningProduct product(kit, driver, {.arguments = kArguments});
  const HWND window = product.WaitForMainWindow();
  product.Ask("set_text", ID_cmbIPAddr, "127.0.0.1");
  const HWND pmc = OpenByCommand(product, driver, ID_mnuPMC, "frmPmcTest");
  const HWND stop = ChildOf(pmc, ID_cmdStop);
  driver.Ask("click", pmc, ID_cmdRead, "");
  if (!WaitUntil(kNoticedMs, [&] { return IsWindowEnabled(stop) != FALSE; }))
    throw CheckError("the PMC test does not begin");
  const bool mayEndDuringRun = driver.Ask("session_may_end", product.Id()).at(0) == "1";
  const std::string reason = ShutdownReason(window);
  kit.report.Expect("rights.session_refused", "A run refuses the end of the session", !mayEndDuringRun, {});
  kit.report.Observe("rights.session_reason", "The reason that Windows shows for the refusal", reason);
  driver.Ask("click", pmc, ID_cmdStop, "");
  if (!WaitUntil(kRunTimeOutMs, [&] { return IsWindowEnabled(stop) == FALSE; }))
    throw CheckError("the PMC test does not stop");
  product.Ask("settle", kNoticedMs);
  const bool mayEnd = driver.Ask("session_may_end", product.Id()).at(0) == "1";
  kit.report.Expect("rights.session_accepted", "Without a run the session may end", mayEnd, {});
  driver.Ask("end_session", product.Id());
  const bool ended = WaitUntil(kRunTimeOutMs, [&] { return !product.Runs(); });
  DWORD code = STILL_ACTIVE;
  GetExitCodeProcess(product.Process(), &code);
  kit.report.Expect("rights.session_end", "The end of the session ends the program with exit code 0",
                    ended && code == 0, "exit code " + std::to_string(code));
}

// Leaks

int Repetitions(const Kit& kit) { return kit.unattended ? kFewRepetitions : kRepetitions; }

void CheckRepeatedRuns(Kit& kit) {
  const PracticeController controller(kit, kPort, kAllWell);
  Driver driver(kit);
  RunningProduct product(kit, driver, {.arguments = kArguments});
  product.WaitForMainWindow();
  product.Ask("set_text", ID_cmbIPAddr, "127.0.0.1");
  product.SelectPage(1);
  const auto run = [&](int times) {
    // The list of each run is the same as that of the run before.
    for (int i = 0; i < times; ++i) {
      product.Ask("clear_list", ID_lstResult);
      product.ClickAndFollow(ID_cmdGetInfo, kRunTimeOutMs);
    }
    product.Ask("settle", kNoticedMs);
    return CountHandles(product.Process(), product.Id());
  };
  const int times = Repetitions(kit);
  const HandleCounts before = run(kFirstRuns);
  const HandleCounts after = run(times);
  // The system's own threads open and close a few.
  const int64_t maxGrowth = times / 2;
  const bool grows = after.kernel - before.kernel > maxGrowth || after.gdi - before.gdi > maxGrowth ||
                     after.user - before.user > maxGrowth;
  kit.report.Expect("rights.handles", "Repeated runs leave no handles", !grows,
                    std::to_string(times) + " runs\nbefore: " + TextOf(before) + "\nafter: " + TextOf(after));
}

void CheckRepeatedStarts(Kit& kit) {
  Driver driver(kit);
  Findings findings;
  const int times = Repetitions(kit);
  for (int i = 0; i < times; ++i) {
    RunningProduct product(kit, driver);
    product.WaitForMainWindow();
    const DWORD code = product.Close();
    if (code != 0) findings.Add("start " + std::to_string(i + 1) + ": exit code " + std::to_string(code));
  }
  kit.report.Expect("rights.exit_code", "Repeated starts end with exit code 0", findings.None(),
                    findings.Or({}));
}

}  // namespace

void CheckRights(Kit& kit) {
  CheckFolders(kit);
  kit.progress("The clipboard");
  CheckClipboard(kit);
  kit.progress("The end of the session");
  if (kit.usesBench) CheckSession(kit);
  kit.progress("Repeated runs and starts");
  if (kit.usesBench) CheckRepeatedRuns(kit);
  CheckRepeatedStarts(kit);
}

}  // namespace tarvik::check
