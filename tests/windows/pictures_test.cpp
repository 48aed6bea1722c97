// Compares the client areas of the shipped program's pages, and of the PMC window, with stored pictures. What
// would differ from machine to machine is not in them: neither times nor versions nor names of hosts. To
// store new ones: ./pictures tests

#include <filesystem>

#include "lab/pc/picture.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

/// The least that may differ: a letter of the smallest text. Equal programs give equal pictures.
constexpr int kMaxDifferentPixels = 30;

/// Set by ./pictures: stores what is seen instead of comparing it.
bool Storing() { return !EnvironmentValue("TARVIK_STORE_PICTURES").empty(); }

void ExpectPicture(const WindowsPc& pc, const WindowUnderTest& window, const std::string& name) {
  const std::string stored = TARVIK_SOURCE_FOLDER "/tests/windows/pictures/" + name + ".png";
  if (Storing()) return TakePicture(pc, stored, window.ClientRect(0));
  const std::string folder = TARVIK_SOURCE_FOLDER "/out/pictures/";
  fs::create_directories(folder);
  const std::string machine = fs::path(ProgramPath()).parent_path().filename();
  const std::string seen = folder + name + "." + machine + ".png";
  const std::string difference = folder + name + "." + machine + ".difference.png";
  ASSERT_TRUE(fs::exists(stored)) << stored << " is missing: store it with ./pictures tests";
  std::optional<int> pixels;
  // The program may still draw.
  const bool same = WaitUntil(kSoon, [&] {
    pc.Screen().Screenshot(seen, window.ClientRect(0));
    pixels = DifferentPixels(seen, stored, difference);
    return pixels && *pixels <= kMaxDifferentPixels;
  });
  if (same) {
    fs::remove(seen);
    fs::remove(difference);
    return;
  }
  EXPECT_TRUE(same) << name << ": "
                    << (pixels ? std::to_string(*pixels) + " pixels differ, in red in " + difference
                               : "the size differs")
                    << "; seen: " << seen << ", expected: " << stored
                    << ". If it is meant to look like this, store it with ./pictures tests";
}

struct Look {
  WindowsLanguage language;
  int dpi;

  std::string Suffix() const {
    return std::string(language == WindowsLanguage::Japanese ? ".ja" : ".en") + (dpi == 96 ? ".100" : ".150");
  }
};

/// Shows `tabs` of the program in turn, after a run whose result is the same everywhere: nothing listens on
/// the library's port.
void ExpectPages(WindowsPc& pc, const Look& look, const std::string& path,
                 const std::vector<std::pair<int, std::string>>& tabs, bool withPmc) {
  ProgramUnderTest program(pc, path, "-NXLIB_TMOUT 1 -X");
  const WindowUnderTest window = WaitForMainWindow(program);
  window.SetText(ID_cmbIPAddr, "127.0.0.1");
  window.SelectTab(ID_tabMode, 1);
  ClickAndFollow(program, window, ID_cmdGetInfo, std::chrono::seconds(60));
  PoseForPicture(window, ID_lstResult);
  for (const auto& [tab, name] : tabs) {
    window.SelectTab(ID_tabMode, tab);
    window.SetFocus(ID_lstResult);
    ExpectPicture(pc, window, name + look.Suffix());
  }
  if (!withPmc) return;
  window.InvokeCommand(ID_mnuPMC);
  const WindowUnderTest pmc = program.WaitForWindow("frmPmcTest");
  PoseForPicture(pmc, ID_cmdRead);
  ExpectPicture(pc, pmc, "pmc" + look.Suffix());
}

void ExpectPictures(const Look& look) {
  if (const auto reason = WindowsUnsupportedReason()) GTEST_SKIP() << *reason;
  WindowsPc::Options options = PcForTests();
  options.themed = true;
  WindowsPc pc(PictureOptions(options, look.language, look.dpi));
  PrepareForPictures(pc, look.language);
  ExpectPages(pc, look, ProgramPath(), {{0, "ping"}, {1, "nexal2"}, {2, "ftp"}}, true);
  // There is no general edition of the 64-bit program.
  if (fs::path(ProgramPath()).parent_path().filename() != "x86") return;
  ExpectPages(pc, look, GeneralProgramPath(), {{2, "k7-api"}, {3, "k7-svc"}}, false);
}

TEST(Pictures, In_English_at_100_percent_are_as_stored) { ExpectPictures({WindowsLanguage::English, 96}); }
TEST(Pictures, In_English_at_150_percent_are_as_stored) { ExpectPictures({WindowsLanguage::English, 144}); }
TEST(Pictures, In_Japanese_at_100_percent_are_as_stored) { ExpectPictures({WindowsLanguage::Japanese, 96}); }
TEST(Pictures, In_Japanese_at_150_percent_are_as_stored) { ExpectPictures({WindowsLanguage::Japanese, 144}); }

}  // namespace
}  // namespace tarvik::lab
