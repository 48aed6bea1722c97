// Entry point of the Windows check. A double click shows the progress window, runs the sections in a second
// thread and opens the report. For tests:
//   WindowsCheck.exe /unattended REPORT-FOLDER [PRODUCT-FOLDER [SECTION...]]
// Files of PRODUCT-FOLDER replace those of the family edition, and those of its subfolder "general" the
// general edition's; "" = no replacement. The exit code is 0 when the report was written, and 2 when nothing
// was checked, because another check runs or the user closed the warning about a running Tarvik.

#include <memory>

#include "lab/windows_check/folder_tree_win32.h"
#include "lab/windows_check/html_report.h"
#include "lab/windows_check/private_data_win32.h"
#include "lab/windows_check/progress_window_win32.h"
#include "lab/windows_check/running_copies_win32.h"
#include "lab/windows_check/sections_win32.h"
#include "lab/windows_check/settings_backup_win32.h"
#include "lab/windows_check/unpacking_win32.h"
#include "resources/version.h"
// After windows.h.
#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

namespace tarvik::check {
namespace {

struct CommandLine {
  bool unattended = false;
  std::wstring reportFolder;
  std::wstring productFolder;
  std::vector<std::string> sections;
};

CommandLine ReadCommandLine() {
  CommandLine result;
  int count = 0;
  wchar_t** const arguments = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  if (count > 2 && ::lstrcmpiW(arguments[1], L"/unattended") == 0) {
    result.unattended = true;
    result.reportFolder = arguments[2];
    if (count > 3) result.productFolder = arguments[3];
    for (int i = 4; i < count; ++i) result.sections.push_back(ToUtf8(arguments[i]));
  }
  ::LocalFree(static_cast<HLOCAL>(arguments));
  return result;
}

std::wstring Now(const wchar_t* dateFormat, const wchar_t* timeFormat) {
  wchar_t date[64] = {};
  wchar_t time[64] = {};
  ::GetDateFormatW(LOCALE_INVARIANT, 0, nullptr, dateFormat, date, 64);
  ::GetTimeFormatW(LOCALE_INVARIANT, 0, nullptr, timeFormat, time, 64);
  return std::wstring(date) + L" " + time;
}

/// One run of the check.
class Run {
 public:
  explicit Run(CommandLine commandLine) : commandLine_(std::move(commandLine)) {
    if (!commandLine_.unattended) window_ = std::make_unique<ProgressWindow>();
  }

  /// Runs everything; 0 when the report was written.
  int Execute() {
    if (!window_) return CheckAndWrite();
    const HANDLE thread = ::CreateThread(nullptr, 0, ThreadProcedure, this, 0, nullptr);
    if (thread == nullptr) return 1;
    window_->Run();
    ::WaitForSingleObject(thread, INFINITE);
    ::CloseHandle(thread);
    if (!reportPath_.empty()) OpenReport();
    return result_;
  }

 private:
  static DWORD WINAPI ThreadProcedure(LPVOID parameter) {
    auto& self = *static_cast<Run*>(parameter);
    self.result_ = self.CheckAndWrite();
    self.window_->End();
    return 0;
  }

  int CheckAndWrite() {
    ::CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    // A screen that is switched off or locked would break the sections about keys and pictures.
    ::SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED);
    try {
      Check();
    } catch (const std::exception& error) {
      report_.Expect("frame.section", "The check can be prepared and cleaned up", false, error.what());
    }
    const int result = WriteReport();
    ::CoUninitialize();
    return result;
  }

  void Check() {
    const TemporaryFolder folder;
    const SettingsBackup settings;
    const std::wstring& path = folder.Path();
    Show("Unpacking ...", 0, 1);
    UnpackEverything(path);
    if (!commandLine_.productFolder.empty()) {
      CopyFolder(commandLine_.productFolder, path + L"\\family");
      CopyFolder(commandLine_.productFolder + L"\\general", path + L"\\general");
    }
    std::string section;
    int done = 0;
    int total = 0;
    Kit kit{report_,
            path,
            path + L"\\family\\Tarvik.exe",
            path + L"\\general\\Tarvik.exe",
            path + L"\\bench",
            path + L"\\window_driver.exe",
            commandLine_.unattended,
            true,
            [&](const std::string& text) { Show(section + ": " + text, done, total); },
            [this](const std::string& question) { return window_ && window_->Ask(question); }};
    if (!CanStart(kit)) return;
    RunSections(kit, commandLine_.sections, [&](const std::string& title, int index, int count) {
      section = title;
      done = index;
      total = count;
      Show(section, done, total);
    });
  }

  void Show(const std::string& text, int done, int total) {
    constexpr char kPlease[] =
        "\n\nPlease leave keyboard and mouse alone for about ten minutes, until the report opens.";
    if (window_) window_->Show(text + kPlease, done, total);
  }

  int WriteReport() {
    const std::string heading = "Tarvik " TARVIK_VERSION_TEXT ", " + ToUtf8(Now(L"yyyy-MM-dd", L"HH:mm"));
    const std::string html = HtmlReport(report_.Items(), MaskOfThisPc(), heading);
    try {
      if (commandLine_.unattended) {
        WriteBytes(commandLine_.reportFolder + L"\\WindowsCheck.html", html);
        return 0;
      }
      const std::wstring name = L"\\WindowsCheck " + Now(L"yyyy-MM-dd", L"HH.mm") + L".html";
      reportPath_ = WriteForUser(name, html);
      return 0;
    } catch (const std::exception& error) {
      if (window_) ::MessageBoxW(nullptr, FromUtf8(error.what()).c_str(), L"Windows check", MB_ICONERROR);
      return 1;
    }
  }

  /// Writes the report next to the program, or to the desktop when that folder is read-only or temporary, as
  /// when the check was started inside a zip file.
  static std::wstring WriteForUser(const std::wstring& name, const std::string& html) {
    wchar_t desktop[MAX_PATH] = {};
    ::SHGetFolderPathW(nullptr, CSIDL_DESKTOPDIRECTORY, nullptr, 0, desktop);
    if (!IsTemporary(OwnFolder())) {
      try {
        WriteBytes(OwnFolder() + name, html);
        return OwnFolder() + name;
      } catch (const CheckError&) {
      }
    }
    WriteBytes(desktop + name, html);
    return desktop + name;
  }

  void OpenReport() const {
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    constexpr INT_PTR kLargestError = 32;
    const HINSTANCE result =
        ::ShellExecuteW(nullptr, L"open", reportPath_.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    if (reinterpret_cast<INT_PTR>(result) <= kLargestError)
      ::MessageBoxW(nullptr, (L"The report is here:\n\n" + reportPath_).c_str(), L"Windows check", MB_OK);
    ::CoUninitialize();
  }

  CommandLine commandLine_;
  std::unique_ptr<ProgressWindow> window_;
  Report report_;
  std::wstring reportPath_;  ///< set when the user is to see it
  int result_ = 1;
};

}  // namespace
}  // namespace tarvik::check

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  using namespace tarvik::check;
  // Programs that the check starts inherit this: Windows shows no box about a library that it rejects.
  ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
  try {
    const CommandLine commandLine = ReadCommandLine();
    const OnlyCheck onlyCheck;
    if (!onlyCheck.IsOnly()) {
      if (!commandLine.unattended)
        ::MessageBoxW(nullptr, L"The Windows check is running already.", L"Windows check", MB_ICONWARNING);
      return 2;
    }
    if (!commandLine.unattended && !UserHasClosedTarvik()) return 2;
    return Run(commandLine).Execute();
  } catch (const std::exception&) {
    return 1;
  }
}
