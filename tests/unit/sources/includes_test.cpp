// Checks the dependencies between the product's folders by reading every include.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

namespace tarvik::test {
namespace {

using Folders = std::set<std::string>;

/// The folders that each folder may include, besides itself.
const std::map<std::string, Folders> kMayInclude = {
    {"platform", {}},
    {"resources", {"platform"}},
    {"report", {"platform", "resources"}},
    {"ui", {"platform", "resources", "report"}},
    {"net", {"platform", "resources", "report"}},
    {"ftp", {"platform", "resources", "report"}},
    {"k7", {"platform", "resources", "report"}},
    {"cnclib", {"platform", "resources", "report", "ui"}},
    {"about", {"platform", "resources", "report", "ui"}},
    {"app", {"platform", "resources", "report", "ui", "net", "ftp", "k7", "cnclib", "about"}},
};

/// Windows in other folders need this file too. It stays in app/ because drivers outside the repository read
/// it there.
constexpr const char* kControlIds = "app/control_ids.h";

std::set<std::string> IncludedFiles(const std::filesystem::path& path) {
  static const std::regex include("^#include \"(.*)\"");
  std::set<std::string> included;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);)
    if (std::smatch match; std::regex_search(line, match, include)) included.insert(match[1]);
  return included;
}

TEST(Includes, Point_downwards) {
  const std::filesystem::path root = TARVIK_SOURCE_FOLDER;
  int files = 0;
  for (const auto& [folder, allowed] : kMayInclude) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".h" && extension != ".cpp") continue;
      ++files;
      for (const std::string& included : IncludedFiles(entry.path())) {
        const std::string from = included.substr(0, included.find('/'));
        EXPECT_TRUE(from == folder || allowed.contains(from) || included == kControlIds)
            << entry.path() << " includes " << included;
      }
    }
  }
  EXPECT_GT(files, 100);
}

TEST(Includes, Only_a_win32_file_includes_a_win32_file) {
  const std::filesystem::path root = TARVIK_SOURCE_FOLDER;
  for (const auto& [folder, allowed] : kMayInclude) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      const std::string name = entry.path().filename().string();
      if (name.find("_win32.") != std::string::npos) continue;
      for (const std::string& included : IncludedFiles(entry.path()))
        EXPECT_EQ(included.find("_win32."), std::string::npos) << entry.path() << " includes " << included;
    }
  }
}

}  // namespace
}  // namespace tarvik::test
