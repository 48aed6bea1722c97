// The portable archive and what describes the packages. Setup programs have tests of their own.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <regex>
#include <set>
#include <sstream>

#include "lab/pc/test_environment.h"
#include "resources/version.h"
#include "tests/packaging/packages.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;

size_t CountOf(const std::string& text, const std::string& part) {
  size_t count = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

constexpr size_t kBuildTime = 0x08;
constexpr size_t kBaseAddress = 0x34;

/// A number in the header of a 32-bit program for Windows, or of the first part of a 64-bit one's.
uint32_t NumberInHeader(const std::string& program, size_t offset) {
  const auto number = [&program](size_t at) {
    uint32_t value = 0;
    for (size_t i = 0; i < sizeof value; ++i)
      value |= static_cast<uint32_t>(static_cast<unsigned char>(program.at(at + i))) << 8 * i;
    return value;
  };
  constexpr size_t kHeaderOffset = 0x3C;
  return number(number(kHeaderOffset) + offset);
}

class PackageFiles : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    unsupportedReason_ = PackagingUnsupportedReason();
    if (!unsupportedReason_) packages_ = std::make_unique<Packages>();
  }
  static void TearDownTestSuite() { packages_.reset(); }
  void SetUp() override {
    if (unsupportedReason_) GTEST_SKIP() << *unsupportedReason_;
  }

  static const Packages& Made() { return *packages_; }
  static Names NamesInArchive() {
    std::istringstream list(lab::Run({"unzip", "-Z1", Made().Portable()}).output);
    Names names;
    for (std::string name; std::getline(list, name);) names.insert(name);
    return names;
  }

 private:
  static inline std::optional<std::string> unsupportedReason_;
  static inline std::unique_ptr<Packages> packages_;
};

TEST_F(PackageFiles, Have_the_version_number_of_the_build) {
  Names names;
  for (const auto& entry : fs::directory_iterator(Made().Folder())) names.insert(entry.path().filename());
  EXPECT_EQ(names, (Names{"CONTENTS.txt", "SHA256SUMS", "Tarvik-" TARVIK_VERSION_TEXT "-portable.zip",
                          "Tarvik-" TARVIK_VERSION_TEXT "-setup.exe"}));
  std::string version;
  for (const char character : std::string(TARVIK_VERSION_TEXT)) version += {character, '\0'};
  EXPECT_NE(BytesOfFile(Made().Setup()).find(version), std::string::npos);
}

TEST_F(PackageFiles, Contain_the_programs_and_nothing_of_the_bench) {
  Names expected = {"START-HERE.txt", "LICENSE.txt"};
  for (const char* const folder : {"", "other/general-edition/", "other/64-bit/"}) {
    for (const char* const name :
         {"Tarvik.exe", "Language/Tarvik.exe_1033.ini", "Language/Tarvik.exe_1041.ini"})
      expected.insert(std::string(folder) + name);
  }
  if (fs::exists(SourcePath("out/WindowsCheck/WindowsCheck.exe"))) expected.insert("other/WindowsCheck.exe");
  Names found = NamesInArchive();
  std::erase_if(found, [](const std::string& name) { return name.starts_with("Guides/"); });
  EXPECT_EQ(found, expected);
  EXPECT_EQ(BytesOfFile(Made().Unpack() + "/Tarvik.exe"), BytesOfFile(SourcePath("out/x86/Tarvik.exe")));
}

TEST_F(PackageFiles, Contain_the_listed_guides_whose_links_lead_somewhere) {
  const Names names = NamesInArchive();
  const std::regex link("href=\"([^\"#:]*)(#([^\"]+))?\"");
  for (const std::string& guide : LinesOfFile(SourcePath("packaging/guides"))) {
    fs::path page = "Guides" / fs::path(guide).lexically_relative("docs");
    if (page.extension() != ".md") {
      EXPECT_TRUE(names.count(page)) << page;
      continue;
    }
    page.replace_extension(".html");
    ASSERT_TRUE(names.count(page)) << page;
    const std::string text = BytesOfFile(Made().Unpack() + "/" + page.string());
    EXPECT_NE(text.find("<meta charset=\"utf-8\">"), std::string::npos);
    EXPECT_EQ(CountOf(text, "<img src=\"data:image/png;base64,iVBOR"),
              CountOf(BytesOfFile(SourcePath(guide)), "](pictures/"))
        << page;
    EXPECT_EQ(CountOf(text, "<img "), CountOf(text, "<img src=\"data:")) << page;
    for (auto at = std::sregex_iterator(text.begin(), text.end(), link); at != std::sregex_iterator(); ++at) {
      const std::string file = (*at)[1];
      const std::string anchor = (*at)[3];
      if (!file.empty()) EXPECT_TRUE(names.count((page.parent_path() / file).lexically_normal())) << file;
      if (file.empty()) EXPECT_NE(text.find("id=\"" + anchor + "\""), std::string::npos) << anchor;
    }
  }
}

TEST_F(PackageFiles, Have_plain_texts_that_any_Notepad_can_show) {
  const std::string folder = Made().Unpack() + "/";
  for (const char* const name :
       {"START-HERE.txt", "Guides/where-did-it-stop.en.txt", "Guides/where-did-it-stop.ja.txt"}) {
    const std::string text = BytesOfFile(folder + name);
    EXPECT_TRUE(text.starts_with("\xEF\xBB\xBF")) << name;
    EXPECT_GT(std::count(text.begin(), text.end(), '\n'), 0) << name;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), std::count(text.begin(), text.end(), '\r')) << name;
  }
  const std::string text = BytesOfFile(folder + "START-HERE.txt");
  EXPECT_NE(text.find("Double-click Tarvik.exe.", 0), std::string::npos);
  EXPECT_NE(text.find("ダブルクリック", 0), std::string::npos);
}

TEST_F(PackageFiles, Are_listed_with_their_checksums) {
  Process::Options options;
  options.workingFolder = Made().Folder();
  const Finished checked = lab::Run({"sha256sum", "--strict", "-c", "SHA256SUMS"}, options);
  EXPECT_EQ(checked.exitCode, 0) << checked.output;
  EXPECT_EQ(std::count(checked.output.begin(), checked.output.end(), '\n'), 3);
  const std::string contents = BytesOfFile(Made().Folder() + "/CONTENTS.txt");
  const std::string sum = lab::Run({"sha256sum", SourcePath("out/x86/Tarvik.exe")}).output.substr(0, 64);
  EXPECT_NE(contents.find(sum), std::string::npos) << contents;
  for (const std::string& name : NamesInArchive()) EXPECT_NE(contents.find(name), std::string::npos) << name;
}

TEST_F(PackageFiles, Are_not_made_in_a_folder_with_other_files) {
  const TempDirectory folder(PcForTests().cacheFolder);
  const std::string file = folder.Path() + "/work.txt";
  std::ofstream(file) << "a user's work";
  Process::Options options;
  options.workingFolder = folder.Path();
  const Finished made = lab::Run({SourcePath("packaging/make-packages"), "."}, options);
  EXPECT_NE(made.exitCode, 0);
  EXPECT_TRUE(fs::exists(file)) << made.output;
}

TEST_F(PackageFiles, Are_the_same_whoever_makes_them_and_where) {
  const Packages other({{"TZ", "Asia/Tokyo"}, {"LC_ALL", "ja_JP.UTF-8"}, {"HOME", Made().Folder()}});
  const Finished difference = lab::Run({"diff", "-r", Made().Folder(), other.Folder()});
  EXPECT_EQ(difference.exitCode, 0) << difference.output;
  // Packages made in another folder, later, are the same only if the programs are, and what the Windows check
  // carries: they know neither their folder nor the time.
  for (const char* const name :
       {"x86/Tarvik.exe", "x86-general/Tarvik.exe", "x64/Tarvik.exe", "WindowsCheck/WindowsCheck.exe",
        "x86/window_driver.exe", "x86/planted/planted.dll", "bench/x86/NxLib32.dll",
        "bench/x86/K7Server.exe"}) {
    const std::string program = BytesOfFile(SourcePath("out/") + name);
    EXPECT_EQ(program.find(SourcePath("")), std::string::npos) << name;
    EXPECT_EQ(NumberInHeader(program, kBuildTime), 0U) << name;
  }
  for (const char* const library : {"bench/x86/NxLib32.dll", "x86/planted/planted.dll"}) {
    const std::string bytes = BytesOfFile(SourcePath("out/") + library);
    EXPECT_EQ(NumberInHeader(bytes, kBaseAddress), 0x10000000U) << library;
  }
}

}  // namespace
}  // namespace tarvik::lab
