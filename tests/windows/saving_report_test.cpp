// Saving a report in the save dialog of Windows.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

constexpr int kNameField = 0x47C;  ///< cmb13 of the dialog

class SavingReport : public WindowsTest<SavingReport> {
 protected:
  void SetUp() override {
    WindowsTest::SetUp();
    if (IsSkipped()) return;
    fs::create_directory(Folder());
  }

  std::string Folder() const { return directory_.Path() + "/レポート"; }

  /// Opens the dialog by its key and presses Save with that name. Returns the dialog.
  WindowUnderTest SaveAs(const WindowUnderTest& window, const std::string& name) {
    window.Press("Ctrl+S");
    const WindowUnderTest dialog(Pc(), Program().WaitForBox().handle);
    dialog.SetText(kNameField, name);
    dialog.Press("Enter");
    return dialog;
  }

  bool WaitForFile(const std::string& name, const std::string& beginning) const {
    return WaitUntil(kSoon, [&] {
      std::ifstream file(Folder() + "/" + name, std::ios::binary);
      std::stringstream bytes;
      bytes << file.rdbuf();
      return bytes.str().starts_with(beginning);
    });
  }

  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(Folder())) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

 private:
  TempDirectory directory_{PcForTests().cacheFolder};
};

constexpr char kHtmlBegins[] = "<!DOCTYPE html";
constexpr char kTextBegins[] = "\xEF\xBB\xBF";

TEST_F(SavingReport, In_a_Japanese_folder_which_later_dialogs_begin_with) {
  const WindowUnderTest window = Start("-LANGID 1 -X 0");
  SaveAs(window, WindowsPath(Folder()) + "\\結果.html");
  EXPECT_TRUE(WaitForFile("結果.html", kHtmlBegins));
  window.WaitForText(ID_lblAnswer, "Saved: 結果.html");
  SaveAs(window, "b.txt");
  EXPECT_TRUE(WaitForFile("b.txt", kTextBegins));
  window.WaitForText(ID_lblAnswer, "Saved: b.txt");
  EXPECT_EQ(Files(), (std::vector<std::string>{"b.txt", "結果.html"}));
  EXPECT_EQ(Pc().RegistryText("Software\\NORVAX_FN_PingUtil\\Report", "Folder"), std::nullopt);
}

TEST_F(SavingReport, Cancel_does_nothing_and_the_focus_returns) {
  const WindowUnderTest window = Start("-LANGID 1 -X 0");
  window.SetFocus(ID_txtPingReqCount);
  window.Press("Ctrl+S");
  const BoxUnderTest dialog = Program().WaitForBox();
  EXPECT_FALSE(window.Enabled(0));
  EXPECT_TRUE(WindowUnderTest(Pc(), dialog.handle).Text(kNameField).starts_with("Tarvik"));
  window.Close();
  Program().Answer(dialog, BoxButton::Cancel);
  window.WaitForFocus(ID_txtPingReqCount);
  EXPECT_TRUE(window.Enabled(0));
  EXPECT_EQ(window.Text(ID_lblAnswer), "");
  EXPECT_EQ(Files(), std::vector<std::string>{});
}

TEST_F(SavingReport, Every_window_of_the_program_waits_for_the_dialog) {
  const WindowUnderTest window = Start();
  window.InvokeCommand(ID_mnuHelpSub);
  const WindowUnderTest about = Program().WaitForWindow("frmAbout");
  window.InvokeCommand(ID_mnuSaveReport);
  const BoxUnderTest dialog = Program().WaitForBox();
  EXPECT_FALSE(about.Enabled(0));
  about.Close();
  Program().Answer(dialog, BoxButton::Cancel);
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return about.Enabled(0); }));
  EXPECT_TRUE(about.Visible(0));
}

TEST_F(SavingReport, A_place_that_cannot_be_written_is_reported_once_and_keeps_what_is_there) {
  const WindowUnderTest window = Start("-LANGID 1 -X 0");
  std::ofstream(Folder() + "/a.html") << "old";
  // In the way of the file that is written first.
  for (const char* const name : {"~Tarvik.tmp", "~Tarvik2.tmp", "~Tarvik3.tmp"})
    fs::create_directory(Folder() + "/" + name);
  const WindowUnderTest dialog = SaveAs(window, WindowsPath(Folder()) + "\\a.html");
  BoxUnderTest box;
  EXPECT_TRUE(WaitUntil(kSoon, [&] {
    box = Program().WaitForBox();
    return box.handle != dialog.Handle();
  }));
  EXPECT_NE(box.text.find("already exists"), std::string::npos) << box.text;
  Program().Answer(box, BoxButton::Yes);
  dialog.WaitUntilGone();
  box = Program().WaitForBox();
  EXPECT_EQ(box.text,
            "The report was not saved (error 80).\r\n"
            "The folder already has files named ~Tarvik.tmp, ~Tarvik2.tmp and ~Tarvik3.tmp. "
            "Delete them, or save in another folder.");
  EXPECT_EQ(box.icon, "exclamation");
  Program().Answer(box, BoxButton::Ok);
  EXPECT_EQ(window.Text(ID_lblAnswer), "");
  EXPECT_TRUE(WaitForFile("a.html", "old"));
}

}  // namespace
}  // namespace tarvik::lab
