// Saving the report: the dialog, the file, and what happens when one of them fails.

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

constexpr wchar_t kSavedPath[] = L"E:\\レポート\\a.html";

class Form1ReportTest : public Form1Test {
 protected:
  Form1ReportTest() {
    files.folders = {system.desktop, L"E:\\レポート"};
    form.onSavePrompt = [this](const ui::SavePrompt& prompt) {
      prompts.push_back(prompt);
      if (whileOpen) whileOpen();
      return answer;
    };
  }
  void Save() { form.Get<ui::MemoryMenuItem>(ID_mnuSaveReport).Click(); }
  std::wstring Sentence() { return Label(ID_lblAnswer).Caption(); }

  std::vector<ui::SavePrompt> prompts;
  std::optional<ui::SavePlace> answer = ui::SavePlace{kSavedPath, 0};
  std::function<void()> whileOpen;
};

TEST_F(Form1ReportTest, Ctrl_S_asks_for_a_place_on_the_desktop_first_and_in_the_last_folder_then) {
  Start();
  EXPECT_TRUE(form.PressShortcut(L'S', ui::kCtrlHeld));
  ASSERT_EQ(prompts.size(), 1U);
  EXPECT_EQ(prompts[0].folder, system.desktop);
  EXPECT_TRUE(prompts[0].name.starts_with(L"Tarvik") && prompts[0].name.ends_with(L".html"));
  ASSERT_EQ(prompts[0].kinds.size(), 2U);
  EXPECT_EQ(prompts[0].kinds[0].extension, L"html");
  EXPECT_EQ(prompts[0].kinds[1].extension, L"txt");
  Save();
  EXPECT_EQ(prompts[1].folder, L"E:\\レポート");
}

TEST_F(Form1ReportTest, The_dialog_begins_in_no_folder_that_is_gone_or_on_a_server) {
  Start();
  Save();
  answer = ui::SavePlace{L"\\\\server\\share\\b.html", 0};
  Save();
  Save();
  EXPECT_EQ(prompts.at(2).folder, L"E:\\レポート") << "the last one on the PC itself";
  files.folders = {system.publicDocuments};
  Save();
  EXPECT_EQ(prompts.at(3).folder, system.publicDocuments);
  files.folders.clear();
  Save();
  EXPECT_EQ(prompts.at(4).folder, L"");
}

TEST_F(Form1ReportTest, Until_the_dialog_is_visible_no_test_starts_and_the_report_stays_as_it_was) {
  Start(L"", false);
  Address().Type(L"192.168.1.100");
  Click(ID_cmdPing);
  const std::vector<std::wstring> lines = List().lines;
  const size_t serviceCalls = svcKit.calls.size();
  whileOpen = [this] {
    form.SetEnabled(true);
    Address().Type(L"192.168.1.101");
    for (const int id :
         {ID_cmdPing, ID_cmdAllTest, ID_cmdGetInfo, ID_cmdK7Api, ID_cmdFtpConnect, ID_cmdStartStopK7Server_1})
      Click(id);
  };
  Save();
  EXPECT_EQ(List().lines, lines);
  EXPECT_EQ(svcKit.calls.size(), serviceCalls);
  EXPECT_NE(files.contents[kSavedPath].find("192.168.1.100"), std::string::npos);
  EXPECT_EQ(files.contents[kSavedPath].find("192.168.1.101"), std::string::npos);
}

TEST_F(Form1ReportTest, It_is_saved_as_HTML_or_as_text) {
  Start();
  Save();
  EXPECT_TRUE(files.contents[kSavedPath].starts_with("<!DOCTYPE html>"));
  EXPECT_EQ(Sentence(), L"Saved: a.html");
  answer = ui::SavePlace{L"E:\\レポート\\a.txt", 0};
  Save();
  EXPECT_TRUE(files.contents[L"E:\\レポート\\a.txt"].starts_with("\xEF\xBB\xBF"));
  answer = ui::SavePlace{L"E:\\レポート\\b", 1};
  Save();
  EXPECT_TRUE(files.contents[L"E:\\レポート\\b.txt"].starts_with("\xEF\xBB\xBF")) << "the kind that is shown";
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(Form1ReportTest, Cancelling_changes_nothing) {
  Start();
  const auto before = files.contents;
  answer.reset();
  Save();
  EXPECT_EQ(prompts.size(), 1U);
  EXPECT_EQ(files.contents, before);
  EXPECT_EQ(Sentence(), L"");
}

TEST_F(Form1ReportTest, Copying_and_saving_keep_nothing_in_the_settings) {
  Start();
  form.PressShortcut(L'C', ui::kCtrlHeld + ui::kShiftHeld);
  Save();
  EXPECT_TRUE(files.contents.contains(kSavedPath));
  EXPECT_TRUE(settings.values.empty());
}

TEST_F(Form1ReportTest, A_failure_shows_one_box_and_is_not_reported_as_saved) {
  Start();
  files.contents[kSavedPath] = "old";
  files.attributes[kSavedPath] = Files::kReadOnly;
  files.failure = 5;
  Save();
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_TRUE(boxes.boxes[0].text.starts_with(L"The report was not saved (error 5).\r\n"));
  EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Exclamation);
  EXPECT_EQ(files.contents[kSavedPath], "old");
  EXPECT_EQ(Sentence(), L"");
}

TEST_F(Form1ReportTest, A_file_that_the_dialog_did_not_ask_about_is_replaced_only_after_a_question) {
  Start();
  files.contents[kSavedPath] = "old";
  answer = ui::SavePlace{L"E:\\レポート\\a", 0};
  Save();
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"a.html already exists. Replace it?"});
  EXPECT_TRUE(boxes.boxes[0].asksYesNo && boxes.boxes[0].defaultIsNo);
  EXPECT_EQ(files.contents[kSavedPath], "old");
  boxes.answerYes = true;
  Save();
  EXPECT_NE(files.contents[kSavedPath], "old");
}

TEST_F(Form1ReportTest, A_dialog_that_cannot_be_opened_is_reported) {
  Start();
  form.onSavePrompt = [](const ui::SavePrompt&) -> std::optional<ui::SavePlace> {
    throw RuntimeError(L"This Windows has no save dialog.");
  };
  Save();
  EXPECT_EQ(boxes.Texts(), std::vector<std::wstring>{L"This Windows has no save dialog."});
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1ReportTest, While_the_dialog_is_open_the_window_does_not_close_and_no_other_dialog_opens) {
  Start();
  whileOpen = [this] {
    EXPECT_FALSE(form.Close());
    // Windows disables the window a moment later than the dialog begins.
    form.SetEnabled(true);
    EXPECT_FALSE(form.Close());
    Save();
    EXPECT_TRUE(form.QueryEndSession());
    form.EndSession();
    EXPECT_FALSE(form.unloaded) << "code of the window is on the stack";
  };
  Save();
  EXPECT_EQ(prompts.size(), 1U);
  EXPECT_TRUE(form.Close());
}

TEST_F(Form1ReportTest, It_can_be_saved_during_a_run_which_then_goes_on) {
  Start();
  Address().Type(L"192.168.1.101");
  Click(ID_cmdPing);
  const std::vector<std::wstring> lines = List().lines;
  bool saved = false;
  onEvents = [&] {
    if (!std::exchange(saved, true)) Save();
  };
  Click(ID_cmdPing);
  EXPECT_TRUE(saved && files.contents.contains(kSavedPath));
  EXPECT_EQ(List().lines, lines);
}

TEST_F(Form1ReportTest, Names_and_passwords_that_a_server_repeats_stay_out_even_when_changed_since_the_run) {
  Start();
  Address().Type(L"192.168.1.100");
  Box(ID_txtFtpUsername).SetText(L"kira7");
  Box(ID_txtFtpPasswd).SetText(L"pw9x");
  wininet.replies = {"230 kira7 (pw9x, PC of anna) is logged in", "257 \"/\"", "226 done"};
  Click(ID_cmdFtpConnect);
  Box(ID_txtFtpUsername).SetText(L"");
  Box(ID_txtFtpPasswd).SetText(L"");
  Save();
  const std::string& saved = files.contents[kSavedPath];
  EXPECT_NE(saved.find("is logged in"), std::string::npos);
  for (const char* const secret : {"kira7", "pw9x", "anna"})
    EXPECT_EQ(saved.find(secret), std::string::npos) << secret;
}

TEST_F(Form1ReportTest, Secrets_typed_during_the_run_are_masked_and_reported_as_set) {
  Start();
  answer = ui::SavePlace{L"E:\\レポート\\a.txt", 0};
  Address().Type(L"192.168.1.100");
  wininet.replies = {"230 kira7 (pw9x) is logged in", "257 \"/\"", "226 done"};
  onEvents = [this] {
    if (!icmp.requests.empty() && Box(ID_txtFtpUsername).Text().empty()) {
      Box(ID_txtFtpUsername).SetText(L"kira7");
      Box(ID_txtFtpPasswd).SetText(L"pw9x");
    }
  };
  Click(ID_cmdAllFtpTest);
  onEvents = nullptr;
  Save();
  const std::string& saved = files.contents[L"E:\\レポート\\a.txt"];
  EXPECT_NE(saved.find("230 *** (***) is logged in"), std::string::npos) << saved;
  EXPECT_NE(saved.find("FTP user name     set"), std::string::npos) << saved;
  EXPECT_NE(saved.find("FTP password      set"), std::string::npos) << saved;
}

TEST_F(Form1ReportTest, A_rung_that_tested_an_address_edited_during_the_run_names_it) {
  Start();
  answer = ui::SavePlace{L"E:\\レポート\\a.txt", 0};
  Address().Type(L"192.168.1.100");
  wininet.replies = {"230 logged in", "257 \"/\"", "226 done"};
  onEvents = [this] {
    if (!icmp.requests.empty()) Address().SetText(L"192.168.1.101");
  };
  Click(ID_cmdAllFtpTest);
  onEvents = nullptr;
  Save();
  const std::string& saved = files.contents[L"E:\\レポート\\a.txt"];
  EXPECT_NE(saved.find("Target: 192.168.1.100 answered"), std::string::npos) << saved;
  EXPECT_NE(saved.find(" Tested was 192.168.1.101."), std::string::npos) << saved;
  EXPECT_NE(saved.find("TCP 21 192.168.1.10 -> 192.168.1.101"), std::string::npos) << saved;
}

TEST_F(Form1ReportTest, It_has_the_time_when_the_run_ended) {
  Start();
  Address().Type(L"192.168.1.100");
  Click(ID_cmdPing);
  system.localTime.hour += 2;
  Save();
  EXPECT_NE(prompts.at(0).name.find(L"_2024-02-03_1605_"), std::wstring::npos)
      << NarrowAscii(prompts[0].name);
}

TEST_F(Form1ReportTest, It_has_the_port_of_the_K7_server_and_no_zone_that_Windows_does_not_report) {
  files.contents[kServicesFile] = "NORVAX_K7_SERVER  9000/udp\r\n";
  system.localTime.minutesEast.reset();
  Start(L"-K7SERVER_HOST 10.0.0.5", false);
  answer = ui::SavePlace{L"E:\\レポート\\a.txt", 0};
  Address().Type(L"192.168.1.100");
  Click(ID_cmdK7Api);
  Save();
  const std::string& saved = files.contents[L"E:\\レポート\\a.txt"];
  EXPECT_NE(saved.find("UDP 9000 this PC <-> 10.0.0.5 (K7 server), UDP ? 10.0.0.5 <-> "), std::string::npos)
      << saved;
  EXPECT_NE(saved.find("K7 UDP port       9000"), std::string::npos) << saved;
  EXPECT_EQ(saved.find("UTC"), std::string::npos) << saved;
}

TEST_F(Form1ReportTest, It_says_where_and_when_it_was_made) {
  Start(L"", false);
  answer = ui::SavePlace{L"E:\\レポート\\a.txt", 0};
  Save();
  const std::string& saved = files.contents[L"E:\\レポート\\a.txt"];
  for (const char* const text : {"Tarvik 1.0", "general edition", "Windows NT Running 10.0", "UTC+09:00",
                                 "2024-02-03", "NxLib32.dll -", "Wininet.dll"})
    EXPECT_NE(saved.find(text), std::string::npos) << text;
}

TEST_F(Form1ReportTest, Versions_of_libraries_are_read_for_the_first_report_only) {
  versions.blocks[std::wstring(L"C:\\System\\NxLib32.dll")] = FakeVersions::Block(1, 2, 3, 4);
  Start();
  EXPECT_EQ(versions.queries, 0);
  form.PressShortcut(L'C', ui::kCtrlHeld + ui::kShiftHeld);
  const int first = versions.queries;
  EXPECT_GT(first, 0);
  form.PressShortcut(L'C', ui::kCtrlHeld + ui::kShiftHeld);
  EXPECT_EQ(versions.queries, first);
}

}  // namespace
}  // namespace tarvik::test
