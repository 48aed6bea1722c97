// A library call that does not return for 8 seconds, which Windows takes for a program that hangs.

#include <algorithm>

#include "lab/windows_check/controls_win32.h"
#include "lab/windows_check/practice_controller_win32.h"

namespace tarvik::check {
namespace {

constexpr int kHeldMs = 8000;
constexpr int kMainPort = 18193;
constexpr int kPmcPort = 18194;
/// Between the return of the call and the end of the run.
constexpr int kStopMs = 1000;
/// The same under Wine, which runs on machines that are busy with other tests.
constexpr int kStopUnderWineMs = 8000;
/// For a second run to begin.
constexpr int kSecondRunMs = 1000;
constexpr int kSecondRunUnderWineMs = 4000;

std::string ReadWhole(const std::wstring& path) {
  std::string text;
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  char block[4096];
  for (DWORD got = 0; ReadFile(file, block, sizeof block, &got, nullptr) && got > 0;) text.append(block, got);
  CloseHandle(file);
  return text;
}

/// The number of windows that Windows shows in place of these when their programs hang.
int GhostsOf(const std::vector<HWND>& windows) {
  int count = 0;
  HWND ghost = nullptr;
  while ((ghost = FindWindowExW(nullptr, ghost, L"Ghost", nullptr)) != nullptr) {
    if (!IsWindowVisible(ghost)) continue;
    RECT shown{};
    GetWindowRect(ghost, &shown);
    // Other programs of the user may hang, too. A ghost has the place of its window.
    count += std::any_of(windows.begin(), windows.end(), [&](HWND window) {
      RECT box{};
      GetWindowRect(window, &box);
      return box.left == shown.left && box.top == shown.top;
    });
  }
  return count;
}

/// A click as the user makes it: the message waits in the queue until the program reads it.
void PostClickOn(HWND control) {
  RECT client{};
  GetClientRect(control, &client);
  const LPARAM centre = MAKELPARAM(client.right / 2, client.bottom / 2);
  PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, centre);
  PostMessageW(control, WM_LBUTTONUP, 0, centre);
}

/// The product, ready for a run against the practice controller, which holds a call. The library logs its
/// calls.
class HeldRun {
 public:
  HeldRun(Kit& kit, Driver& driver, int port, const wchar_t* log)
      : log_(kit.folder + L"\\" + log),
        product_(kit, driver,
                 {.arguments = L"-X 0 -NXLIB_TMOUT 30 -TCP_PORT " + std::to_wstring(port) + L" -X",
                  .currentFolder = kit.folder,
                  .environment = {{L"TARVIK_BENCH_CALLS", log}}}),
        window_(product_.WaitForMainWindow()) {
    product_.Ask("set_text", ID_cmbIPAddr, "127.0.0.1");
  }

  RunningProduct& Product() { return product_; }
  HWND Window() const { return window_; }

  /// Whether the library has logged the end of the call.
  bool Returned(const std::string& call) const { return ReadWhole(log_).find(call) != std::string::npos; }
  std::string Log() const { return ReadWhole(log_); }

 private:
  std::wstring log_;
  RunningProduct product_;
  HWND window_;
};

int CountOf(const std::string& text, const std::string& part) {
  int count = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

/// What was seen while both programs were held.
struct Held {
  int ghosts = 0;
  bool hung = false;   ///< Windows took a program for one that hangs
  bool ended = false;  ///< both runs
  DWORD pmcEndMs = 0;  ///< from the return of the call to the end of the PMC test
};

/// Starts both runs, clicks during their held calls, and follows them to their end. A second click on the
/// button of a run, like the PMC window's Stop, asks the run to stop.
Held HoldAndStop(HeldRun& main, HeldRun& pmc, HWND pmcWindow) {
  const HWND getInfo = main.Product().Control(ID_cmdGetInfo);
  const HWND pmcRead = ChildOf(pmcWindow, ID_cmdRead);
  const HWND pmcStop = ChildOf(pmcWindow, ID_cmdStop);
  PostClickOn(getInfo);
  PostClickOn(pmcRead);
  if (!WaitUntil(kHeldMs, [&] { return main.Returned("nx_getoptions1") && pmc.Returned("nx_allochandle3"); }))
    throw CheckError("the runs do not reach their library calls");
  // Windows takes a program for one that hangs when input has waited for five seconds.
  PostClickOn(getInfo);
  PostClickOn(pmcStop);

  Held held;
  DWORD returnedAt = 0;
  held.ended = WaitUntil(3 * kHeldMs, [&] {
    held.ghosts = std::max(held.ghosts, GhostsOf({main.Window(), pmc.Window(), pmcWindow}));
    held.hung = held.hung || IsHungAppWindow(main.Window()) || IsHungAppWindow(pmcWindow);
    if (returnedAt == 0 && pmc.Returned("nx_pmc_rdrange")) returnedAt = GetTickCount();
    const bool pmcEnded = returnedAt != 0 && IsWindowEnabled(pmcRead);
    if (held.pmcEndMs == 0 && pmcEnded) held.pmcEndMs = std::max<DWORD>(1, GetTickCount() - returnedAt);
    return held.pmcEndMs != 0 && main.Returned("nx_freehandle");
  });
  return held;
}

}  // namespace

void CheckBlocking(Kit& kit) {
  if (!kit.usesBench) return;
  kit.progress("Library calls that take 8 seconds");
  const std::string delay = " " + std::to_string(kHeldMs) + "\n";
  const PracticeController mainController(kit, kMainPort, "options 1\ndelay sysinfo" + delay);
  const PracticeController pmcController(kit, kPmcPort, "options 1\ndelay pmc" + delay);
  Driver driver(kit);
  HeldRun main(kit, driver, kMainPort, L"held_main.log");
  main.Product().SelectPage(1);
  HeldRun pmc(kit, driver, kPmcPort, L"held_pmc.log");
  const HWND pmcWindow = OpenByCommand(pmc.Product(), driver, ID_mnuPMC, "frmPmcTest");

  const Held held = HoldAndStop(main, pmc, pmcWindow);
  kit.report.Observe("blocking.hung", "Windows took the held program for one that hangs",
                     held.hung ? "yes" : "no");
  constexpr char kGhostId[] = "blocking.ghost";
  constexpr char kGhostTitle[] = "No ghost window takes the place of a held program";
  // Without a program that hangs for Windows, there is no ghost to expect. Wine has no such notion.
  if (held.hung || IsWine())
    kit.report.Expect(kGhostId, kGhostTitle, held.ghosts == 0,
                      std::to_string(held.ghosts) + " windows of the class Ghost");
  else
    kit.report.Observe(kGhostId, kGhostTitle, "Windows took neither program for one that hangs.");
  main.Product().Ask("settle", kHeldMs);
  const auto runs = [&] { return CountOf(main.Log(), "nx_allochandle3("); };
  WaitUntil(IsWine() ? kSecondRunUnderWineMs : kSecondRunMs, [&] { return runs() > 1; });
  kit.report.Expect("blocking.second_run", "A click during the call starts no second run", runs() == 1,
                    main.Log());
  const std::string log = pmc.Log();
  const bool stopped = held.pmcEndMs <= static_cast<DWORD>(IsWine() ? kStopUnderWineMs : kStopMs);
  kit.report.Expect("blocking.stop", "Stop ends the PMC test within a second after the call has returned",
                    held.ended && stopped && CountOf(log, "nx_pmc_rdrange(") == 1,
                    std::to_string(held.pmcEndMs) + " ms\n" + log);
}

}  // namespace tarvik::check
