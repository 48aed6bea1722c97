// How the product starts on this Windows: its file's header, modules, protection, scaling and common
// controls.

#include <algorithm>

#include "lab/windows_check/folder_tree_win32.h"
#include "lab/windows_check/program_header_win32.h"
#include "lab/windows_check/windows_facts_win32.h"

namespace tarvik::check {
namespace {

constexpr int kStartRunTimeOutMs = 60000;

std::string Lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
  return text;
}

void CheckHeaders(Kit& kit) {
  constexpr uint32_t kWindows7 = 0x00060001;
  constexpr uint32_t kProtection = IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE | IMAGE_DLLCHARACTERISTICS_NX_COMPAT;
  bool version = true;
  bool terminalServer = true;
  bool isProtected = true;
  std::string details;
  for (const std::wstring& program : {kit.product, kit.general}) {
    const ProgramHeader header = ReadProgramHeader(program);
    version = version && header.subsystemVersion == kWindows7 && header.systemVersion == kWindows7;
    terminalServer =
        terminalServer && (header.characteristics & IMAGE_DLLCHARACTERISTICS_TERMINAL_SERVER_AWARE) != 0;
    isProtected = isProtected && (header.characteristics & kProtection) == kProtection;
    char text[128] = {};
    ::wsprintfA(text, "subsystem %08lX, system %08lX, flags %04lX\n", header.subsystemVersion,
                header.systemVersion, header.characteristics);
    details += text;
  }
  Report& report = kit.report;
  report.Expect("start.header_version", "Both editions are marked for Windows 7 (6.1) and later", version,
                details);
  report.Expect("start.terminal_server", "Both editions are marked as aware of terminal servers",
                terminalServer, details);
  report.Expect("start.header_protection", "Both editions are marked for ASLR and DEP", isProtected, details);
}

void CheckManifests(Kit& kit) {
  std::string missing;
  for (const std::wstring& program : {kit.product, kit.general}) {
    const std::string manifest = ReadManifest(program);
    for (const char* const part :
         {"level=\"asInvoker\"", "Microsoft.Windows.Common-Controls", ">PerMonitorV2, System<", "dpiAware ",
          "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"})
      if (manifest.find(part) == std::string::npos) missing.append(part).append(" is missing\n");
  }
  kit.report.Expect(
      "start.manifest",
      "The manifests of both editions ask for the user's own rights, common controls 6 and scaling",
      missing.empty(), missing);
}

/// The DPI awareness of a window: "per monitor 2", "per monitor", "system" or "unaware"; empty when this
/// Windows does not report it.
std::string DpiAwareness(HWND window) {
  using GetContext = HANDLE(WINAPI*)(HWND);
  using AreEqual = BOOL(WINAPI*)(HANDLE, HANDLE);
  const HMODULE user = ::GetModuleHandleW(L"user32.dll");
  const auto getContext = FindCall<GetContext>(user, "GetWindowDpiAwarenessContext");
  const auto areEqual = FindCall<AreEqual>(user, "AreDpiAwarenessContextsEqual");
  if (getContext == nullptr || areEqual == nullptr) return {};
  const HANDLE context = getContext(window);
  const auto is = [&](intptr_t value) { return areEqual(context, reinterpret_cast<HANDLE>(value)) != FALSE; };
  return is(-4) ? "per monitor 2" : is(-3) ? "per monitor" : is(-2) ? "system" : "unaware";
}

void CheckScaling(Kit& kit, HWND window) {
  constexpr char kTitle[] = "The product scales its windows itself, for each monitor where Windows can";
  const std::string awareness = DpiAwareness(window);
  // Windows 10 before 1703 does not know the second per-monitor mode; the manifest then asks for "system".
  constexpr unsigned kFirstBuildWithSecondMode = 15063;
  const bool hasSecondMode = WindowsVersion().build >= kFirstBuildWithSecondMode;
  if (awareness.empty()) {
    kit.report.Observe("start.dpi_awareness", kTitle, "this Windows does not report it");
  } else {
    kit.report.Expect("start.dpi_awareness", kTitle,
                      hasSecondMode ? awareness == "per monitor 2" : awareness != "unaware", awareness);
  }
}

void CheckCommonControls(Kit& kit, const std::vector<std::wstring>& modules) {
  // The folder of the version that the manifest asks for. The version resource would not do under Wine.
  constexpr char kVersion6[] = "\\x86_microsoft.windows.common-controls_6595b64144ccf1df_6.";
  std::string found;
  bool good = false;
  for (const std::wstring& module : modules) {
    std::wstring lower = module;
    ::CharLowerBuffW(lower.data(), static_cast<DWORD>(lower.size()));
    const std::string path = ToUtf8(lower);
    if (path.find("\\comctl32.dll") == std::string::npos) continue;
    good = good || path.find(kVersion6) != std::string::npos;
    found += path + " " + FileVersion(module) + "\n";
  }
  kit.report.Expect("start.common_controls", "The product uses version 6 of the common controls", good,
                    found);
}

/// The process' mitigation policies as numbers (GetProcessMitigationPolicy, Windows 8).
std::string Mitigations(HANDLE process) {
  using GetPolicy = BOOL(WINAPI*)(HANDLE, int, void*, SIZE_T);
  const auto getPolicy =
      FindCall<GetPolicy>(::GetModuleHandleW(L"kernel32.dll"), "GetProcessMitigationPolicy");
  if (getPolicy == nullptr) return "this Windows does not report it";
  constexpr struct {
    int policy;
    const char* name;
    SIZE_T size;
  } kPolicies[] = {{0, "DEP", 8},
                   {1, "ASLR", 4},
                   {3, "strict handles", 4},
                   {6, "extension points", 4},
                   {7, "control flow guard", 4},
                   {8, "signatures", 4},
                   {10, "image load", 4}};
  std::string details;
  for (const auto& [policy, name, size] : kPolicies) {
    DWORD flags[2] = {};
    char text[96] = {};
    if (getPolicy(process, policy, flags, size)) {
      ::wsprintfA(text, "%s: 0x%lX\n", name, flags[0]);
    } else {
      ::wsprintfA(text, "%s: error %lu\n", name, ::GetLastError());
    }
    details += text;
  }
  return details;
}

std::string ModuleList(const std::vector<std::wstring>& modules) {
  std::string list;
  for (const std::wstring& module : modules) list += ToUtf8(module) + " " + FileVersion(module) + "\n";
  return list;
}

void CheckFirstStart(Kit& kit) {
  Report& report = kit.report;
  Driver driver(kit);
  const ULONGLONG before = ::GetTickCount64();
  RunningProduct product(kit, driver);
  const HWND window = product.WaitForMainWindow();
  report.Observe("start.time", "Milliseconds until the window and all its pages can be used",
                 std::to_string(::GetTickCount64() - before));
  report.Expect("start.no_message", "With its libraries the product starts without a message",
                product.Boxes().empty(), Lines(product.Boxes()));
  report.Observe("start.lines", "What the result list shows after the start", Lines(product.Lines()));
  report.Attach("start.lines", EncodePng(CaptureWindow(window)));
  const std::vector<std::wstring> modules = Modules(product.Process());
  report.Observe("start.modules", "Modules of the product", ModuleList(modules));
  CheckScaling(kit, window);
  CheckCommonControls(kit, modules);
  report.Observe("start.rights", "Rights of the product",
                 TokenText(product.Process()) + "\nthis check: " + TokenText(::GetCurrentProcess()));
  report.Observe("start.mitigations", "Protection of the product by Windows", Mitigations(product.Process()));
  const DWORD code = product.Close();
  report.Expect("start.exit_code", "The product ends with exit code 0", code == 0, std::to_string(code));
}

void CheckWithoutLibraries(Kit& kit) {
  Driver driver(kit);
  StartOptions options;
  options.withBench = false;
  RunningProduct product(kit, driver, options);
  product.WaitForMainWindow();
  kit.report.Observe("start.without_libraries", "What the product shows without the maker's libraries",
                     Lines(product.Boxes()) + "\n" + Lines(product.Lines()));
}

/// Plants the recording library under these names in a folder.
void Plant(const Kit& kit, const std::wstring& folder, const std::vector<std::wstring>& names) {
  ::CreateDirectoryW(folder.c_str(), nullptr);
  for (const std::wstring& name : names)
    ::CopyFileW((kit.folder + L"\\planted.dll").c_str(), (folder + L"\\" + name).c_str(), FALSE);
}

/// The planted libraries that were loaded, one per line.
std::string Loaded(const std::wstring& folder, const std::vector<std::wstring>& names) {
  std::string loaded;
  for (const std::wstring& name : names) {
    const std::wstring trace = folder + L"\\" + name + L".loaded";
    if (::GetFileAttributesW(trace.c_str()) != INVALID_FILE_ATTRIBUTES) loaded += ToUtf8(name) + "\n";
  }
  return loaded;
}

/// Starts a copy of the product, beside which and in whose current folder libraries are planted, and lets it
/// load everything it can: a run with Ping and Ftp on this PC.
void CheckPlantedLibraries(Kit& kit) {
  const std::vector<std::wstring> ofWindows = {L"comctl32.dll", L"icmp.dll",    L"imm32.dll",
                                               L"iphlpapi.dll", L"uxtheme.dll", L"version.dll",
                                               L"wininet.dll"};
  std::vector<std::wstring> all = {L"NxLib32.dll", L"NxLibe1.dll", L"ObryConfIO.dll",
                                   L"SvcKit.dll",  L"k7api.dll",   L"txcodec.dll"};
  all.insert(all.end(), ofWindows.begin(), ofWindows.end());
  const std::wstring beside = kit.folder + L"\\planted_beside";
  const std::wstring current = kit.folder + L"\\planted_current";
  CopyFolder(kit.product.substr(0, kit.product.rfind(L'\\')), beside);
  Plant(kit, beside, ofWindows);
  Plant(kit, current, all);
  std::string failure;
  {
    Driver driver(kit);
    StartOptions options;
    options.program = beside + L"\\Tarvik.exe";
    options.arguments = L"-LANGID 1 -X 8 -PING_N 1 -FTP_USER cnc 127.0.0.1";
    options.currentFolder = current;
    options.withBench = false;
    RunningProduct product(kit, driver, options);
    try {
      product.WaitForMainWindow();
      product.FollowRun(kStartRunTimeOutMs);
      product.Close();
    } catch (const CheckError& error) {
      // Also what a start that fails half-way has loaded counts.
      if (IsCancelled()) throw;
      failure = std::string("\n") + error.what();
    }
  }
  const std::string fromCurrent = Loaded(current, all);
  const std::string fromBeside = Loaded(beside, ofWindows);
  kit.report.Expect("start.planted_in_current_folder", "No library planted in the current folder is loaded",
                    fromCurrent.empty(), fromCurrent + failure);
  kit.report.Expect("start.planted_beside_program",
                    "No library planted beside the program under the name of one of Windows is loaded",
                    fromBeside.empty(), fromBeside + failure);
}

}  // namespace

void CheckStart(Kit& kit) {
  CheckHeaders(kit);
  CheckManifests(kit);
  kit.progress("first start");
  CheckFirstStart(kit);
  kit.progress("without the maker's libraries");
  CheckWithoutLibraries(kit);
  kit.progress("planted libraries");
  CheckPlantedLibraries(kit);
}

}  // namespace tarvik::check
