#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

using Strings = std::vector<std::string>;
using Lines = std::vector<std::wstring>;

TEST_F(Form1Test, Without_a_command_line_nothing_runs_and_the_first_page_stays_in_front) {
  settings.values[L"History\\01"] = L"192.168.1.100";
  settings.values[L"History\\02"] = L"cnc2";
  Start();
  EXPECT_EQ(Tabs().FrontPage(), 0);
  EXPECT_TRUE(icmp.requests.empty());
  EXPECT_EQ(Address().Text(), L"192.168.1.100");
  EXPECT_FALSE(flags.busy);
}

TEST_F(Form1Test, The_configuration_library_is_called_in_order_with_a_length_of_511_bytes) {
  Start();
  EXPECT_EQ(configuration.calls, (Strings{"Initialize", "GetLanguage", "Terminate", "GetCommonDataFolder2"}));
  EXPECT_EQ(configuration.askedLength, 511);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(Form1Test, A_failed_folder_query_is_reported_and_the_returned_folder_is_used) {
  configuration.folderResult = 5;
  Start();
  ASSERT_EQ(boxes.Texts(), Lines{L"GetCommonDataFolder2 Error"});
  EXPECT_EQ(Button(ID_cmdPing).Caption(), L"&Ping");
}

TEST_F(Form1Test, An_unterminated_folder_is_not_read_past_the_buffer) {
  configuration.folder = std::string(511, 'x');
  configuration.terminated = false;
  Start();
  EXPECT_EQ(boxes.boxes.size(), 1U) << "only the missing language file is reported";
}

TEST_F(Form1Test, Without_the_configuration_library_the_programs_folder_and_Windows_language_are_used) {
  configuration.available = false;
  windowsLanguage = 1041;
  files.contents[L"C:\\Program\\Language\\Tarvik.exe_1041.ini"] = "";
  system.profile["C:\\Program\\Language\\Tarvik.exe_1041.ini|1041|10"] = "jp";
  Start();
  EXPECT_EQ(boxes.Texts(), Lines{L"GetCommonDataFolder2 Error"});
  EXPECT_TRUE(configuration.calls.empty());
  EXPECT_EQ(Button(ID_cmdPing).Caption(), L"jp");
}

TEST_F(Form1Test,
       A_missing_configuration_call_is_reported_and_the_programs_folder_and_Windows_language_are_used) {
  windowsLanguage = 1041;
  files.contents[L"C:\\Program\\Language\\Tarvik.exe_1041.ini"] = "";
  configuration.lacking = "GetLanguage";
  Start();
  EXPECT_EQ(boxes.Texts(), (Lines{L"The library does not export a call.", L"GetCommonDataFolder2 Error"}));
  EXPECT_EQ(configuration.calls, (Strings{"Initialize", "Terminate"}));
  EXPECT_FALSE(Tabs().PageOn(kK7ApiPage));
  EXPECT_EQ(winsock.startups, 1);
}

TEST_F(Form1Test, A_configuration_library_without_the_folder_call_still_provides_the_language) {
  configuration.lacking = "GetCommonDataFolder2";
  configuration.language = 1041;
  files.contents[L"C:\\Program\\Language\\Tarvik.exe_1041.ini"] = "";
  system.profile["C:\\Program\\Language\\Tarvik.exe_1041.ini|1041|10"] = "jp";
  Start();
  EXPECT_EQ(boxes.boxes.size(), 2U);
  EXPECT_EQ(Button(ID_cmdPing).Caption(), L"jp");
}

TEST_F(Form1Test, A_configuration_library_without_Terminate_is_still_used) {
  configuration.lacking = "Terminate";
  Start();
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_EQ(Button(ID_cmdPing).Caption(), L"&Ping");
}

TEST_F(Form1Test, The_general_edition_never_calls_the_configuration_library) {
  windowsLanguage = 1036;
  files.contents[L"C:\\Program\\Language\\Tarvik.exe_1033.ini"] = "";
  Start(L"", false);
  EXPECT_TRUE(configuration.calls.empty());
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(Form1Test, The_general_edition_shows_all_pages) {
  files.contents[L"C:\\Program\\Language\\Tarvik.exe_1033.ini"] = "";
  Start(L"", false);
  for (int page = 0; page < 5; ++page) EXPECT_TRUE(Tabs().PageOn(page)) << page;
  EXPECT_FALSE(form1->IsOptionMask_HideK7Test());
}

TEST_F(Form1Test, The_family_edition_turns_the_K7_pages_off) {
  Start();
  EXPECT_TRUE(Tabs().PageOn(0));
  EXPECT_TRUE(Tabs().PageOn(1));
  EXPECT_FALSE(Tabs().PageOn(2));
  EXPECT_FALSE(Tabs().PageOn(3));
  EXPECT_TRUE(Tabs().PageOn(4));
  EXPECT_TRUE(form1->IsOptionMask_HideK7Test());
}

TEST_F(Form1Test, Missing_language_data_is_reported_with_the_reason_and_captions_show_their_numbers) {
  files.contents.clear();
  Start();
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].text,
            L"Loading language data is failed\r\nResource:Initialize\r\n"
            L"No such file (C:\\Data\\Language\\Tarvik.exe_1033.ini)\r\n"
            L"No such file (C:\\Data\\Language\\Tarvik.exe_1033.ini)\r\nCannot open message file\r\n");
  EXPECT_EQ(Button(ID_cmdAllTest).Caption(), L"(11)");
}

TEST_F(Form1Test, The_socket_layer_is_described_in_five_lines_and_a_separator) {
  winsock.data = {};
  std::string("Description").copy(winsock.data.szDescription, 257);
  std::string("Running").copy(winsock.data.szSystemStatus, 129);
  winsock.data.iMaxSockets = 32767;
  winsock.data.iMaxUdpDg = 8192;
  winsock.data.lpVendorInfo = -7;
  Start();
  EXPECT_EQ(winsock.requestedVersion, 0x0101);
  EXPECT_EQ(List().lines, (Lines{L"szDescription:Description", L"szSystemStatus:Running",
                                 L"iMaxSockets:32767", L"iMaxUdpDg:8192", L"lpVendorInfo:-7", L"-----"}));
}

TEST_F(Form1Test, A_maximum_datagram_of_0_is_listed_as_65536) {
  winsock.data.iMaxUdpDg = 0;
  Start();
  EXPECT_TRUE(Listed(L"iMaxUdpDg:65536"));
}

TEST_F(Form1Test, A_negative_maximum_datagram_is_listed_as_unsigned) {
  winsock.data.iMaxUdpDg = 0xFFBB;
  Start();
  EXPECT_TRUE(Listed(L"iMaxUdpDg:65467"));
}

TEST_F(Form1Test, A_WSAStartup_result_of_minus_1_ends_start_up) {
  winsock.startupResult = -1;
  settings.values[L"History\\01"] = L"cnc";
  Start(L"-X 1 192.168.1.100");
  EXPECT_EQ(Address().Count(), 0);
  EXPECT_FALSE(form.topmost);
  EXPECT_EQ(List().Count(), 6);
  EXPECT_EQ(List().horizontalExtent, 0);
}

TEST_F(Form1Test, Start_up_continues_after_any_other_WSAStartup_result) {
  winsock.startupResult = 10091;
  Start(L"-X 1 192.168.1.100");
  EXPECT_TRUE(form.topmost);
}

TEST_F(Form1Test, A_missing_ICMP_handle_is_listed_and_start_up_continues) {
  icmp.createResult = 0;
  Start();
  EXPECT_TRUE(Listed(L"ICMPCreateFile Error"));
  EXPECT_EQ(List().lines.back(), L"-----");
  EXPECT_EQ(List().horizontalExtent, 3 * List().clientWidth);
}

TEST_F(Form1Test, An_ICMP_handle_of_minus_1_is_not_a_failure) {
  icmp.createResult = -1;
  Start();
  EXPECT_FALSE(Listed(L"ICMPCreateFile Error"));
}

TEST_F(Form1Test, Option_1_makes_the_window_topmost) {
  Start(L"-X 1 -PING_N");
  EXPECT_TRUE(form.topmost);
}

TEST_F(Form1Test, Option_64_unmasks_the_password_boxes) {
  Start(L"-X 64 -PING_N");
  EXPECT_FALSE(Box(ID_txtAccessCode).PasswordMask());
  EXPECT_FALSE(Box(ID_txtFtpPasswd).PasswordMask());
}

TEST_F(Form1Test, The_password_boxes_are_masked_by_default) {
  Start();
  EXPECT_TRUE(Box(ID_txtAccessCode).PasswordMask());
  EXPECT_TRUE(Box(ID_txtFtpPasswd).PasswordMask());
}

TEST_F(Form1Test, Numbers_from_the_command_line_fill_their_boxes_only_when_greater_than_0) {
  Start(L"-PING_N 7 -TCP_PORT 0 -NXLIB_TMOUT -3 -UDP_PORT");
  EXPECT_EQ(Box(ID_txtPingReqCount).Text(), L"7");
  EXPECT_EQ(Box(ID_txtTcpPortNo).Text(), L"8193");
  EXPECT_EQ(Box(ID_txtNxlibTimeOut).Text(), L"10");
}

TEST_F(Form1Test, A_host_without_option_bits_runs_the_reachability_check) {
  Start(L"-PING_N 2 192.168.1.100");
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(form.Focus(), &Button(ID_cmdPing));
  EXPECT_EQ(icmp.requests.size(), 2U);
  EXPECT_EQ(Address().Item(0), L"192.168.1.100");
  EXPECT_EQ(List().lines, (Lines{L"PING test...", L"0001 Reply From 192.168.1.100: bytes=32 time=1ms TTL=64",
                                 L"0002 Reply From 192.168.1.100: bytes=32 time=1ms TTL=64"}));
}

TEST_F(Form1Test, With_options_2_and_8_the_FTP_page_is_in_front_at_the_end) {
  Start(L"-X 10 -FTP_USER anna -FTP_PASSWD secret 192.168.1.100;code");
  EXPECT_EQ(Tabs().FrontPage(), 4);
  EXPECT_EQ(Box(ID_txtFtpUsername).Text(), L"anna");
  EXPECT_EQ(Box(ID_txtFtpPasswd).Text(), L"4711");
  EXPECT_EQ(Box(ID_txtAccessCode).Text(), L"4711");
  EXPECT_TRUE(form.Get<ui::MemoryCheckBox>(ID_chkAccessCode).Checked());
  EXPECT_TRUE(Box(ID_txtAccessCode).Enabled());
}

TEST_F(Form1Test, Without_an_access_code_its_box_stays_empty_and_unchecked) {
  Start(L"-X 2 192.168.1.100");
  EXPECT_EQ(Box(ID_txtAccessCode).Text(), L"");
  EXPECT_FALSE(form.Get<ui::MemoryCheckBox>(ID_chkAccessCode).Checked());
}

TEST_F(Form1Test, An_undecodable_access_code_is_reported_and_left_empty) {
  AddString(1033, 153, "no code");
  txCodec.result = 1;
  Start(L"-X 2 192.168.1.100;code");
  EXPECT_EQ(boxes.Texts(), Lines{L"no code"});
  EXPECT_EQ(Box(ID_txtAccessCode).Text(), L"");
}

TEST_F(Form1Test, Without_the_decoder_library_the_password_is_reported_and_left_empty) {
  AddString(1033, 154, "no password");
  txCodec.missing = true;
  Start(L"-X 8 -FTP_PASSWD x 192.168.1.100");
  EXPECT_EQ(boxes.Texts(), Lines{L"no password"});
  EXPECT_EQ(Box(ID_txtFtpPasswd).Text(), L"");
}

TEST_F(Form1Test, The_PMC_command_stays_hidden) {
  Start(L"192.168.1.100");
  EXPECT_FALSE(form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Visible());
}

TEST_F(Form1Test, A_locale_id_on_the_command_line_changes_the_captions) {
  files.contents[L"C:\\Data\\Language\\Tarvik.exe_1041.ini"] = "";
  AddString(1041, 11, "jp");
  Start(L"-LOCALEID 1041");
  EXPECT_EQ(Button(ID_cmdAllTest).Caption(), L"jp");
}

TEST_F(Form1Test, A_caption_that_cannot_be_set_does_not_stop_the_caption_loader) {
  AddString(1033, 26, "last");
  Construct();
  form.Get<ui::MemoryLabel>(ID_lblIPAddr).refusing = true;
  form1->Form_Load();
  EXPECT_EQ(Button(ID_cmdAllFtpTest).Caption(), L"last");
}

TEST_F(Form1Test, A_failing_start_up_step_is_reported_and_the_rest_still_run) {
  Construct(L"-X 1 -PING_N 7");
  Address().refusing = true;
  settings.values[L"History\\01"] = L"cnc";
  List().refusing = true;
  form1->Form_Load();
  EXPECT_EQ(boxes.boxes.size(), 2U);
  EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
  EXPECT_EQ(Box(ID_txtPingReqCount).Text(), L"7");
  EXPECT_TRUE(form.topmost);
  EXPECT_EQ(List().horizontalExtent, 3 * List().clientWidth);
}

TEST_F(Form1Test, A_failing_auto_run_is_reported_and_start_up_finishes) {
  cncLibrary.missing = {"nx_sysinfo"};
  Start(L"-X 2 192.168.1.100");
  EXPECT_EQ(boxes.boxes.size(), 1U);
  EXPECT_FALSE(flags.busy);
  EXPECT_EQ(List().horizontalExtent, 3 * List().clientWidth);
}

TEST_F(Form1Test, The_window_cannot_close_during_start_up) {
  bool refused = false;
  boxes.onShow = [&] { refused = !form.Close(); };
  configuration.folderResult = 1;
  Start();
  EXPECT_TRUE(refused);
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1Test, An_unanswered_start_up_box_does_not_block_the_end_of_the_session) {
  bool agreed = false;
  boxes.onShow = [&] {
    agreed = form.QueryEndSession();
    form.EndSession();
  };
  configuration.folderResult = 1;
  settings.values[L"History\\01"] = L"cnc";
  Start();
  EXPECT_TRUE(agreed);
  EXPECT_EQ(settings.values[L"History\\01"], L"cnc") << "saving a history that was not loaded yet changed it";
  EXPECT_FALSE(form.unloaded) << "the window was destroyed during start-up";
}

TEST_F(Form1Test, The_session_cannot_end_during_an_auto_run) {
  int asked = 0;
  onEvents = [&] {
    if (!flags.busy) return;
    ++asked;
    EXPECT_FALSE(form.QueryEndSession());
  };
  Start(L"192.168.1.100");
  EXPECT_GT(asked, 0);
  EXPECT_TRUE(form.QueryEndSession());
}

TEST_F(Form1Test, Until_captions_are_loaded_the_library_test_button_has_its_built_in_one) {
  winsock.startupResult = -1;
  Start();
  EXPECT_EQ(Button(ID_cmdGetInfo).Caption(), L"&GetNcInfo");
}

TEST_F(Form1Test, A_window_caption_that_cannot_be_set_does_not_affect_the_controls) {
  Construct();
  form.beforeCaption = [] { throw RuntimeError(L"The text of a control could not be set."); };
  form1->Form_Load();
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_EQ(Button(ID_cmdGetInfo).Caption(), L"(15)");
  EXPECT_EQ(Tabs().PageCaption(0), L"(3)");
}

}  // namespace
}  // namespace tarvik::test
