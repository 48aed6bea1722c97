// The product's Ftp page against a small FTP server inside this check: what it shows, how long that takes,
// and what Windows' internet library sends. The times are the library's; the laboratory's differs.

#include <algorithm>
#include <memory>

#include "lab/windows_check/ftp_server_win32.h"
#include "lab/windows_check/kit_win32.h"
#include "lab/windows_check/windows_facts_win32.h"

namespace tarvik::check {
namespace {

using FtpTexts = std::vector<std::string>;

constexpr int kFtpPage = 2;  // of the visible pages of the family's edition
constexpr int kFtpTestMs = 60000;
constexpr ULONGLONG kBegunMs = 5000;
/// A test writes an empty line and its title before it disables the window, and at least one line after that.
constexpr LRESULT kLinesOfShortestTest = 3;
constexpr char kFtpTitle[] = "FTP Connect test...";
constexpr char kFtpRule[] = "---------------------------------------------";

/// What a test showed.
struct FtpOutcome {
  bool ended = false;
  int limitMs = 0;
  ULONGLONG durationMs = 0;
  ULONGLONG hungAfterMs = 0;  ///< when Windows first called the window hung; 0 = never
  FtpTexts lines;             ///< after the title, and the message boxes

  bool Shows(const std::string& line) const { return std::count(lines.begin(), lines.end(), line) != 0; }
  std::string Text() const {
    std::string text = ended ? "ended after " + std::to_string(durationMs) + " ms"
                             : "not over after " + std::to_string(limitMs) + " ms, and ended by this check";
    if (hungAfterMs != 0) text += "; hung for Windows after " + std::to_string(hungAfterMs) + " ms";
    for (const std::string& line : lines) text += "\n" + line;
    return text;
  }
};

/// The product on its Ftp page.
class FtpPage {
 public:
  explicit FtpPage(const Kit& kit)
      : driver_(kit), product_(kit, driver_), window_(product_.WaitForMainWindow()) {
    product_.SelectPage(kFtpPage);
  }

  /// Clicks "Connect Test". After a test that is not over in time the window stays blocked.
  FtpOutcome Test(const std::string& address, int limitMs) {
    product_.Ask("set_text", ID_cmbIPAddr, address);
    product_.Ask("set_text", ID_txtFtpUsername, "cnc");
    product_.Ask("set_text", ID_txtFtpPasswd, "secret");
    FtpOutcome outcome;
    outcome.limitMs = limitMs;
    FtpTexts boxes;
    bool begun = false;
    const LRESULT before = LineCount();
    ULONGLONG begin = ::GetTickCount64();
    product_.Ask("click", ID_cmdFtpConnect, "");
    outcome.ended = WaitUntil(limitMs, [&] {
      if (!product_.Runs()) throw CheckError("the product ended during an FTP test");
      AnswerBox(boxes);
      outcome.durationMs = ::GetTickCount64() - begin;
      if (outcome.hungAfterMs == 0 && ::IsHungAppWindow(window_)) outcome.hungAfterMs = outcome.durationMs;
      begun = begun || !::IsWindowEnabled(window_) || !boxes.empty() ||
              LineCount() >= before + kLinesOfShortestTest;
      if (!begun && outcome.durationMs > kBegunMs) {
        // The program ignores a click that arrives while the last lines of the previous test are written.
        begin = ::GetTickCount64();
        product_.Ask("click", ID_cmdFtpConnect, "");
      }
      if (!begun || !::IsWindowEnabled(window_)) return false;
      // When the window is enabled again, the run may still be active: the Ping button reads "Stop". After
      // that caption is restored, the window answers only when it is at rest or shows an error box.
      return LineCount() > 0 && !RunIsActive() && !AnswerBox(boxes) && ::IsWindowEnabled(window_);
    });
    if (!outcome.ended) return outcome;
    const FtpTexts lines = product_.Lines();
    outcome.lines.assign(std::find(lines.rbegin(), lines.rend(), kFtpTitle).base(), lines.end());
    for (const std::string& box : boxes) outcome.lines.push_back("[message box: " + box + "]");
    return outcome;
  }

 private:
  /// 0 while a call of the library blocks the window.
  LRESULT LineCount() const {
    constexpr UINT kPatienceMs = 50;
    DWORD_PTR count = 0;
    ::SendMessageTimeoutW(product_.Control(ID_lstResult), LB_GETCOUNT, 0, 0, SMTO_NORMAL, kPatienceMs,
                          &count);
    return static_cast<LRESULT>(count);
  }

  bool RunIsActive() {
    try {
      return product_.RunIsActive();
    } catch (const CheckError&) {
      if (!product_.Runs()) throw;
      return true;  // blocked by a call of the library
    }
  }

  /// False when there is no message box.
  bool AnswerBox(FtpTexts& boxes) {
    if (driver_.Ask("has_window", product_.Id(), "#32770").at(0) != "1") return false;
    try {
      const FtpTexts box = driver_.Ask("wait_box", product_.Id(), kFtpTestMs);
      driver_.Ask("answer_box", box.at(0), IDOK, kFtpTestMs);
      boxes.push_back(box.at(2));
    } catch (const CheckError&) {
      // A box that is being destroyed no longer answers; the next poll sees whether it is gone.
      if (!product_.Runs()) throw;
    }
    return true;
  }

  Driver driver_;
  RunningProduct product_;
  const HWND window_;
};

/// A line of the listing.
std::string FtpEntry(const std::string& name, const std::string& size) {
  return name + std::string(35 - name.size(), ' ') + std::string(10 - size.size(), ' ') + size;
}

const FtpTexts& SortedEntries() {
  static const FtpTexts entries = {FtpEntry("/PROGRAMS", ""), FtpEntry("A.TXT", "3"),
                                   FtpEntry("O1000.NC", "12345")};
  return entries;
}

/// Whether the sorted entries follow the header.
bool ListsEverything(const FtpOutcome& outcome) {
  const FtpTexts& lines = outcome.lines;
  const auto rule = std::find(lines.begin(), lines.end(), kFtpRule);
  const FtpTexts& entries = SortedEntries();
  if (static_cast<size_t>(lines.end() - rule) <= entries.size()) return false;
  return std::equal(entries.begin(), entries.end(), rule + 1);
}

bool HasFtpPrefix(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

bool HasCommand(const FtpTexts& commands, const std::string& verb) {
  return std::any_of(commands.begin(), commands.end(),
                     [&verb](const std::string& command) { return HasFtpPrefix(command + " ", verb + " "); });
}

/// A server that is as it should be, and then is gone. Returns its address.
std::string CheckHealthyServer(Report& report, FtpPage& page) {
  const FtpServer server({});
  const FtpOutcome outcome = page.Test(server.Address(), kFtpTestMs);
  report.Expect("ftp.listing", "The product lists a server's directory, sorted", ListsEverything(outcome),
                outcome.Text());
  const FtpTexts commands = server.Commands();
  report.Expect("ftp.active_mode", "The server opens the data connection (active FTP)",
                (HasCommand(commands, "PORT") || HasCommand(commands, "EPRT")) &&
                    !HasCommand(commands, "PASV") && !HasCommand(commands, "EPSV"),
                server.Log());
  constexpr int kClosingMs = 5000;
  const bool closed = WaitUntil(kClosingMs, [&] { return server.OpenConnections() == 0; });
  report.Expect("ftp.connection_closed", "After a test no connection to the server stays open",
                closed && !commands.empty(), server.Log());
  report.Observe("ftp.commands", "What Windows sends for a login and a listing", server.Log());
  return server.Address();
}

void CheckAnswers(Report& report, FtpPage& page, int delayMs) {
  const std::string unused = CheckHealthyServer(report, page);
  FtpOutcome outcome = page.Test(unused, kFtpTestMs);
  report.Expect("ftp.no_server", "Without a server, \"Cannot connect ...\" and no earlier reply is shown",
                outcome.lines == FtpTexts{"Cannot connect ..."}, outcome.Text());
  {
    FtpBehaviour rejecting;
    rejecting.login = "530 Login incorrect.";
    const FtpServer server(rejecting);
    outcome = page.Test(server.Address(), kFtpTestMs);
    report.Expect("ftp.rejected_login", "A rejected login shows the server's reply and no listing",
                  outcome.Shows("530 Login incorrect.") && !outcome.Shows(kFtpRule), outcome.Text());
  }
  {
    FtpBehaviour slow;
    slow.answerDelayMs = delayMs;
    const FtpServer server(slow);
    outcome = page.Test(server.Address(), kFtpTestMs);
    report.Expect("ftp.late_answer", "A listing that is announced late is shown", ListsEverything(outcome),
                  outcome.Text());
  }
  FtpBehaviour slow;
  slow.dataDelayMs = delayMs;
  const FtpServer server(slow);
  outcome = page.Test(server.Address(), kFtpTestMs);
  report.Expect("ftp.late_data", "A data connection that opens late is waited for", ListsEverything(outcome),
                outcome.Text());
}

struct ObservedFault {
  const char* id;
  const char* title;
  FtpBehaviour behaviour;
};

std::vector<ObservedFault> ObservedFaults() {
  constexpr bool kSilent = true;
  constexpr char kLogin[] = "230 logged in";
  constexpr char kAnnounced[] = "150 Here comes the directory listing.";
  return {
      {"ftp.refused_listing",
       "The server refuses the listing",
       {!kSilent, kLogin, "501 No arguments allowed."}},
      {"ftp.refused_data",
       "The server cannot open the data connection",
       {!kSilent, kLogin, "425 Failed to establish connection."}},
      {"ftp.cut_listing",
       "The data connection is cut in the middle of the listing",
       {!kSilent, kLogin, kAnnounced, 0, FtpBehaviour::Data::Cut}},
      {"ftp.silent_server", "The server accepts the connection and says nothing", {kSilent}},
      {"ftp.unanswered_listing",
       "The server does not answer the command for the listing",
       {!kSilent, kLogin, ""}},
      {"ftp.dropped_data",
       "The listing is announced and the data connection never opens",
       {!kSilent, kLogin, kAnnounced, 0, FtpBehaviour::Data::Never}},
  };
}

}  // namespace

void CheckFtp(Kit& kit) {
  if (HasFtpProxy()) {
    kit.report.Observe("ftp.proxy", "This PC has a proxy, so FTP was not checked", {});
    return;
  }
  try {
    const FtpServer probe({});
  } catch (const CheckError& error) {
    kit.report.Observe("ftp.no_port", "An FTP server on this PC is in the way, so FTP cannot be checked",
                       error.what());
    return;
  }
  const int delayMs = kit.unattended ? 4000 : 5000;
  const int limitMs = kit.unattended ? 4000 : 45000;
  auto page = std::make_unique<FtpPage>(kit);
  kit.progress("a server on this PC");
  CheckAnswers(kit.report, *page, delayMs);
  for (const auto& [id, title, behaviour] : ObservedFaults()) {
    kit.progress(title);
    if (!page) page = std::make_unique<FtpPage>(kit);
    const FtpServer server(behaviour);
    const FtpOutcome outcome = page->Test(server.Address(), limitMs);
    kit.report.Observe(id, title, outcome.Text() + "\n\nat the server:\n" + server.Log());
    // Its window stays blocked.
    if (!outcome.ended) page.reset();
  }
}

}  // namespace tarvik::check
