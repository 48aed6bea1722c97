#include <filesystem>

#include "lab/host/leftovers.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

using Captions = std::vector<std::string>;

constexpr char kJapaneseTitle[] = "Tarvik - Obry Ethernet診断";
constexpr char kJapaneseGetInfo[] = "NC情報取得(&G)";

class EnglishCaptions : public WindowsTest<EnglishCaptions> {};

TEST_F(EnglishCaptions, The_family_edition_shows_three_pages_with_the_first_in_front) {
  const WindowUnderTest window = Start();
  const WindowUnderTest::Tabs tabs = window.StateOfTabs(ID_tabMode);
  EXPECT_EQ(tabs.captions, (Captions{"Ping(&1)", "NEXAL2(&2)", "Ftp(&5)"}));
  EXPECT_EQ(tabs.front, 0);
  EXPECT_TRUE(window.Visible(ID_cmdPing));
  EXPECT_FALSE(window.Visible(ID_cmdGetInfo));
}

TEST_F(EnglishCaptions, Each_page_shows_only_its_own_controls) {
  const WindowUnderTest window = Start();
  constexpr int kOfPage[] = {ID_cmdPing, ID_cmdGetInfo, ID_cmdFtpConnect};
  for (int page = 0; page < 3; ++page) {
    window.SelectTab(ID_tabMode, page);
    for (int other = 0; other < 3; ++other) EXPECT_EQ(window.Visible(kOfPage[other]), other == page);
    EXPECT_TRUE(window.Visible(ID_lstResult));
  }
}

TEST_F(EnglishCaptions, The_Japanese_file_is_read_in_code_page_932) {
  const WindowUnderTest window = Start("-LOCALEID 1041 -X 0");
  EXPECT_EQ(window.Text(0), kJapaneseTitle);
  EXPECT_EQ(window.Text(ID_cmdGetInfo), kJapaneseGetInfo);
}

TEST_F(EnglishCaptions, A_locale_without_a_file_falls_back_to_English) {
  EXPECT_EQ(Start("-LOCALEID 1031 -X 0").Text(ID_lblIPAddr), "IP address or host &name:");
}

class JapaneseCaptions : public WindowsTest<JapaneseCaptions> {
 public:
  static WindowsPc::Options Options() { return JapanesePcForTests(); }
};

TEST_F(JapaneseCaptions, Come_from_the_Japanese_language_file) {
  const WindowUnderTest window = Start();
  EXPECT_EQ(window.Text(0), kJapaneseTitle);
  EXPECT_EQ(window.Text(ID_cmdGetInfo), kJapaneseGetInfo);
  EXPECT_EQ(window.Text(ID_cmdAllTest), "全ﾃｽﾄ(&A)");
}

TEST_F(JapaneseCaptions, LOCALEID_selects_English) {
  const WindowUnderTest window = Start("-LOCALEID 1033 -X 0");
  EXPECT_EQ(window.Text(0), "Tarvik - Ethernet diagnosis for Obry");
  EXPECT_EQ(window.Text(ID_cmdGetInfo), "&Get CNC Info.");
}

template <typename Suite>
class GeneralEditionTest : public WindowsTest<Suite> {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(GeneralProgramPath())) {
      GTEST_SKIP() << GeneralProgramPath() << " does not exist";
    }
    WindowsTest<Suite>::SetUp();
  }

  /// Throws LabError when a message box appears.
  WindowUnderTest StartGeneral() {
    this->StartOnly({}, GeneralProgramPath());
    return WaitForMainWindow(this->Program());
  }
};

class GeneralEdition : public GeneralEditionTest<GeneralEdition> {
 public:
  /// A configuration library whose answers would be visible.
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.environment["TARVIK_BENCH_LANGUAGE"] = "1041";
    options.environment["TARVIK_BENCH_FOLDER_RESULT"] = "-1";
    // The general edition is always 32-bit.
    options.programPath = std::filesystem::path(PcForTests().programPath).parent_path() / "x86";
    return options;
  }
};

TEST_F(GeneralEdition, Shows_five_pages_and_does_not_call_the_configuration_library) {
  const WindowUnderTest window = StartGeneral();
  EXPECT_EQ(window.StateOfTabs(ID_tabMode).captions,
            (Captions{"Ping(&1)", "NEXAL2(&2)", "K7 Api(&3)", "K7 Svc(&4)", "Ftp(&5)"}));
  EXPECT_EQ(window.Text(0), "Tarvik - Ethernet diagnosis for Obry");
}

class GeneralEditionAlone : public GeneralEditionTest<GeneralEditionAlone> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.programPath.clear();
    return options;
  }
};

TEST_F(GeneralEditionAlone, Shows_the_pages_that_need_no_closed_library) {
  const WindowUnderTest window = StartGeneral();
  EXPECT_EQ(window.StateOfTabs(ID_tabMode).captions, (Captions{"Ping(&1)", "Ftp(&5)"}));
  EXPECT_EQ(window.Text(0), "Tarvik - Ethernet diagnosis for Obry");
}

/// The general edition has its language files in its own folder.
TEST_F(GeneralEditionAlone, Has_its_captions_in_a_folder_that_the_code_page_cannot_represent) {
  const TempDirectory folder(PcForTests().cacheFolder);
  const std::filesystem::path odd = folder.Path() + "/日本 ไทย";
  std::filesystem::copy(std::filesystem::path(GeneralProgramPath()).parent_path(), odd,
                        std::filesystem::copy_options::recursive);
  StartOnly({}, odd / "Tarvik.exe");
  const WindowUnderTest window = WaitForMainWindow(Program());
  EXPECT_EQ(window.Text(0), "Tarvik - Ethernet diagnosis for Obry");
  EXPECT_EQ(window.Text(ID_lblIPAddr), "IP address or host &name:");
}

class JapaneseGeneralEdition : public GeneralEditionTest<JapaneseGeneralEdition> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = JapanesePcForTests();
    options.programPath.clear();
    return options;
  }
};

TEST_F(JapaneseGeneralEdition, Takes_its_language_from_Windows) {
  EXPECT_EQ(StartGeneral().Text(0), kJapaneseTitle);
}

}  // namespace
}  // namespace tarvik::lab
