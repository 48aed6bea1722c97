#include <algorithm>

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {
namespace {

constexpr int kStartTimeOutMs = 60000;
constexpr int kEndTimeOutMs = 15000;

std::wstring Variable(const wchar_t* name) {
  std::wstring value(32767, L'\0');
  value.resize(::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

/// This process' environment with the given variables set, as CreateProcess expects it.
std::wstring EnvironmentBlock(const std::map<std::wstring, std::wstring>& more) {
  std::wstring block;
  const auto isReplaced = [&more](const std::wstring& entry) {
    return std::any_of(more.begin(), more.end(), [&entry](const auto& variable) {
      const size_t length = variable.first.size();
      return entry.size() > length && entry[length] == L'=' &&
             ::lstrcmpiW(entry.substr(0, length).c_str(), variable.first.c_str()) == 0;
    });
  };
  wchar_t* const own = ::GetEnvironmentStringsW();
  for (const wchar_t* next = own; *next != L'\0';) {
    const std::wstring entry = next;
    if (!isReplaced(entry)) block += entry + L'\0';
    next += entry.size() + 1;
  }
  ::FreeEnvironmentStringsW(own);
  for (const auto& [name, value] : more) block.append(name).append(L"=").append(value) += L'\0';
  return block + L'\0';
}

/// Whether the text can be written in the system's code page.
bool IsAnsi(const std::wstring& text) {
  BOOL lossy = FALSE;
  ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.c_str(), -1, nullptr, 0, nullptr, &lossy);
  return !lossy;
}

/// The path with names of 8.3 letters, which are always ANSI: the bench's configuration library reports its
/// folder as ANSI text, and the user's name may have other letters.
std::wstring ShortForm(const std::wstring& path) {
  std::wstring shortPath(32767, L'\0');
  shortPath.resize(::GetShortPathNameW(path.c_str(), shortPath.data(), static_cast<DWORD>(shortPath.size())));
  return shortPath;
}

struct ControlSearch {
  int id = 0;
  HWND found = nullptr;
};

BOOL CALLBACK CompareControl(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<ControlSearch*>(parameter);
  if (::GetDlgCtrlID(window) != search.id) return TRUE;
  search.found = window;
  return FALSE;
}

/// Whether the lines show that a run has begun. Until it clears the list, that shows the start-up report.
bool HasBegun(const std::vector<std::string>* before, const std::vector<std::string>& lines) {
  if (before == nullptr) return lines.empty() || lines.front().rfind("szDescription:", 0) != 0;
  // A test that has only written its title may not have disabled the window yet and would look finished.
  const bool onlyTitle = !lines.empty() && lines.back().size() > 3 &&
                         lines.back().compare(lines.back().size() - 3, 3, "...") == 0;
  return lines != *before && !onlyTitle;
}

}  // namespace

RunningProduct::RunningProduct(const Kit& kit, Driver& driver, const StartOptions& options)
    : driver_(driver) {
  const std::wstring& edition = options.edition == Edition::Family ? kit.product : kit.general;
  const std::wstring program = options.program.empty() ? edition : options.program;
  std::wstring commandLine = L"\"" + program + L"\"";
  if (!options.arguments.empty()) commandLine += L" " + options.arguments;
  const std::wstring folder =
      options.currentFolder.empty() ? program.substr(0, program.rfind(L'\\')) : options.currentFolder;
  std::map<std::wstring, std::wstring> variables = options.environment;
  if (options.withBench) {
    variables[L"PATH"] = kit.bench + L";" + Variable(L"PATH");
    if (!IsAnsi(folder)) variables[L"TARVIK_BENCH_FOLDER"] = ShortForm(folder);
  }
  std::wstring environment = EnvironmentBlock(variables);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION information{};
  if (!::CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE,
                        CREATE_UNICODE_ENVIRONMENT, environment.data(), folder.c_str(), &startup,
                        &information))
    ThrowStartError("the product", ::GetLastError());
  ::CloseHandle(information.hThread);
  process_ = information.hProcess;
  EndWithThisCheck(process_);
  id_ = information.dwProcessId;
  driver_.Ask("adopt", id_);
}

RunningProduct::~RunningProduct() {
  Kill();
  ::CloseHandle(process_);
}

bool RunningProduct::Runs() const { return ::WaitForSingleObject(process_, 0) == WAIT_TIMEOUT; }

HWND RunningProduct::WaitForMainWindow() {
  const bool visible = WaitUntil(kStartTimeOutMs, [this] {
    AnswerBoxes();
    if (!Runs()) throw CheckError("the product ended before its window appeared");
    return driver_.Ask("has_window", id_, "Form1").at(0) == "1";
  });
  if (!visible) throw CheckError("the product's window does not appear");
  const std::string handle = driver_.Ask("wait_window", id_, "Form1", kStartTimeOutMs).at(0);
  window_ = reinterpret_cast<HWND>(static_cast<intptr_t>(std::stoll(handle)));
  // The controls of hidden pages are created shortly after the window appears; this one is the last.
  Ask("state", ID_cmdAllFtpTest);
  return window_;
}

bool RunningProduct::AnswerBoxes() {
  bool answered = false;
  for (; driver_.Ask("has_window", id_, "#32770").at(0) == "1"; answered = true) {
    const Fields box = driver_.Ask("wait_box", id_, kStartTimeOutMs);
    boxes_.push_back(box.at(1) + ": " + box.at(2));
    driver_.Ask("answer_box", box.at(0), IDOK, kStartTimeOutMs);
  }
  return answered;
}

HWND RunningProduct::Control(int id) const {
  HWND& control = controls_[id];
  if (!::IsChild(window_, control)) {
    ControlSearch search{id, nullptr};
    ::EnumChildWindows(window_, CompareControl, reinterpret_cast<LPARAM>(&search));
    control = search.found;
  }
  return control;
}

void RunningProduct::SelectPage(int index) { Ask("select_tab", ID_tabMode, index, kStartTimeOutMs); }

bool RunningProduct::RunIsActive() {
  const std::string caption = Ask("text", ID_cmdPing).at(0);
  return caption == "&Stop" || caption == "停止(&S)";
}

std::vector<std::string> RunningProduct::FollowRun(int timeOutMs) { return Follow(nullptr, timeOutMs); }

std::vector<std::string> RunningProduct::ClickAndFollow(int button, int timeOutMs) {
  const std::vector<std::string> before = Lines();
  Ask("click", button, "");
  return Follow(&before, timeOutMs);
}

std::vector<std::string> RunningProduct::Follow(const std::vector<std::string>* before, int timeOutMs) {
  bool begun = false;
  const bool ended = WaitUntil(timeOutMs, [&] {
    if (!Runs()) throw CheckError("the product ended during a run");
    if (AnswerBoxes() && before != nullptr) begun = true;
    try {
      begun = begun || RunIsActive() || HasBegun(before, Lines());
      return begun && !RunIsActive() && ::IsWindowEnabled(window_) != FALSE &&
             driver_.Ask("has_window", id_, "#32770").at(0) == "0";
    } catch (const CheckError&) {
      if (!Runs()) throw;
      return false;  // a library call blocks the window
    }
  });
  if (!ended) throw CheckError(begun ? "the run does not end" : "the run does not begin");
  return Lines();
}

DWORD RunningProduct::Close() {
  driver_.Ask("close", window_);
  if (!WaitUntil(kEndTimeOutMs, [this] { return !Runs(); })) throw CheckError("the product does not end");
  DWORD code = 0;
  ::GetExitCodeProcess(process_, &code);
  return code;
}

void RunningProduct::Kill() {
  if (Runs()) ::TerminateProcess(process_, 1);
  ::WaitForSingleObject(process_, 5000);
}

}  // namespace tarvik::check
