// Properties of the shipped program's file.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "lab/pc/test_environment.h"
#include "resources/version.h"

namespace tarvik::lab {
namespace {

constexpr int kIcon = 14;
constexpr int kVersion = 16;
constexpr int kManifest = 24;

/// Reads the headers of a portable executable. Throws std::out_of_range for offsets outside the file.
class ProgramFile {
 public:
  explicit ProgramFile(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(stream), {});
    header_ = Number32(0x3C);
    optional_ = header_ + 24;
    is64Bit_ = Number16(optional_) == 0x20B;
  }

  size_t Size() const { return bytes_.size(); }
  bool Is64Bit() const { return is64Bit_; }
  bool IsExecutable() const { return bytes_.substr(header_, 4) == std::string("PE\0\0", 4); }
  uint32_t Timestamp() const { return Number32(header_ + 8); }
  uint32_t Characteristics() const { return Number16(optional_ + 70); }
  // Versions: major version in the upper half.
  uint32_t SystemVersion() const { return Number16(optional_ + 40) << 16 | Number16(optional_ + 42); }
  uint32_t SubsystemVersion() const { return Number16(optional_ + 48) << 16 | Number16(optional_ + 50); }
  uint32_t Subsystem() const { return Number16(optional_ + 68); }
  bool HasDelayedImports() const { return Directory(13) != 0; }

  /// In lower case.
  std::set<std::string> ImportedLibraries() const {
    std::set<std::string> names;
    for (uint32_t entry = OffsetOf(Directory(1)); Number32(entry + 12) != 0; entry += 20) {
      std::string name = Text(OffsetOf(Number32(entry + 12)));
      std::transform(name.begin(), name.end(), name.begin(),
                     [](char letter) { return letter >= 'A' && letter <= 'Z' ? char(letter + 32) : letter; });
      names.insert(name);
    }
    return names;
  }

  /// True when the file contains the name of the call, as an import does.
  bool Names(const std::string& call) const { return bytes_.find(call + '\0') != std::string::npos; }

  /// The first resource of a type; empty if absent.
  std::string Resource(uint32_t type) const {
    if (Directory(2) == 0) return {};
    const uint32_t root = OffsetOf(Directory(2));
    for (uint32_t i = 0; i < EntriesIn(root); ++i) {
      if (Number32(root + 16 + 8 * i) != type) continue;
      uint32_t entry = Number32(root + 20 + 8 * i);
      // Three levels: type, name, language. The upper bit marks a subdirectory.
      for (int level = 0; level < 2; ++level) entry = Number32(root + (entry & 0x7FFFFFFF) + 20);
      return bytes_.substr(OffsetOf(Number32(root + entry)), Number32(root + entry + 4));
    }
    return {};
  }

 private:
  uint32_t Byte(size_t offset) const { return static_cast<unsigned char>(bytes_.at(offset)); }
  uint32_t Number16(size_t offset) const { return Byte(offset) | Byte(offset + 1) << 8; }
  uint32_t Number32(size_t offset) const { return Number16(offset) | Number16(offset + 2) << 16; }
  std::string Text(size_t offset) const { return bytes_.substr(offset, bytes_.find('\0', offset) - offset); }
  uint32_t EntriesIn(uint32_t directory) const { return Number16(directory + 12) + Number16(directory + 14); }
  uint32_t Directory(uint32_t index) const { return Number32(optional_ + (is64Bit_ ? 112 : 96) + 8 * index); }

  /// The file offset of a relative virtual address.
  uint32_t OffsetOf(uint32_t address) const {
    const uint32_t table = optional_ + Number16(header_ + 20);
    for (uint32_t i = 0; i < Number16(header_ + 6); ++i) {
      const uint32_t section = table + 40 * i;
      const uint32_t begin = Number32(section + 12);
      if (address >= begin && address < begin + Number32(section + 16)) {
        return address - begin + Number32(section + 20);
      }
    }
    throw std::out_of_range("an address outside the sections");
  }

  std::string bytes_;
  uint32_t header_ = 0;
  uint32_t optional_ = 0;
  bool is64Bit_ = false;
};

class ShippedFile : public testing::Test {
 protected:
  void SetUp() override {
    if (const auto reason = WindowsUnsupportedReason()) GTEST_SKIP() << *reason;
    file_ = std::make_unique<ProgramFile>(ProgramPath());
    ASSERT_TRUE(file_->IsExecutable());
  }
  const ProgramFile& File() const { return *file_; }

 private:
  std::unique_ptr<ProgramFile> file_;
};

TEST_F(ShippedFile, Is_not_larger_than_690_KB) { EXPECT_LE(File().Size(), 690u * 1024); }

TEST_F(ShippedFile, Uses_ASLR_and_DEP) {
  constexpr uint32_t kHighEntropy = 0x20;
  constexpr uint32_t kDynamicBase = 0x40;
  constexpr uint32_t kNoExecutableData = 0x100;
  EXPECT_TRUE(File().Characteristics() & kDynamicBase);
  EXPECT_TRUE(File().Characteristics() & kNoExecutableData);
  EXPECT_EQ((File().Characteristics() & kHighEntropy) != 0, File().Is64Bit());
}

TEST_F(ShippedFile, Is_a_GUI_program_for_Windows_7_and_later) {
  constexpr uint32_t kWindows7 = 0x00060001;
  EXPECT_EQ(File().Subsystem(), 2u);
  EXPECT_EQ(File().SubsystemVersion(), kWindows7);
  EXPECT_EQ(File().SystemVersion(), kWindows7);
}

TEST_F(ShippedFile, Is_aware_of_terminal_servers) {
  constexpr uint32_t kTerminalServerAware = 0x8000;
  EXPECT_TRUE(File().Characteristics() & kTerminalServerAware);
}

TEST_F(ShippedFile, Has_no_link_time) { EXPECT_EQ(File().Timestamp(), 0u); }

TEST_F(ShippedFile, Imports_only_libraries_that_cannot_be_planted_next_to_it) {
  // Windows loads these from its own folder only.
  const std::set<std::string> known = {"advapi32.dll", "gdi32.dll",   "kernel32.dll", "msvcrt.dll",
                                       "ole32.dll",    "shell32.dll", "user32.dll",   "ws2_32.dll"};
  for (const std::string& name : File().ImportedLibraries()) EXPECT_TRUE(known.count(name)) << name;
  EXPECT_TRUE(File().ImportedLibraries().count("kernel32.dll"));
  EXPECT_FALSE(File().HasDelayedImports());
}

TEST_F(ShippedFile, Has_the_calls_whose_effect_only_Windows_itself_shows) {
  EXPECT_TRUE(File().Names("ImmAssociateContext"));
  EXPECT_TRUE(File().Names("ShutdownBlockReasonCreate"));
  EXPECT_TRUE(File().Names("SetDialogControlDpiChangeBehavior"));
}

TEST_F(ShippedFile, Keeps_its_window_during_long_calls_and_hides_the_error_boxes_of_Windows) {
  EXPECT_TRUE(File().Names("DisableProcessWindowsGhosting"));
  EXPECT_TRUE(File().Names("SetErrorMode"));
}

TEST_F(ShippedFile, Leaves_a_crash_report_when_it_aborts) {
  EXPECT_TRUE(File().Names("RaiseFailFastException"));
  EXPECT_FALSE(File().Names("abort"));
}

TEST_F(ShippedFile, Searches_the_current_folder_for_nothing) {
  EXPECT_TRUE(File().Names("SetSearchPathMode"));
  EXPECT_TRUE(File().Names("SetDllDirectoryW"));
}

TEST_F(ShippedFile, Follows_the_display_language_of_Windows_and_not_the_region) {
  EXPECT_TRUE(File().Names("GetUserDefaultUILanguage"));
  EXPECT_FALSE(File().Names("GetUserDefaultLangID"));
}

TEST_F(ShippedFile, Has_an_icon_and_a_manifest) {
  EXPECT_FALSE(File().Resource(kIcon).empty());
  const std::string manifest = File().Resource(kManifest);
  for (const char* part : {"asInvoker", "Microsoft.Windows.Common-Controls", "PerMonitorV2", "supportedOS"}) {
    EXPECT_NE(manifest.find(part), std::string::npos) << part;
  }
}

TEST_F(ShippedFile, Has_the_version_number_of_the_build) {
  const std::string version = File().Resource(kVersion);
  const auto number = [&version](size_t offset) {
    return static_cast<unsigned char>(version.at(offset)) | static_cast<unsigned char>(version.at(offset + 1))
                                                                << 8;
  };
  const size_t fixed = version.find("\xBD\x04\xEF\xFE");
  ASSERT_NE(fixed, std::string::npos);
  for (const size_t first : {fixed + 8, fixed + 16}) {  // file version, product version
    EXPECT_EQ(number(first + 2), TARVIK_VERSION_MAJOR);
    EXPECT_EQ(number(first), TARVIK_VERSION_MINOR);
    EXPECT_EQ(number(first + 6), TARVIK_VERSION_PATCH);
    EXPECT_EQ(number(first + 4), TARVIK_VERSION_BUILD);
  }
  std::string text;
  for (const char character : std::string(TARVIK_VERSION_TEXT)) text += {character, '\0'};
  EXPECT_NE(version.find(text), std::string::npos);
}

TEST_F(ShippedFile, The_Windows_check_needs_no_administrator_and_is_sharp_on_every_monitor) {
  const std::filesystem::path output = std::filesystem::path(ProgramPath()).parent_path().parent_path();
  const ProgramFile check(output / "WindowsCheck" / "WindowsCheck.exe");
  EXPECT_FALSE(check.Is64Bit());
  const std::string manifest = check.Resource(kManifest);
  for (const char* part : {"asInvoker", "Microsoft.Windows.Common-Controls", "PerMonitorV2"})
    EXPECT_NE(manifest.find(part), std::string::npos) << part;
}

}  // namespace
}  // namespace tarvik::lab
