#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

using LanguageFiles = ProgramCopy::LanguageFiles;

/// Starts the program, which must show one message box before its window appears.
template <typename Suite>
class StartUpBoxTest : public WindowsTest<Suite> {
 protected:
  WindowUnderTest StartAndAnswer(const std::string& text, const std::string& program) {
    this->StartOnly({}, program);
    const BoxUnderTest box = this->Program().WaitForBox(2 * kSoon);
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.icon, "none");
    EXPECT_EQ(box.buttons.size(), 1u);
    EXPECT_FALSE(this->Program().HasWindow("Form1"));
    this->Program().Answer(box, BoxButton::Ok);
    return WaitForMainWindow(this->Program());
  }
};

WindowsPc::Options WithoutBench(WindowsLanguage language) {
  WindowsPc::Options options = PcForTests();
  options.programPath.clear();
  options.language = language;
  return options;
}

class AbsentConfigurationLibrary : public StartUpBoxTest<AbsentConfigurationLibrary> {
 public:
  static WindowsPc::Options Options() { return WithoutBench(WindowsLanguage::English); }
};

TEST_F(AbsentConfigurationLibrary, Is_reported_and_the_program_is_still_usable) {
  const ProgramCopy copy(LanguageFiles::Beside);
  const WindowUnderTest window = StartAndAnswer("GetCommonDataFolder2 Error", copy.Path());
  EXPECT_EQ(window.Text(0), "Tarvik - Ethernet diagnosis for Obry");
  EXPECT_EQ(window.Text(ID_cmdPing), "&Ping");
  EXPECT_EQ(window.LineCount(ID_lstResult), 6);
  window.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0u);
}

class AbsentConfigurationLibraryInJapan : public StartUpBoxTest<AbsentConfigurationLibraryInJapan> {
 public:
  static WindowsPc::Options Options() { return WithoutBench(WindowsLanguage::Japanese); }
};

TEST_F(AbsentConfigurationLibraryInJapan, Leaves_the_choice_of_language_to_Windows) {
  const ProgramCopy copy(LanguageFiles::Beside);
  const WindowUnderTest window = StartAndAnswer("GetCommonDataFolder2 Error", copy.Path());
  EXPECT_EQ(window.Text(0), "Tarvik - Obry Ethernet診断");
}

class FailingFolderQuery : public StartUpBoxTest<FailingFolderQuery> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.environment["TARVIK_BENCH_LANGUAGE"] = "1041";
    options.environment["TARVIK_BENCH_FOLDER_RESULT"] = "-1";
    return options;
  }
};

TEST_F(FailingFolderQuery, Is_reported_and_the_returned_folder_is_used) {
  const WindowUnderTest window = StartAndAnswer("GetCommonDataFolder2 Error", ProgramPath());
  EXPECT_EQ(window.Text(0), "Tarvik - Obry Ethernet診断");
}

TEST_F(FailingFolderQuery, The_message_box_does_not_keep_Windows_from_shutting_down) {
  StartOnly();
  const BoxUnderTest box = Program().WaitForBox(2 * kSoon);
  EXPECT_TRUE(Program().SessionMayEnd());
  // Windows usually ends the process now. If it goes on, it must still work.
  Program().EndSession();
  Program().Answer(box, BoxButton::Ok);
  WaitForMainWindow(Program()).Close();
  EXPECT_EQ(Program().WaitForEnd(), 0u);
}

class AbsentLanguageFiles : public StartUpBoxTest<AbsentLanguageFiles> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.environment["TARVIK_BENCH_LANGUAGE"] = "1041";
    return options;
  }
};

TEST_F(AbsentLanguageFiles, Are_reported_with_both_paths_and_captions_are_numbers_in_brackets) {
  const ProgramCopy copy(LanguageFiles::Absent);
  const std::string file = WindowsPath(copy.Folder()) + "\\Language\\Tarvik.exe_";
  const WindowUnderTest window = StartAndAnswer(
      "Loading language data is failed\r\n"
      "Resource:Initialize\r\n"
      "No such file (" +
          file +
          "1041.ini)\r\n"
          "No such file (" +
          file +
          "1033.ini)\r\n"
          "Cannot open message file\r\n",
      copy.Path());
  EXPECT_EQ(window.Text(0), "(0)");
  EXPECT_EQ(window.Text(ID_lblIPAddr), "(8)");
  EXPECT_EQ(window.Text(ID_cmdPing), "(10)");
  EXPECT_EQ(window.StateOfTabs(ID_tabMode).captions, (std::vector<std::string>{"(3)", "(4)", "(7)"}));
}

}  // namespace
}  // namespace tarvik::lab
