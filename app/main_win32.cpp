// Entry point. Creates every process-wide object and hands it to the main window, which they outlive.

#include <memory>
#include <string>

#include "app/form1.h"
#include "app/process_protection_win32.h"
#include "platform/search_path_win32.h"
#include "platform/windows_win32.h"
#include "resources/explanation_text.h"
#include "ui/win32/form_win32.h"
#include "ui/win32/message_filter_win32.h"
#include "ui/win32/pump_win32.h"

namespace {

using namespace tarvik;

std::wstring WindowsFolder() {
  wchar_t folder[MAX_PATH] = {};
  DWORD length = ::GetEnvironmentVariableW(L"WinDir", folder, MAX_PATH);
  // Without a folder, paths below it would be relative to the current drive.
  if (length == 0 || length >= MAX_PATH) length = ::GetWindowsDirectoryW(folder, MAX_PATH);
  return {folder, length < MAX_PATH ? length : 0};
}

int Run() {
  RunFlags flags;
  ui::MessageFilter filter;
  ui::Win32Form form(L"Form1", ui::FormRole::Main);
  ui::Win32Pump pump(filter, [&flags] { return static_cast<bool>(flags.stopRequested); });
  const auto system = MakeSystem();
  const auto files = MakeFiles();
  const auto processes = MakeProcesses();
  const auto codePage = MakeCodePage();
  const auto settings = MakeSettingsStore();
  const auto clipboard = MakeClipboard(reinterpret_cast<std::intptr_t>(form.Window()));
  const auto kernel = MakeKernelCalls();
  const auto version = MakeVersionLibrary();
  const auto winsock = MakeWinsock();
  const auto icmp = MakeIcmpLibrary();
  const auto ipHelper = MakeIpHelper();
  const auto wininet = MakeWininet();
  const auto configuration = MakeConfigurationLibrary();
  const auto txCodec = MakeTxCodec();
  const auto cncLibrary = MakeCncLibrary();
  const auto k7Api = MakeK7Api();
  const auto svcKit = MakeSvcKit();
  Form1 form1(Dependencies{
      .form = form,
      .newForm = [](const wchar_t* windowClass) -> std::unique_ptr<ui::Form> {
        return std::make_unique<ui::Win32Form>(windowClass, ui::FormRole::Secondary);
      },
      .pump = pump,
      .flags = flags,
      .system = *system,
      .files = *files,
      .processes = *processes,
      .codePage = *codePage,
      .settings = *settings,
      .clipboard = *clipboard,
      .kernel = *kernel,
      .version = *version,
      .winsock = *winsock,
      .icmp = *icmp,
      .ipHelper = *ipHelper,
      .wininet = *wininet,
      .configuration = *configuration,
      .txCodec = *txCodec,
      .cncLibrary = *cncLibrary,
      .k7Api = *k7Api,
      .svcKit = *svcKit,
      .programFolder = ProgramFolder(),
      .windowsFolder = WindowsFolder(),
      .commandLine = std::wstring(AfterProgramName(::GetCommandLineW())),
      .windowsLanguage = ::GetUserDefaultUILanguage(),
      .familyEdition = TARVIK_FAMILY_EDITION != 0,
      .explanationText = &ExplanationText,
  });
  form.Guarded([&] { form1.Form_Load(); });
  // An auto-run has shown the window already, and the user may have minimised it since.
  if (!form.Visible()) form.Show();
  return ui::RunMainLoop(filter);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  ProtectProcess();
  try {
    return Run();
  } catch (...) {
    // Also reports a main window that could not be created.
    ui::ReportException(nullptr);
    return 1;
  }
}
