// The Windows check under Wine: its verdicts on the product as it is, and on products with a planted fault.

#include "tests/windows/windows_check_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kSettings[] = "Software\\NORVAX_FN_PingUtil\\History";
constexpr char kBackup[] = "Software\\Tarvik WindowsCheck backup";
constexpr char kSavedHistory[] = "Software\\Tarvik WindowsCheck backup\\Settings\\History";
constexpr uint32_t kNothingChecked = 2;

struct Expected {
  const char* id;
  const char* verdict;
};

constexpr Expected kExpected[] = {
    {"blocking.ghost", "pass"},
    {"blocking.hung", "observed"},
    {"blocking.second_run", "pass"},
    {"blocking.stop", "pass"},
    {"ftp.active_mode", "pass"},
    {"ftp.commands", "observed"},
    {"ftp.connection_closed", "pass"},
    {"ftp.cut_listing", "observed"},
    {"ftp.dropped_data", "observed"},
    {"ftp.late_answer", "pass"},
    {"ftp.late_data", "pass"},
    {"ftp.listing", "pass"},
    {"ftp.no_server", "pass"},
    {"ftp.refused_data", "observed"},
    {"ftp.refused_listing", "observed"},
    {"ftp.rejected_login", "pass"},
    {"ftp.silent_server", "observed"},
    {"ftp.unanswered_listing", "observed"},
    {"ground.adapters", "observed"},
    {"ground.closed_libraries", "observed"},
    {"ground.code_pages", "observed"},
    {"ground.elevation", "observed"},
    {"ground.firewall", "observed"},
    {"ground.languages", "observed"},
    {"ground.monitors", "observed"},
    {"ground.proxy", "observed"},
    {"ground.smart_app_control", "observed"},
    {"ground.theme", "observed"},
    {"ground.windows", "observed"},
    {"hands.access_keys_en", "pass"},
    {"hands.access_keys_ja", "pass"},
    {"hands.access_keys_unique_en", "pass"},
    {"hands.access_keys_unique_ja", "pass"},
    {"hands.enter", "pass"},
    {"hands.escape", "pass"},
    {"hands.escape_idle", "pass"},
    {"hands.full_width", "pass"},
    {"hands.full_width_count", "observed"},
    {"hands.input_method", "pass"},
    {"hands.names_en", "pass"},
    {"hands.names_ja", "pass"},
    {"hands.roles_en", "pass"},
    {"hands.roles_ja", "pass"},
    {"hands.tab_order_family", "pass"},
    {"hands.tab_order_general", "pass"},
    {"looks.background_en", "pass"},
    {"looks.background_ja", "pass"},
    {"looks.font_en", "pass"},
    {"looks.font_ja", "pass"},
    {"looks.page_1_en", "observed"},
    {"looks.page_1_ja", "observed"},
    {"looks.page_2_en", "observed"},
    {"looks.page_2_ja", "observed"},
    {"looks.page_3_en", "observed"},
    {"looks.page_3_ja", "observed"},
    {"looks.page_4_en", "observed"},
    {"looks.page_4_ja", "observed"},
    {"looks.page_5_en", "observed"},
    {"looks.page_5_ja", "observed"},
    {"looks.places_en", "pass"},
    {"looks.places_ja", "pass"},
    {"looks.scaling", "pass"},
    {"looks.texts_en", "pass"},
    {"looks.texts_ja", "pass"},
    {"looks.work_area_en", "pass"},
    {"looks.work_area_ja", "pass"},
    {"network.echo_loopback", "observed"},
    {"network.interfaces", "observed"},
    {"network.no_address", "observed"},
    {"rights.clipboard", "pass"},
    {"rights.clipboard_briefly", "pass"},
    {"rights.clipboard_held", "pass"},
    {"rights.exit_code", "pass"},
    {"rights.folder_letters", "pass"},
    {"rights.folder_long", "pass"},
    {"rights.folder_read_only", "observed"},
    {"rights.folder_unchanged", "pass"},
    {"rights.handles", "pass"},
    {"rights.ordinary_user", "pass"},
    {"rights.session_accepted", "pass"},
    {"rights.session_end", "pass"},
    {"rights.session_reason", "observed"},
    {"rights.session_refused", "pass"},
    {"start.common_controls", "pass"},
    {"start.dpi_awareness", "pass"},
    {"start.exit_code", "pass"},
    {"start.header_protection", "pass"},
    {"start.header_version", "pass"},
    {"start.lines", "observed"},
    {"start.manifest", "pass"},
    {"start.mitigations", "observed"},
    {"start.modules", "observed"},
    {"start.no_message", "pass"},
    {"start.planted_beside_program", "pass"},
    {"start.planted_in_current_folder", "pass"},
    {"start.rights", "observed"},
    {"start.terminal_server", "pass"},
    {"start.time", "observed"},
    {"start.without_libraries", "observed"},
};

/// The 16-bit number at this offset of the program's optional header.
void SetHeaderNumber(const std::string& folder, size_t offset, uint16_t number) {
  constexpr size_t kHeaderOffset = 0x3C;
  constexpr size_t kOptionalHeader = 24;
  std::fstream file(folder + "/Tarvik.exe", std::ios::binary | std::ios::in | std::ios::out);
  const auto put = [&file](size_t place, uint16_t value) {
    file.seekp(static_cast<std::streamoff>(place));
    file.put(static_cast<char>(value & 0xFF)).put(static_cast<char>(value >> 8));
  };
  file.seekg(kHeaderOffset);
  const auto low = static_cast<unsigned char>(file.get());
  const auto high = static_cast<unsigned char>(file.get());
  put((low | static_cast<size_t>(high) << 8) + kOptionalHeader + offset, number);
}

constexpr size_t kMajorSubsystemVersion = 48;
constexpr size_t kCharacteristics = 70;

/// Faults that spoil different items are planted together, because one run of a section takes long.
constexpr PlantedFault kFaults[] = {
    // Not aware of terminal servers, without DEP, unaware of scaling, without the new common controls.
    {"Header_and_manifest", "start",
     "start.header_version start.terminal_server start.header_protection start.manifest "
     "start.common_controls",
     [](const std::string& folder) {
       SetHeaderNumber(folder, kMajorSubsystemVersion, 4);
       SetHeaderNumber(folder, kCharacteristics, 0x0040);
       ReplaceBytes(folder, "PerMonitorV2, System", "unaware");
       ReplaceBytes(folder, "<dependency>", "<!--        ");
       ReplaceBytes(folder, "</dependency>", "          -->");
     }},
    {"Start", "start",
     "start.dpi_awareness start.planted_in_current_folder start.planted_beside_program start.no_message "
     "start.exit_code",
     [](const std::string& folder) {
       Sabotage(folder,
                "unaware_of_scaling search_current_folder load_from_own_folder message_at_start "
                "wrong_exit_code");
     }},
    {"Listing_call_missing", "ftp", "ftp.active_mode ftp.late_answer ftp.late_data ftp.listing",
     [](const std::string& folder) { ReplaceBytes(folder, "FtpFindFirstFileA", "FtpFindFirstFileX"); }},
    {"Only_the_first_entry_listed_and_no_reply_shown", "ftp",
     "ftp.late_answer ftp.late_data ftp.listing ftp.rejected_login",
     [](const std::string& folder) { Sabotage(folder, "ftp_first_entry_only ftp_no_reply"); }},
    // Both spoil the same call.
    {"Passive_FTP_and_reply_of_an_earlier_server", "ftp",
     "ftp.active_mode ftp.late_answer ftp.late_data ftp.listing ftp.no_server",
     [](const std::string& folder) { Sabotage(folder, "ftp_passive ftp_earlier_reply"); }},
    {"FTP_connection_left_open_and_impatient", "ftp", "ftp.connection_closed ftp.late_answer ftp.late_data",
     [](const std::string& folder) { Sabotage(folder, "ftp_left_open ftp_impatient"); }},
};

class WindowsCheck : public WindowsCheckTest<WindowsCheck> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = WindowsCheckTest::Options();
    options.themed = true;  // what is drawn is checked, too
    return options;
  }
  /// The result list has its fixed-pitch face, as on every Windows.
  static void PreparePc(WindowsPc& pc) {
    constexpr char kKey[] = "Software\\Wine\\Fonts\\Replacements";
    pc.Prefix().SetRegistryValue(WinePrefix::Hive::User, kKey, "Consolas", "\"DejaVu Sans Mono\"");
    pc.Prefix().SetRegistryValue(WinePrefix::Hive::User, kKey, "MS Gothic", "\"IPAGothic\"");
  }

 protected:
  /// A check that shows its window until it is closed.
  WindowUnderTest StartVisibleCheck() {
    const std::string program = InFolder("WindowsCheck.exe");
    std::filesystem::copy_file(CheckProgram(), program);
    StartOnly({}, program, InFolder(""));
    return Program().WaitForWindow("WindowsCheckProgress");
  }
  /// The PC has no browser, so the check says where the report is.
  void CloseVisibleCheck(const WindowUnderTest& window) {
    window.Close();
    const BoxUnderTest box = Program().WaitForBox(2 * kSoon);
    EXPECT_NE(box.text.find("The report is here:"), std::string::npos);
    EXPECT_NE(box.text.find(".html"), std::string::npos);
    Program().Answer(box, BoxButton::Ok);
    EXPECT_EQ(Program().WaitForEnd(), 0u);
  }
};

TEST_F(WindowsCheck, Has_the_expected_verdicts_about_the_product) {
  Verdicts expected;
  for (const auto& [id, verdict] : kExpected) expected[id] = verdict;
  Pc().SetClipboardText("the user's text");
  const std::string report = Check();
  EXPECT_EQ(VerdictsIn(report), expected) << report;
  // Wine hands the clipboard of a program that has ended over to another one.
  EXPECT_TRUE(WaitUntil(kSoon, [] { return Pc().ClipboardText() == "the user's text"; }));
  EXPECT_NE(report.find("src=\"data:image/png;base64,iVBOR"), std::string::npos);
  // The user is root, and the computer has this machine's name.
  EXPECT_NE(report.find("users\\\\[user]\\\\"), std::string::npos);
  EXPECT_EQ(report.find("\\\\root\\\\"), std::string::npos);
  // Some of the files had paths of more than 260 characters.
  EXPECT_EQ(Leftovers(), std::set<std::string>());
}

TEST_F(WindowsCheck, Has_all_its_items_in_its_description) {
  const std::string text = ReportIn(SourceFolder() + "/lab/windows_check/README.md");
  for (const Expected& item : kExpected) {
    // The pages and the languages share a line.
    const std::string id =
        std::regex_replace(std::string(item.id), std::regex("_(en|ja|family|general)$"), "");
    const std::string name = std::regex_replace(id, std::regex("page_[0-9]"), "page_1_en");
    EXPECT_NE(text.find("`" + name + "`"), std::string::npos) << name;
  }
}

TEST_F(WindowsCheck, Restores_the_settings_and_deletes_its_files) {
  Pc().SetRegistryText(kSettings, "01", "192.168.0.1");
  Check("start");
  EXPECT_EQ(Pc().RegistryText(kSettings, "01"), "192.168.0.1");
  EXPECT_EQ(Leftovers(), std::set<std::string>());
  Pc().DeleteRegistryKey("Software\\NORVAX_FN_PingUtil");
  Check("start");
  EXPECT_EQ(Pc().RegistryText(kSettings, "01"), std::nullopt);
}

TEST_F(WindowsCheck, Restores_the_settings_that_a_killed_check_has_saved) {
  Pc().SetRegistryText(kSettings, "01", "10.1.1.1");
  Pc().SetRegistryText(kSavedHistory, "01", "192.168.0.2");
  Pc().SetRegistryText(kBackup, "Complete", "1");
  Check("ground");
  EXPECT_EQ(Pc().RegistryText(kSettings, "01"), "192.168.0.2");
  EXPECT_EQ(Pc().RegistryText(kSavedHistory, "01"), std::nullopt);
}

TEST_F(WindowsCheck, Keeps_the_settings_when_a_check_was_killed_while_it_saved_them) {
  Pc().SetRegistryText(kSettings, "01", "192.168.0.3");
  Pc().SetRegistryText(kSavedHistory, "02", "192.168.0.4");
  Check("ground");
  EXPECT_EQ(Pc().RegistryText(kSettings, "01"), "192.168.0.3");
  EXPECT_EQ(Pc().RegistryText(kSettings, "02"), std::nullopt);
  EXPECT_EQ(Pc().RegistryText(kSavedHistory, "02"), std::nullopt);
}

TEST_F(WindowsCheck, Does_not_run_twice_at_the_same_time) {
  const WindowUnderTest window = StartVisibleCheck();
  ProgramUnderTest second(Pc(), CheckProgram(),
                          "/unattended \"" + WindowsPath(InFolder("")) + "\" \"\" ground");
  EXPECT_EQ(second.WaitForEnd(), kNothingChecked);
  CloseVisibleCheck(window);
}

TEST_F(WindowsCheck, Asks_the_user_to_close_his_own_Tarvik) {
  ProgramUnderTest own(Pc(), ProgramPath());
  Listener listener;
  listener.onBox = [](const BoxUnderTest&) {};
  const WindowUnderTest window = WaitForMainWindow(own, listener);
  ProgramUnderTest check(Pc(), CheckProgram());
  EXPECT_NE(check.WaitForBox().text.find("Tarvik is running."), std::string::npos);
  check.Answer(check.WaitForBox(), BoxButton::Cancel);
  EXPECT_EQ(check.WaitForEnd(), kNothingChecked);
  window.Settle();
  own.RequireRunning();
}

TEST_F(WindowsCheck, Leaves_FTP_out_behind_a_proxy) {
  constexpr char kInternet[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";
  Pc().SetRegistryText(kInternet, "AutoConfigURL", "http://proxy.example.com/proxy.pac");
  const std::string report = Check("ftp ground");
  Pc().SetRegistryText(kInternet, "AutoConfigURL", "");
  const Verdicts verdicts = VerdictsIn(report);
  EXPECT_EQ(verdicts.count("ftp.proxy"), 1u) << report;
  EXPECT_EQ(verdicts.count("ftp.listing"), 0u) << report;
  // Where the proxy is, is the user's business.
  EXPECT_EQ(report.find("example.com"), std::string::npos) << report;
}

TEST_F(WindowsCheck, A_product_that_does_not_end_is_ended_and_fails_its_section) {
  const std::string report =
      Check("start ground",
            Spoiled({"", "", "", [](const std::string& folder) { Sabotage(folder, "never_ends"); }}));
  EXPECT_EQ(FailedIn(report), std::set<std::string>{"start.section"}) << report;
  EXPECT_EQ(VerdictsIn(report).at("ground.windows"), "observed");
  EXPECT_EQ(Leftovers(), std::set<std::string>());
}

TEST_F(WindowsCheck, Closing_its_window_ends_the_check_early_with_a_report_beside_it) {
  const WindowUnderTest window = StartVisibleCheck();
  EXPECT_TRUE(WaitUntil(kSoon, [&] {
    const auto controls = window.Controls();
    return !controls.empty() && controls.front().text.starts_with("Starting the product: ");
  }));
  CloseVisibleCheck(window);
  std::string report;
  for (const auto& entry : std::filesystem::directory_iterator(InFolder("")))
    if (entry.path().extension() == ".html") report = ReportIn(entry.path());
  const Verdicts verdicts = VerdictsIn(report);
  EXPECT_EQ(verdicts.count("ground.windows"), 1u) << report;
  EXPECT_EQ(verdicts.count("start.exit_code"), 0u) << report;
  ASSERT_EQ(verdicts.count("start.section"), 1u) << report;
  EXPECT_EQ(verdicts.at("start.section"), "observed");
  EXPECT_EQ(Leftovers(), std::set<std::string>());
}

class WindowsCheckFaults : public WindowsCheckTest<WindowsCheckFaults>,
                           public testing::WithParamInterface<PlantedFault> {};

TEST_P(WindowsCheckFaults, Fails_only_the_items_of_the_fault) {
  std::istringstream words(GetParam().failedIds);
  const std::set<std::string> expected{std::istream_iterator<std::string>(words), {}};
  const std::string report = Check(GetParam().section, Spoiled(GetParam()));
  EXPECT_EQ(FailedIn(report), expected) << report;
}

INSTANTIATE_TEST_SUITE_P(Planted, WindowsCheckFaults, testing::ValuesIn(kFaults),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace tarvik::lab
