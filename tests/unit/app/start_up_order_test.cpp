// The order of the start-up and shut-down steps, read from one journal of all library calls and window
// changes.

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "tests/failures/failing_program.h"

namespace tarvik::test {
namespace {

using Events = std::vector<std::string>;

/// A program whose libraries, message boxes, windows and controls all write to one journal. Consecutive equal
/// entries count as one, and everything a run does is the single entry "run".
class JournalledProgram {
 public:
  JournalledProgram() {
    plan_.Begin({});
    plan_.onCall = [this](const std::string& call) {
      if (call == "GetPrivateProfileStringA") return Note("texts");
      // Details of steps that have an entry already: text conversion, module search, window creation.
      constexpr std::array<std::string_view, 12> kIgnoredCalls = {"MultiByteToWideChar",
                                                                  "MultiByteToWideChar of a language file",
                                                                  "WideCharToMultiByte",
                                                                  "SearchPathW",
                                                                  "GetFileVersionInfoSizeW",
                                                                  "GetFileVersionInfoW",
                                                                  "VerQueryValueW",
                                                                  "CreateWindow",
                                                                  "SetWindowText",
                                                                  "CB_INSERTSTRING",
                                                                  "LB_ADDSTRING",
                                                                  "GetVersionExA"};
      if (std::find(kIgnoredCalls.begin(), kIgnoredCalls.end(), call) == kIgnoredCalls.end()) Note(call);
    };
    program.kernel.onSearch = [this] { Note("search " + program.kernel.searched.back()); };
    program.boxes.onShow = [this] { Note("box"); };
    program.form.beforeText = [this](const ui::Element& element) { Note(TextOf(element)); };
    program.pump.onEvents = [this] {
      program.pump.stop = program.flags.stopRequested;
      Note("events");
    };
  }

  void Note(const std::string& event) {
    if (!program.form1) return;
    NoteChanges();
    const std::string entry = program.flags.busy ? "run" : event;
    if (entry.empty() || (!journal_.empty() && journal_.back() == entry)) return;
    journal_.push_back(entry);
    if (onEntry) onEntry(entry);
  }

  /// Returns the journal and clears it.
  Events Take() {
    Note("");
    return std::exchange(journal_, {});
  }

  std::function<void(const std::string& entry)> onEntry;

 private:
  // Declared before the program, whose windows write to the journal until they are destroyed.
  FailurePlan plan_;
  Events journal_;
  Events noted_;

 public:
  FailingProgram program{plan_};

 private:
  /// Adds an entry for each of these states that has become true. Each is added only once.
  void NoteChanges() {
    const std::array<std::pair<const char*, bool>, 11> states = {{
        {"PMC command hidden", !program.form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Visible()},
        {"bit 0x20", program.form1->TestOptionMask(kFamilyMode)},
        {"bits of the command line", program.form1->TestOptionMask(kClearPasswords)},
        {"passwords in clear",
         !program.Box(ID_txtAccessCode).PasswordMask() && !program.Box(ID_txtFtpPasswd).PasswordMask()},
        {"K7 pages off", !program.Tabs().PageOn(2) && !program.Tabs().PageOn(3)},
        {"first address current", !program.Address().Text().empty()},
        {"topmost", program.form.topmost},
        {"Ftp page in front", program.Tabs().FrontPage() == 4},
        {"shown", program.form.Visible()},
        {"focus on Ping", program.form.Focus() == &program.Button(ID_cmdPing)},
        {"list extent", program.List().horizontalExtent != 0},
    }};
    for (const auto& [name, holds] : states) {
      if (!holds || std::find(noted_.begin(), noted_.end(), name) != noted_.end()) continue;
      noted_.emplace_back(name);
      journal_.emplace_back(name);
    }
  }

  std::string TextOf(const ui::Element& element) {
    // cmdPing has no entry: restoring its caption after a run is not a step of start-up.
    constexpr std::array<std::pair<int, const char*>, 11> kNamed = {{{ID_cmdPing, ""},
                                                                     {ID_lstResult, "line"},
                                                                     {ID_cmbIPAddr, "address"},
                                                                     {ID_txtPingReqCount, "ping count"},
                                                                     {ID_txtTcpPortNo, "port"},
                                                                     {ID_txtNxlibTimeOut, "time-out"},
                                                                     {ID_txtAccessCode, "access code"},
                                                                     {ID_txtFtpUsername, "FTP user"},
                                                                     {ID_txtFtpPasswd, "FTP password"},
                                                                     {ID_lblK7ServerStatus, "K7 state"},
                                                                     {ID_lblK7UdpPortNo, "K7 port"}}};
    for (const auto& [id, name] : kNamed)
      if (program.form.Has(id) && &element == &program.form.Get<ui::Element>(id)) return name;
    return "texts";
  }
};

/// Every option, an address and an access code.
constexpr wchar_t kWholeCommandLine[] =
    L"-X 75 -LOCALEID 1033 -PING_N 1 -TCP_PORT 9000 -NXLIB_TMOUT 3 -FTP_USER anna -FTP_PASSWD code "
    L"10.9.8.7;code";

/// One entry per line, so that GoogleTest shows a difference as a line diff.
std::string InLines(const std::vector<Events>& parts) {
  std::string lines;
  for (const Events& part : parts)
    for (const std::string& event : part) lines += event + "\n";
  return lines;
}

// The steps that both editions share

const Events kSockets = {"Exists",  // the language file
                         "WSAStartup", "line", "IcmpCreateFile"};
const Events kCommandLine = {"bits of the command line",
                             "Exists",  // the language file of its locale id
                             "passwords in clear",
                             "texts",
                             "search NxLib32.dll",
                             "search NxLibe1.dll"};
const Events kFromHistoryOn = {"Read of a setting", "address", "Read of a setting", "address",
                               "Read of a setting", "first address current", "ping count", "port", "time-out",
                               "topmost",
                               // the target of the command line
                               "address",
                               // bit 2
                               "events", "TxDecd", "access code",
                               // bit 8
                               "Ftp page in front", "events", "FTP user", "TxDecd", "FTP password",
                               // the auto-run
                               "shown", "events", "focus on Ping", "run", "list extent"};

TEST(StartUpOrder, The_family_edition_runs_its_steps_in_this_order) {
  JournalledProgram journal;
  journal.program.Start(kWholeCommandLine, true);
  EXPECT_EQ(InLines({journal.Take()}),
            InLines({{"PMC command hidden", "LoadLibrary of ObryConfIO", "Initialize", "GetLanguage",
                      "Terminate", "GetCommonDataFolder2"},
                     kSockets,
                     {"bit 0x20"},
                     kCommandLine,
                     {"search SvcKit.dll", "search Wininet.dll", "K7 pages off"},
                     kFromHistoryOn}));
}

TEST(StartUpOrder, The_general_edition_runs_its_steps_in_this_order) {
  JournalledProgram journal;
  journal.program.Start(kWholeCommandLine, false);
  EXPECT_EQ(InLines({journal.Take()}),
            InLines({{"PMC command hidden"},
                     kSockets,
                     kCommandLine,
                     {"search k7api.dll", "search SvcKit.dll", "search Wininet.dll"},
                     // the service utility, then the status query
                     {"search SvcKit.DLL", "QSetup_GetServiceStatus", "K7 state", "events"},
                     kFromHistoryOn,
                     {"Read of a file", "K7 port"}}));  // the services file
}

TEST(StartUpOrder, The_design_size_is_recorded_before_the_first_library_call) {
  FailurePlan plan;
  FailingProgram program(plan);
  program.configuration.folderResult = 1;
  // The user enlarges the window under the box of the configuration library.
  program.boxes.onShow = [&] {
    const ui::Size window = program.form.WindowSize();
    const ui::Rect list = program.List().Bounds();
    program.form.SetWindowSize({window.width + 70, window.height + 50});
    EXPECT_EQ(program.List().Bounds(), (ui::Rect{list.x, list.y, list.width + 70, list.height + 50}));
  };
  program.Start(L"", true);
  EXPECT_EQ(program.boxes.boxes.size(), 1U);
}

/// Closes a main window with an open PMC window and an about box that was never opened.
class ShutDownOrder : public testing::Test {
 protected:
  Events Close(bool familyEdition) {
    FailingProgram& program = journal_.program;
    program.Start(L"", familyEdition);
    program.form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Click();
    journal_.Take();
    // Two releases make no call, so provoke one. A service query answers only while the service utility
    // exists. A window that was open before reads its texts from the file again only after they have been
    // released.
    journal_.onEntry = [&](const std::string& entry) {
      if (entry == "Write of a setting" || entry == "create frmAbout")
        program.Label(ID_lblK7ServerStatus).Click();
    };
    program.onCreate = [&](const std::wstring& window) { journal_.Note("create " + NarrowAscii(window)); };
    program.onDestroy = [&](const std::wstring& window) {
      journal_.Note("destroy " + NarrowAscii(window));
      if (window == L"frmPmcTest") program.form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
    };
    EXPECT_TRUE(program.form.Close());
    program.onDestroy = nullptr;
    journal_.Note("closed");
    program.form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Click();
    return journal_.Take();
  }

  /// Destroying the main window shows no box, because the service utility was terminated before.
  void TearDown() override {
    journal_.program.form1.reset();
    EXPECT_TRUE(journal_.program.boxes.boxes.empty());
  }

  const Events kFromAboutBoxOn = {"create frmAbout", "texts", "destroy frmAbout", "destroy frmPmcTest",
                                  // a second box reads no texts: they are still loaded
                                  "create frmAbout", "closed",
                                  // a second PMC window does: they have been released
                                  "create frmPmcTest", "texts"};

 private:
  JournalledProgram journal_;
};

TEST_F(ShutDownOrder, The_family_edition_releases_everything_in_this_order) {
  EXPECT_EQ(InLines({Close(true)}),
            InLines({{"IcmpCloseHandle", "WSACleanup", "Write of a setting"}, kFromAboutBoxOn}));
}

TEST_F(ShutDownOrder, The_general_edition_releases_the_service_utility_after_saving_the_history) {
  EXPECT_EQ(InLines({Close(false)}),
            InLines({{"IcmpCloseHandle", "WSACleanup", "Write of a setting"},
                     {"QSetup_GetServiceStatus", "K7 state", "events"},  // provoked
                     // the second address; after it the service utility no longer answers
                     {"Write of a setting", "QSetup_GetServiceStatus", "K7 state", "events"},
                     kFromAboutBoxOn}));
}

}  // namespace
}  // namespace tarvik::test
