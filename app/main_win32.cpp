// The process: everything it has one of lives here, is handed to the main window, and ends behind it.

#include <memory>
#include <string>

#include "app/closed_libraries_win32.h"
#include "app/form1.h"
#include "cnclib/cnc_library_win32.h"
#include "ftp/wininet_win32.h"
#include "k7/k7_api_win32.h"
#include "k7/svc_kit_win32.h"
#include "net/icmp_win32.h"
#include "net/ip_helper_win32.h"
#include "net/winsock_win32.h"
#include "platform/clipboard_win32.h"
#include "platform/code_page_win32.h"
#include "platform/files_win32.h"
#include "platform/kernel_calls_win32.h"
#include "platform/machine_registry_win32.h"
#include "platform/os_version_win32.h"
#include "platform/processes_win32.h"
#include "platform/profile_strings_win32.h"
#include "platform/runtime_error.h"
#include "platform/settings_store_win32.h"
#include "platform/text_order_win32.h"
#include "platform/version_library_win32.h"
#include "platform/wall_clock_win32.h"
#include "platform/windows_win32.h"
#include "ui/win32/form_win32.h"
#include "ui/win32/message_filter_win32.h"
#include "ui/win32/pump_win32.h"

namespace {

using namespace tarvik;

std::wstring ProgramFolder() {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = 0;
  while ((length = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))) ==
         path.size())
    path.resize(2 * path.size());
  path.resize(length);
  return path.substr(0, path.rfind(L'\\'));
}

std::wstring WindowsFolder() {
  wchar_t folder[MAX_PATH] = {};
  const DWORD length = ::GetEnvironmentVariableW(L"WinDir", folder, MAX_PATH);
  return length < MAX_PATH ? folder : std::wstring();
}

int Run() {
  RunFlags flags;
  ui::MessageFilter filter;
  ui::Win32Form form(L"Form1", ui::FormRole::Main);
  ui::Win32Pump pump(filter, [&flags] { return static_cast<bool>(flags.stopRequested); });
  Win32ConfigurationLibrary configuration;
  Win32TxCodec txCodec;
  Win32Winsock winsock;
  Win32IcmpLibrary icmp;
  Win32IpHelper ipHelper;
  Win32Wininet wininet;
  Win32OsVersion osVersion;
  Win32Files files;
  Win32Processes processes;
  Win32CodePage codePage;
  Win32TextOrder textOrder;
  Win32ProfileStrings profile;
  Win32SettingsStore settings;
  Win32Clipboard clipboard(form.Window());
  Win32KernelCalls kernel;
  Win32VersionLibrary version;
  Win32MachineRegistry registry;
  Win32K7Api k7Api;
  Win32SvcKit svcKit;
  Win32CncLibrary cncLibrary;
  Win32WallClock wallClock;
  const auto newForm = [](const wchar_t* windowClass) -> std::unique_ptr<ui::Form> {
    return std::make_unique<ui::Win32Form>(windowClass, ui::FormRole::Secondary);
  };
  Form1 form1({form,
               form.Boxes(),
               pump,
               flags,
               configuration,
               txCodec,
               winsock,
               icmp,
               ipHelper,
               wininet,
               osVersion,
               files,
               processes,
               codePage,
               textOrder,
               profile,
               settings,
               clipboard,
               kernel,
               version,
               registry,
               k7Api,
               svcKit,
               cncLibrary,
               wallClock,
               newForm,
               ProgramFolder(),
               WindowsFolder(),
               std::wstring(BehindProgramName(::GetCommandLineW())),
               ::GetUserDefaultUILanguage(),
               TARVIK_FAMILY_EDITION != 0});
  form.Guarded([&] { form1.Form_Load(); });
  // The auto-run has shown it, and the user may have minimised it since.
  if (!form.Visible()) form.Show();
  return ui::RunMainLoop(filter);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  try {
    return Run();
  } catch (...) {
    // A main window that cannot be made is told too.
    ui::ReportException(nullptr);
    return 1;
  }
}
