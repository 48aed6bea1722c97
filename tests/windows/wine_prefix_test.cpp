#include "lab/pc/wine_prefix.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "lab/host/process_states.h"
#include "lab/pc/test_environment.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

/// The write time of a master's shared folders while no program has changed them.
const fs::file_time_type kUntouched = std::chrono::file_clock::from_sys(std::chrono::sys_seconds{});

std::string TextOf(const fs::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// Prefixes of a master without Wine: the files that a copy needs, and one program in each system folder.
class WinePrefixes : public testing::Test {
 protected:
  WinePrefixes() {
    fs::create_directories(master_ / "drive_c/users/user");
    AddProgram(master_ / "drive_c/windows/system32");
    AddProgram(shared_ / "syswow64");
    fs::create_directory(shared_ / "winsxs");
    for (const char* const folder : {"syswow64", "winsxs"}) fs::last_write_time(shared_ / folder, kUntouched);
  }

  static void AddProgram(const fs::path& folder) {
    fs::create_directories(folder);
    std::ofstream(folder / "notepad.exe") << "Windows";
  }
  std::unique_ptr<WinePrefix> NewPrefix() {
    return std::make_unique<WinePrefix>(cache_.Path(), WindowsLanguage::English, 96);
  }
  static std::string Notepad(const WinePrefix& prefix, const char* system) {
    return TextOf(prefix.Folder() + "/drive_c/windows/" + system + "/notepad.exe");
  }

  TempDirectory cache_{PcForTests().cacheFolder};
  fs::path master_ = cache_.Path() + "/master-en_US.UTF-8/prefix";
  fs::path shared_ = cache_.Path() + "/master-en_US.UTF-8/shared";
};

TEST_F(WinePrefixes, A_program_is_replaced_in_one_only) {
  const std::string replacement = cache_.Path() + "/replacement";
  std::ofstream(replacement) << "replaced";
  const auto prefix = NewPrefix();
  const auto other = NewPrefix();
  prefix->ReplaceProgram("notepad.exe", replacement);
  for (const char* const system : {"system32", "syswow64"}) {
    EXPECT_EQ(Notepad(*prefix, system), "replaced");
    EXPECT_EQ(Notepad(*other, system), "Windows");
    EXPECT_EQ(Notepad(*NewPrefix(), system), "Windows");
  }
}

TEST_F(WinePrefixes, Share_the_folders_that_no_program_changes) {
  const auto prefix = NewPrefix();
  for (const char* const folder : {"syswow64", "winsxs"})
    EXPECT_TRUE(fs::is_symlink(prefix->Folder() + "/drive_c/windows/" + folder)) << folder;
}

TEST_F(WinePrefixes, A_changed_folder_is_not_shared) {
  std::ofstream(shared_ / "syswow64/new.dll") << "left by a test";
  EXPECT_THROW(NewPrefix(), LabError);
}

TEST_F(WinePrefixes, A_missing_folder_is_reported) {
  fs::remove_all(shared_ / "winsxs");
  EXPECT_THROW(NewPrefix(), LabError);
}

TEST_F(WinePrefixes, Their_programs_end_with_them_even_those_that_ignore_signals) {
  auto prefix = NewPrefix();
  Process::Options options;
  options.environment = prefix->Variables();
  Process program({"sh", "-c", "trap '' INT TERM; echo ready; exec cat"}, options);
  ASSERT_EQ(program.ReadLine(std::chrono::seconds(60)), "ready");
  const std::string variable = "WINEPREFIX=" + prefix->Folder();
  ASSERT_EQ(ProcessesWith(variable).size(), 1U);
  prefix.reset();
  EXPECT_TRUE(ProcessesWith(variable).empty());
}

}  // namespace
}  // namespace tarvik::lab
