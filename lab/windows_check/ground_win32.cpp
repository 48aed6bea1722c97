// What this Windows is. Everything here is observed.

#include <functional>

#include "lab/windows_check/kit_win32.h"
#include "lab/windows_check/windows_facts_win32.h"
// After windows.h.
#include <psapi.h>
#include <uxtheme.h>

namespace tarvik::check {
namespace {

constexpr wchar_t kCurrentVersion[] = L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";

std::string Hex(unsigned number) {
  char text[16] = {};
  ::wsprintfA(text, "0x%04X", number);
  return text;
}

std::string WindowsAndEdition() {
  std::string details = "version " + VersionText(WindowsVersion()) + "." +
                        RegistryText(HKEY_LOCAL_MACHINE, kCurrentVersion, L"UBR") + "\n";
  for (const wchar_t* const name :
       {L"ProductName", L"EditionID", L"DisplayVersion", L"InstallationType", L"BuildLabEx"})
    details += ToUtf8(name) + ": " + RegistryText(HKEY_LOCAL_MACHINE, kCurrentVersion, name) + "\n";
  SYSTEM_INFO system{};
  ::GetNativeSystemInfo(&system);
  details += "processor architecture: " + std::to_string(system.wProcessorArchitecture) +
             " (0 = x86, 9 = x64, 12 = ARM64), processors: " + std::to_string(system.dwNumberOfProcessors);
  const HMODULE ntdll = ::GetModuleHandleW(L"ntdll.dll");
  if (const auto wine = FindCall<const char*(__cdecl*)()>(ntdll, "wine_get_version"))
    details += std::string("\nThis is not Windows but Wine ") + wine();
  return details;
}

std::string Languages() {
  wchar_t region[LOCALE_NAME_MAX_LENGTH] = {};
  ::GetUserDefaultLocaleName(region, LOCALE_NAME_MAX_LENGTH);
  std::string details = "display language: " + Hex(::GetUserDefaultUILanguage()) + ", of the installation " +
                        Hex(::GetSystemDefaultUILanguage()) + "\nregion of the user: " + ToUtf8(region) +
                        "\n" + "system locale: " + Hex(::GetSystemDefaultLangID()) + "\npreferred:";
  ULONG count = 0;
  wchar_t names[1024] = {};
  ULONG size = 1024;
  ::GetUserPreferredUILanguages(MUI_LANGUAGE_NAME, &count, names, &size);
  for (const wchar_t* name = names; *name != L'\0'; name += ::lstrlenW(name) + 1)
    details += " " + ToUtf8(name);
  return details;
}

std::string RectText(const RECT& rect) {
  return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
         std::to_string(rect.right - rect.left) + " x " + std::to_string(rect.bottom - rect.top);
}

BOOL CALLBACK AppendMonitor(HMONITOR monitor, HDC, LPRECT, LPARAM parameter) {
  MONITORINFO information{};
  information.cbSize = sizeof information;
  ::GetMonitorInfoW(monitor, &information);
  std::string& details = *reinterpret_cast<std::string*>(parameter);
  details += RectText(information.rcMonitor) + ", work area " + RectText(information.rcWork);
  if ((information.dwFlags & MONITORINFOF_PRIMARY) != 0) details += ", primary";
  // Windows 8.1
  static const HMODULE shcore = ::LoadLibraryExW(L"shcore.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  using GetDpi = HRESULT(WINAPI*)(HMONITOR, int, UINT*, UINT*);
  if (const auto getDpi = FindCall<GetDpi>(shcore, "GetDpiForMonitor")) {
    UINT x = 0;
    UINT y = 0;
    getDpi(monitor, 0, &x, &y);
    details += ", " + std::to_string(x) + " dpi";
  }
  details += "\n";
  return TRUE;
}

std::string Monitors() {
  std::string details;
  ::EnumDisplayMonitors(nullptr, nullptr, AppendMonitor, reinterpret_cast<LPARAM>(&details));
  const HDC screen = ::GetDC(nullptr);
  details += "dpi of the system: " + std::to_string(::GetDeviceCaps(screen, LOGPIXELSY)) +
             ", colours: " + std::to_string(::GetDeviceCaps(screen, BITSPIXEL)) + " bits";
  ::ReleaseDC(nullptr, screen);
  details += "\ntext size: " +
             RegistryText(HKEY_CURRENT_USER, L"Software\\Microsoft\\Accessibility", L"TextScaleFactor") +
             " % (empty = 100)\nremote session: " + std::to_string(::GetSystemMetrics(SM_REMOTESESSION));
  return details;
}

std::string Theme() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0);
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  wchar_t file[MAX_PATH] = {};
  wchar_t colours[MAX_PATH] = {};
  ::GetCurrentThemeName(file, MAX_PATH, colours, MAX_PATH, nullptr, 0);
  UINT smoothing = 0;
  ::SystemParametersInfoW(SPI_GETFONTSMOOTHINGTYPE, 0, &smoothing, 0);
  constexpr wchar_t kPersonalize[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";
  return "theme active: " + std::to_string(::IsThemeActive()) +
         ", applied to this program: " + std::to_string(::IsAppThemed()) + "\nfile: " + ToUtf8(file) + " " +
         ToUtf8(colours) + "\nhigh contrast: " + std::to_string(contrast.dwFlags & HCF_HIGHCONTRASTON) +
         "\nlight applications: " + RegistryText(HKEY_CURRENT_USER, kPersonalize, L"AppsUseLightTheme") +
         "\nmessage font: " + ToUtf8(metrics.lfMessageFont.lfFaceName) + ", height " +
         std::to_string(metrics.lfMessageFont.lfHeight) + "\nfont smoothing: " + std::to_string(smoothing) +
         " (1 = standard, 2 = ClearType)";
}

std::string SmartAppControl() {
  constexpr wchar_t kPolicy[] = L"SYSTEM\\CurrentControlSet\\Control\\CI\\Policy";
  return "VerifiedAndReputablePolicyState: " +
         RegistryText(HKEY_LOCAL_MACHINE, kPolicy, L"VerifiedAndReputablePolicyState") +
         " (0 = off, 1 = on, 2 = evaluation, empty = not on this Windows)";
}

std::string Elevation() {
  constexpr wchar_t kPolicies[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Policies\\System";
  return "this check: " + TokenText(::GetCurrentProcess()) +
         "\nuser account control (EnableLUA): " + RegistryText(HKEY_LOCAL_MACHINE, kPolicies, L"EnableLUA");
}

}  // namespace

void CheckGround(Kit& kit) {
  Report& report = kit.report;
  report.Observe("ground.windows", "Version and edition of Windows", WindowsAndEdition());
  report.Observe("ground.code_pages", "Code pages",
                 "ANSI " + std::to_string(::GetACP()) + ", OEM " + std::to_string(::GetOEMCP()));
  report.Observe("ground.languages", "Languages", Languages());
  report.Observe("ground.monitors", "Monitors and their scaling", Monitors());
  report.Observe("ground.theme", "Theme, contrast and fonts", Theme());
  report.Observe("ground.elevation", "Rights of this check", Elevation());
  report.Observe("ground.smart_app_control", "Smart App Control", SmartAppControl());
  report.Observe("ground.firewall", "Firewall profiles, and rules that name the program", FirewallRules());
  report.Observe("ground.proxy", "Proxy settings of this user", ProxySettings());
  report.Observe("ground.adapters", "Network adapters", Adapters());
  report.Observe("ground.closed_libraries", "The maker's libraries on this PC", ClosedLibraries());
}

}  // namespace tarvik::check
