#include "lab/pc/wine_prefix.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "lab/host/process_states.h"
#include "lab/pc/test_environment.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 2> kSharedFolders = {"syswow64", "winsxs"};

/// The write time of a master's shared folders while no program has changed them.
const fs::file_time_type kUntouched = std::chrono::file_clock::from_sys(std::chrono::sys_seconds{});

std::string TextOf(const fs::path& file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void Write(const fs::path& file, const char* text) { std::ofstream(file) << text; }

/// A shell script in place of wineboot.
class FakeWineboot {
 public:
  FakeWineboot(const std::string& folder, const std::string& script) {
    const fs::path file = folder + "/wineboot";
    Write(file, ("#!/bin/sh\n" + script).c_str());
    fs::permissions(file, fs::perms::owner_all);
    setenv("PATH", (folder + ":" + path_).c_str(), 1);
  }
  FakeWineboot(const FakeWineboot&) = delete;
  FakeWineboot& operator=(const FakeWineboot&) = delete;
  ~FakeWineboot() { setenv("PATH", path_.c_str(), 1); }

 private:
  std::string path_ = std::getenv("PATH");
};

/// Prefixes of a master without Wine: the files that a copy needs, and one program in each system folder.
class WinePrefixes : public testing::Test {
 protected:
  WinePrefixes() {
    fs::create_directories(master_ / "drive_c/users/user");
    AddProgram(master_ / "drive_c/windows/system32");
    AddProgram(shared_ / "syswow64");
    fs::create_directory(shared_ / "winsxs");
    for (const char* const folder : kSharedFolders) fs::last_write_time(shared_ / folder, kUntouched);
    for (const char* const hive : {"system.reg", "user.reg"})
      Write(master_ / hive, "WINE REGISTRY Version 2\n");
  }

  static void AddProgram(const fs::path& folder) {
    fs::create_directories(folder);
    Write(folder / "notepad.exe", "Windows");
  }
  std::unique_ptr<WinePrefix> NewPrefix() {
    return std::make_unique<WinePrefix>(cache_.Path(), WindowsLanguage::English, 96);
  }
  /// Deletes the master, so that a new one is created, which fails.
  std::string ErrorOfCreation() {
    fs::remove_all(master_.parent_path());
    try {
      NewPrefix();
      return "none";
    } catch (const std::exception& error) {
      return error.what();
    }
  }
  static std::string Notepad(const WinePrefix& prefix, const char* system) {
    return TextOf(prefix.Folder() + "/drive_c/windows/" + system + "/notepad.exe");
  }

  TempDirectory cache_{PcForTests().cacheFolder};
  fs::path master_ = cache_.Path() + "/master-en_US.UTF-8/prefix";
  fs::path shared_ = cache_.Path() + "/master-en_US.UTF-8/shared";
  std::string unfinished_ = cache_.Path() + "/master-en_US.UTF-8.new/prefix";
};

TEST_F(WinePrefixes, A_program_is_replaced_in_one_only) {
  const std::string replacement = cache_.Path() + "/replacement";
  Write(replacement, "replaced");
  const auto prefix = NewPrefix();
  const auto other = NewPrefix();
  prefix->ReplaceProgram("notepad.exe", replacement);
  for (const char* const system : {"system32", "syswow64"}) {
    EXPECT_EQ(Notepad(*prefix, system), "replaced");
    EXPECT_EQ(Notepad(*other, system), "Windows");
    EXPECT_EQ(Notepad(*NewPrefix(), system), "Windows");
  }
}

TEST_F(WinePrefixes, A_registry_value_is_set_in_one_only) {
  const auto prefix = NewPrefix();
  prefix->SetRegistryValue(WinePrefix::Hive::User, "Software\\Here", "Name", "\"user\"");
  prefix->SetRegistryValue(WinePrefix::Hive::System, "Software\\Here", "Name", "\"system\"");
  const auto other = NewPrefix();
  for (const char* const hive : {"system.reg", "user.reg"}) {
    EXPECT_NE(TextOf(fs::path(prefix->Folder()) / hive).find("[Software\\\\Here]"), std::string::npos)
        << hive;
    EXPECT_EQ(TextOf(fs::path(other->Folder()) / hive).find("Here"), std::string::npos) << hive;
  }
}

TEST_F(WinePrefixes, Each_has_its_own_Wine_server) {
  Write(master_ / "wineserver", "wine-of-the-master\n");
  EXPECT_FALSE(fs::exists(NewPrefix()->Folder() + "/wineserver"));
}

TEST_F(WinePrefixes, Share_the_folders_that_no_program_changes) {
  const auto prefix = NewPrefix();
  for (const char* const folder : kSharedFolders)
    EXPECT_TRUE(fs::is_symlink(prefix->Folder() + "/drive_c/windows/" + folder)) << folder;
}

TEST_F(WinePrefixes, A_changed_folder_is_not_shared) {
  for (const char* const folder : kSharedFolders) {
    ASSERT_NO_THROW(NewPrefix());
    Write(shared_ / folder / "new.dll", "left by a test");
    EXPECT_THROW(NewPrefix(), LabError) << folder;
    fs::last_write_time(shared_ / folder, kUntouched);
  }
}

TEST_F(WinePrefixes, A_missing_folder_is_reported) {
  for (const char* const folder : kSharedFolders) {
    ASSERT_NO_THROW(NewPrefix());
    fs::rename(shared_ / folder, shared_ / "elsewhere");
    EXPECT_THROW(NewPrefix(), fs::filesystem_error) << folder;
    fs::rename(shared_ / "elsewhere", shared_ / folder);
  }
}

TEST_F(WinePrefixes, A_failed_creation_is_reported_and_leaves_no_program) {
  const FakeWineboot wineboot(
      cache_.Path(), "sleep 60 >/dev/null &\nuntil grep -q sleep /proc/$!/cmdline; do :; done\nexit 7\n");
  EXPECT_EQ(ErrorOfCreation(), "Creating a Wine prefix: wineboot -i failed with 7");
  EXPECT_TRUE(ProcessesWith("WINEPREFIX=" + unfinished_).empty());
}

TEST_F(WinePrefixes, Programs_of_an_interrupted_creation_end_before_the_next_one) {
  Process::Options options;
  options.environment["WINEPREFIX"] = unfinished_;
  Process program({"sh", "-c", "echo ready; read line"}, options);
  ASSERT_EQ(program.ReadLine(std::chrono::seconds(60)), "ready");
  const std::string id = ProcessesWith("WINEPREFIX=" + unfinished_).at(0);
  // A killed process has no environment, even before its parent has noticed.
  const FakeWineboot wineboot(cache_.Path(),
                              "grep -q WINEPREFIX /proc/" + id + "/environ && exit 1\nexit 7\n");
  EXPECT_EQ(ErrorOfCreation(), "Creating a Wine prefix: wineboot -i failed with 7");
}

TEST_F(WinePrefixes, Their_programs_end_with_them_even_those_that_ignore_signals) {
  auto prefix = NewPrefix();
  Process::Options options;
  options.environment = prefix->Variables();
  Process program({"sh", "-c", "trap '' INT TERM; echo ready; read line"}, options);
  ASSERT_EQ(program.ReadLine(std::chrono::seconds(60)), "ready");
  const std::string variable = "WINEPREFIX=" + prefix->Folder();
  ASSERT_EQ(ProcessesWith(variable).size(), 1U);
  prefix.reset();
  EXPECT_TRUE(ProcessesWith(variable).empty());
}

}  // namespace
}  // namespace tarvik::lab
