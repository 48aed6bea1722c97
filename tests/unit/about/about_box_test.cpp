#include "about/about_box.h"

#include <algorithm>

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

class AboutBoxTest : public Form1Test {
 protected:
  void Open(bool familyEdition = true) {
    if (!familyEdition) files.contents[L"C:\\Program\\Language\\Tarvik.exe_1033.ini"] = "";
    AddString(1033, 31, "&System Info...");
    Start(L"", familyEdition);
    form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
  }
  std::wstring Text(int id) { return lastForm->Get<ui::MemoryLabel>(id).Caption(); }
  void ClickInBox(int id) { lastForm->Get<ui::MemoryButton>(id).Click(); }
};

TEST(AboutVersion, Consists_of_the_first_second_and_fourth_number) {
  EXPECT_EQ(VersionText({5, 6, 7, 8}), L"Version 5.6.8");
}

TEST_F(AboutBoxTest, Shows_title_and_versions_without_disabling_the_main_window) {
  Open();
  EXPECT_EQ(newForms, Lines{L"frmAbout"});
  EXPECT_TRUE(lastForm->Visible());
  EXPECT_TRUE(form.Enabled());
  EXPECT_EQ(lastForm->Caption(), L"Tarvik Version Information");
  EXPECT_EQ(Text(ID_lblTitle), L"Tarvik");
  EXPECT_EQ(Text(ID_lblVersion), L"Version 1.0.0");
  EXPECT_EQ(Text(ID_lblOsVersion), L"Windows NT Running 10.0.0");
  EXPECT_TRUE(lastForm->fixedSize);
}

TEST_F(AboutBoxTest, Is_topmost_when_the_main_window_is) {
  Start(L"-X 1 -LANGID 1");
  form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
  EXPECT_TRUE(lastForm->topmost);
}

TEST_F(AboutBoxTest, Shows_the_modules_found_at_start_up) {
  kernel.paths.erase("SvcKit.dll");
  versions.blocks["C:\\System\\NxLib32.dll"] = FakeVersions::Block(7, 1, 0, 2);
  Open();
  EXPECT_EQ(Text(ID_lblModules),
            L"NxLib32.dll Ver.7.1.0.2 (C:\\System\\NxLib32.dll)\r\nNxLibe1.dll (C:\\System\\NxLibe1.dll)\r\n"
            L"Wininet.dll (C:\\System\\Wininet.dll)");
}

TEST_F(AboutBoxTest, Names_the_modules_that_were_not_found_and_what_that_hides) {
  kernel.paths.erase("NxLibe1.dll");
  kernel.paths.erase("SvcKit.dll");
  AddString(1033, 4, "NEXAL2(&2)");
  AddString(1033, 11, "&All Test");
  Start(L"-LANGID 1");
  form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
  EXPECT_EQ(Text(ID_lblMissing),
            L"NxLibe1.dll not found: hides NEXAL2, All Test\r\nSvcKit.dll not found: hides All Test");
}

TEST_F(AboutBoxTest, In_the_general_edition_a_missing_library_hides_its_K7_page) {
  kernel.paths.erase("SvcKit.dll");
  const std::string file = "C:\\Program\\Language\\Tarvik.exe_1033.ini";
  files.contents[std::wstring(file.begin(), file.end())] = "";
  system.profile[file + "|1033|6"] = "K7 Svc(&4)";
  system.profile[file + "|1033|11"] = "&All Test";
  Start(L"-LANGID 0", false);
  form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
  EXPECT_EQ(Text(ID_lblMissing), L"SvcKit.dllが見つかりません。非表示: K7 Svc, All Test");
}

TEST_F(AboutBoxTest, Does_not_mention_missing_modules_when_all_were_found) {
  Open();
  EXPECT_EQ(std::ranges::count(lastForm->Order(), int{ID_lblMissing}), 0);
}

TEST_F(AboutBoxTest, Without_modules_its_list_is_empty) {
  kernel.paths.clear();
  Open();
  EXPECT_EQ(Text(ID_lblModules), L"");
}

TEST_F(AboutBoxTest, Wraps_long_lines_and_shows_ampersands_literally) {
  kernel.paths = {{"SvcKit.dll", "C:\\" + std::string(200, 'x') + "\\a&b.dll"}};
  Open();
  EXPECT_EQ(Text(ID_lblModules), L"SvcKit.dll (C:\\" + std::wstring(105, L'x') + L"\r\n" +
                                     std::wstring(95, L'x') + L"\\a&&b.dll)");
}

TEST_F(AboutBoxTest, Wraps_a_long_line_that_contains_lone_carriage_returns) {
  kernel.paths = {{"SvcKit.dll", "C:\\" + std::string(105, 'x') + std::string(200, '\r') + "y"}};
  Open();
  EXPECT_EQ(Text(ID_lblModules), L"SvcKit.dll (C:\\" + std::wstring(105, L'x') + L"\r\n" +
                                     std::wstring(120, L'\r') + L"\r\n" + std::wstring(80, L'\r') + L"y)");
}

TEST_F(AboutBoxTest, An_edition_description_follows_the_title_in_brackets) {
  EXPECT_EQ(AboutTitle(L""), L"Tarvik");
  EXPECT_EQ(AboutTitle(L"Trial"), L"Tarvik(Trial)");
}

TEST_F(AboutBoxTest, Opening_it_again_creates_no_second_window) {
  Open();
  form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
  EXPECT_EQ(newForms.size(), 1U);
}

TEST_F(AboutBoxTest, OK_Esc_and_the_close_button_close_it_and_it_can_be_opened_again) {
  const std::function<void()> closes[] = {[&] { ClickInBox(ID_cmdOK); }, [&] { lastForm->onEscape(); },
                                          [&] { lastForm->Close(); }};
  Open();
  size_t opened = 1;
  for (const auto& close : closes) {
    close();
    EXPECT_FALSE(lastForm->Visible());
    form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
    EXPECT_EQ(newForms.size(), ++opened);
    EXPECT_TRUE(lastForm->Visible());
  }
}

TEST_F(AboutBoxTest, OK_is_first_in_tab_order_so_that_Enter_presses_it) {
  Open();
  EXPECT_EQ(lastForm->Order().front(), ID_cmdOK);
}

TEST_F(AboutBoxTest, Its_button_starts_the_system_information) {
  system.registry[L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO|PATH"] = L"C:\\msinfo32.exe";
  Open();
  EXPECT_EQ(lastForm->Get<ui::MemoryButton>(ID_cmdSysInfo).Caption(), L"&System Info...");
  ClickInBox(ID_cmdSysInfo);
  EXPECT_EQ(processes.commandLines, Lines{L"\"C:\\msinfo32.exe\""});
}

TEST_F(AboutBoxTest, It_owns_its_message_box_and_is_active_again_afterwards) {
  Open();
  form.Show();
  ui::MemoryForm* owner = nullptr;
  boxes.onShow = [&] { owner = screen.boxOwner; };
  ClickInBox(ID_cmdSysInfo);
  EXPECT_EQ(boxes.Texts(), Lines{L"Cannot display the system information"});
  EXPECT_EQ(owner, lastForm);
  EXPECT_EQ(screen.active, lastForm);
}

TEST_F(AboutBoxTest, With_the_built_in_Japanese_texts_its_button_is_Japanese) {
  Start(L"-LANGID 0 -PING_N");
  form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
  EXPECT_EQ(lastForm->Get<ui::MemoryButton>(ID_cmdSysInfo).Caption(), L"ｼｽﾃﾑ情報(&S)...");
}

TEST_F(AboutBoxTest, At_100_and_150_percent_scaling_no_controls_overlap_or_are_cut_off) {
  Open();
  for (const int dpi : {96, 144}) {
    lastForm->dpi = dpi;
    lastForm->onScalingChanged();
    const auto bounds = [this](int id) {
      return dynamic_cast<ui::Control&>(lastForm->Get<ui::Element>(id)).Bounds();
    };
    const ui::Size client = lastForm->ClientSize();
    for (const int a : lastForm->Order()) {
      const ui::Rect one = bounds(a);
      EXPECT_GE(one.x, 0);
      EXPECT_LE(one.x + one.width, client.width) << a;
      EXPECT_LE(one.y + one.height, client.height) << a;
      for (const int b : lastForm->Order()) {
        const ui::Rect other = bounds(b);
        const bool apart = one.x + one.width <= other.x || other.x + other.width <= one.x ||
                           one.y + one.height <= other.y || other.y + other.height <= one.y;
        EXPECT_TRUE(a == b || apart) << a << " and " << b;
      }
    }
  }
}

TEST_F(AboutBoxTest, Shut_down_creates_a_box_that_was_never_opened_and_destroys_it) {
  Start();
  EXPECT_TRUE(newForms.empty());
  ASSERT_TRUE(form.Close());
  EXPECT_EQ(newForms, Lines{L"frmAbout"});
  EXPECT_EQ(Existing(), 0);
}

TEST_F(AboutBoxTest, Shut_down_creates_no_second_box) {
  Open();
  ClickInBox(ID_cmdOK);
  ASSERT_TRUE(form.Close());
  EXPECT_EQ(newForms.size(), 1U);
  EXPECT_EQ(Existing(), 0);
}

TEST_F(AboutBoxTest, Shut_down_continues_when_the_box_cannot_be_created) {
  failNewForms = true;
  Start();
  ASSERT_TRUE(form.Close());
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(AboutBoxTest, A_box_that_cannot_be_created_is_reported) {
  failNewForms = true;
  Start();
  form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
  ASSERT_EQ(boxes.boxes.size(), 1U);
  EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
}

}  // namespace
}  // namespace tarvik::test
