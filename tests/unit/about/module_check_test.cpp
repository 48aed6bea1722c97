#include "about/module_check.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_modules.h"

namespace tarvik::test {
namespace {

class ModuleCheckTest : public testing::Test {
 protected:
  ModuleCheckTest() {
    for (const char* const name : {"NxLib32.dll", "NxLibe1.dll", "k7api.dll", "SvcKit.dll", "Wininet.dll"}) {
      const std::string path = std::string("C:\\S\\") + name;
      kernel.paths[name] = path;
      versions.blocks[path] = FakeVersions::Block(1, 2, 3, 4);
    }
  }

  FakeKernel kernel;
  FakeVersions versions;
  FakeCodePage codePage;
  FileUtil files{kernel, versions};
};

TEST_F(ModuleCheckTest, With_all_modules_the_report_has_five_lines_in_order) {
  const ModuleCheckResult result = CheckModules(files, true);
  EXPECT_EQ(VersionReport(files, result.found),
            L"NxLib32.dll Ver.1.2.3.4 (C:\\S\\NxLib32.dll)\r\n"
            L"NxLibe1.dll Ver.1.2.3.4 (C:\\S\\NxLibe1.dll)\r\n"
            L"k7api.dll Ver.1.2.3.4 (C:\\S\\k7api.dll)\r\n"
            L"SvcKit.dll Ver.1.2.3.4 (C:\\S\\SvcKit.dll)\r\n"
            L"Wininet.dll Ver.1.2.3.4 (C:\\S\\Wininet.dll)\r\n");
  EXPECT_FALSE(result.missing.Any());
}

TEST_F(ModuleCheckTest, Without_any_module_the_report_is_empty) {
  kernel.paths.clear();
  const ModuleCheckResult result = CheckModules(files, true);
  EXPECT_EQ(VersionReport(files, result.found), L"");
  EXPECT_TRUE(result.missing.cncLibrary && result.missing.k7Api && result.missing.serviceSetup &&
              result.missing.internet);
}

TEST_F(ModuleCheckTest, Each_missing_module_sets_its_own_flag_and_is_left_out_of_the_report) {
  const std::pair<const char*, Boolean16 MissingModules::*> kFlags[] = {
      {"NxLib32.dll", &MissingModules::cncLibrary},
      {"NxLibe1.dll", &MissingModules::cncLibrary},
      {"k7api.dll", &MissingModules::k7Api},
      {"SvcKit.dll", &MissingModules::serviceSetup},
      {"Wininet.dll", &MissingModules::internet}};
  for (const auto& [name, flag] : kFlags) {
    const FakePath path = kernel.paths[name];
    kernel.paths.erase(name);
    const ModuleCheckResult result = CheckModules(files, true);
    EXPECT_TRUE(result.missing.*flag) << name;
    EXPECT_EQ(result.missing.cncLibrary + result.missing.k7Api + result.missing.serviceSetup +
                  result.missing.internet,
              1)
        << name;
    EXPECT_EQ(VersionReport(files, result.found).find(std::wstring(name, name + std::strlen(name))),
              std::wstring::npos)
        << name;
    kernel.paths[name] = path;
  }
}

TEST_F(ModuleCheckTest, The_K7_API_library_is_looked_for_only_on_request) {
  kernel.paths.erase("k7api.dll");
  const ModuleCheckResult result = CheckModules(files, false);
  EXPECT_FALSE(result.missing.Any());
  EXPECT_EQ(kernel.searched,
            (std::vector<std::string>{"NxLib32.dll", "NxLibe1.dll", "SvcKit.dll", "Wininet.dll"}));
}

TEST_F(ModuleCheckTest, A_module_without_a_version_is_not_missing_and_is_listed_with_its_path) {
  versions.blocks.erase("C:\\S\\k7api.dll");
  const ModuleCheckResult result = CheckModules(files, true);
  EXPECT_FALSE(result.missing.k7Api);
  EXPECT_NE(VersionReport(files, result.found).find(L"k7api.dll (C:\\S\\k7api.dll)\r\n"), std::wstring::npos);
}

TEST_F(ModuleCheckTest, The_line_of_a_module_has_its_name_version_and_path) {
  EXPECT_EQ(GetModuleVersionLine(files, {L"SvcKit.dll", L"C:\\S\\SvcKit.dll"}),
            L"SvcKit.dll Ver.1.2.3.4 (C:\\S\\SvcKit.dll)");
}

}  // namespace
}  // namespace tarvik::test
