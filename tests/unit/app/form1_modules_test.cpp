#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

class Form1ModulesTest : public Form1Test {
 protected:
  void StartGeneral() {
    files.contents[L"C:\\Program\\Language\\Tarvik.exe_1033.ini"] = "";
    Start(L"", false);
  }
  /// The pages that are switched off.
  std::vector<int> PagesOff() {
    std::vector<int> off;
    for (int page = 0; page < Tabs().PageCount(); ++page)
      if (!Tabs().PageOn(page)) off.push_back(page);
    return off;
  }
};

TEST_F(Form1ModulesTest, With_every_module_all_pages_and_the_ladder_button_are_available) {
  StartGeneral();
  EXPECT_TRUE(PagesOff().empty());
  EXPECT_TRUE(Button(ID_cmdAllTest).Visible());
}

using ModuleAndPage = std::pair<const char*, int>;

class Form1MissingModuleTest : public Form1ModulesTest, public testing::WithParamInterface<ModuleAndPage> {};

TEST_P(Form1MissingModuleTest, Turns_its_page_off_and_hides_the_ladder_button) {
  kernel.paths.erase(GetParam().first);
  StartGeneral();
  EXPECT_EQ(PagesOff(), std::vector<int>{GetParam().second});
  EXPECT_FALSE(Button(ID_cmdAllTest).Visible());
}

INSTANTIATE_TEST_SUITE_P(EachModule, Form1MissingModuleTest,
                         testing::Values(ModuleAndPage{"NxLib32.dll", 1}, ModuleAndPage{"NxLibe1.dll", 1},
                                         ModuleAndPage{"k7api.dll", 2}, ModuleAndPage{"SvcKit.dll", 3},
                                         ModuleAndPage{"Wininet.dll", 4}));

TEST_F(Form1ModulesTest, The_hidden_ladder_button_leaves_no_gap) {
  const auto right = [this](int id) { return Button(id).Bounds().x + Button(id).Bounds().width; };
  kernel.paths.erase("NxLib32.dll");
  Start();
  EXPECT_EQ(right(ID_cmdPing), right(ID_cmdAllFtpTest));
}

TEST_F(Form1ModulesTest, The_field_of_a_missing_library_has_a_word_of_its_own) {
  kernel.paths.erase("NxLib32.dll");
  Start();
  EXPECT_EQ(form.Get<ui::MemoryStatusBar>(ID_sbrRungs).FieldText(4), L"NEXAL2 none");
  EXPECT_EQ(form.Get<ui::MemoryStatusBar>(ID_sbrRungs).FieldText(5), L"FTP –");
}

TEST_F(Form1ModulesTest, The_family_edition_does_not_look_for_the_K7_API_library) {
  kernel.paths.erase("k7api.dll");
  Start();
  EXPECT_EQ(std::count(kernel.searched.begin(), kernel.searched.end(), "k7api.dll"), 0);
  EXPECT_TRUE(Button(ID_cmdAllTest).Visible());
}

TEST_F(Form1ModulesTest, Option_32_skips_the_K7_API_library_in_the_general_edition) {
  files.contents[L"C:\\Program\\Language\\Tarvik.exe_1033.ini"] = "";
  kernel.paths.erase("k7api.dll");
  Start(L"-X 32 -PING_N", false);
  EXPECT_TRUE(Button(ID_cmdAllTest).Visible());
  EXPECT_EQ(PagesOff(), (std::vector<int>{2, 3}));
}

TEST_F(Form1ModulesTest, The_PMC_command_stays_hidden_without_the_CNC_library) {
  kernel.paths.erase("NxLibe1.dll");
  Start();
  EXPECT_FALSE(form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Visible());
}

TEST_F(Form1ModulesTest, Without_the_internet_library_a_host_with_FTP_options_still_starts_the_run) {
  kernel.paths.erase("Wininet.dll");
  Start(L"-X 8 -FTP_USER anna -PING_N 1 192.168.1.100");
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_EQ(Tabs().FrontPage(), 0);
  EXPECT_EQ(Box(ID_txtFtpUsername).Text(), L"anna");
  EXPECT_EQ(icmp.requests.size(), 1U);
  EXPECT_TRUE(wininet.calls.empty());
  EXPECT_FALSE(Listed(L"FTP Connect test..."));
}

TEST_F(Form1ModulesTest, Without_the_internet_library_the_FTP_rung_passes_at_once) {
  kernel.paths.erase("Wininet.dll");
  Start();
  Address().SetText(L"192.168.1.100");
  form1->SetOptionMask(kFtpTest);
  EXPECT_TRUE(form1->RunAllTests());
  EXPECT_TRUE(wininet.calls.empty());
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(Form1ModulesTest, The_modules_are_looked_for_after_the_captions_are_loaded) {
  AddString(1033, 11, "caption");
  Construct();
  kernel.onSearch = [this] { EXPECT_EQ(Button(ID_cmdAllTest).Caption(), L"caption"); };
  form1->Form_Load();
  EXPECT_FALSE(kernel.searched.empty());
}

TEST_F(Form1ModulesTest, No_module_is_looked_for_when_start_up_ends_at_the_sockets) {
  winsock.startupResult = -1;
  Start();
  EXPECT_TRUE(kernel.searched.empty());
}

}  // namespace
}  // namespace tarvik::test
