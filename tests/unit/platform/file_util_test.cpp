#include "platform/file_util.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_modules.h"

namespace tarvik::test {
namespace {

class FileUtilTest : public testing::Test {
 protected:
  FakeKernel kernel;
  FakeVersions versions;
  FileUtil files{kernel, versions};
};

TEST_F(FileUtilTest, A_file_on_the_search_path_is_found_with_its_full_path) {
  kernel.paths["a.dll"] = "C:\\System\\a.dll";
  EXPECT_EQ(files.mSearchPath(L"a.dll"), L"C:\\System\\a.dll");
  EXPECT_EQ(files.pErrorMessage(), L"");
  EXPECT_EQ(files.pErrorCode(), 0U);
}

TEST_F(FileUtilTest, A_missing_file_is_reported_with_the_failed_search) {
  EXPECT_EQ(files.mSearchPath(L"a.dll"), std::nullopt);
  EXPECT_EQ(files.pErrorMessage(), L"mSearchPath(a.dll)\r\nAPI SearchPath Cannot find");
  EXPECT_EQ(files.pErrorCode(), 2U);
}

TEST_F(FileUtilTest, A_path_longer_than_the_first_buffer_is_read_into_a_larger_one) {
  kernel.paths["a.dll"] = "C:\\" + std::string(400, 'x') + "\\a.dll";
  const auto path = files.mSearchPath(L"a.dll");
  ASSERT_TRUE(path);
  EXPECT_EQ(path->size(), 409U);
  EXPECT_EQ(kernel.searchSizes, (std::vector<uint32_t>{260, 410}));
}

TEST_F(FileUtilTest, A_path_exactly_as_long_as_the_buffer_does_not_fit_into_it) {
  kernel.paths["a.dll"] = std::string(260, 'x');
  EXPECT_EQ(files.mSearchPath(L"a.dll")->size(), 260U);
}

TEST_F(FileUtilTest, An_impossible_path_length_counts_as_not_found) {
  for (const uint32_t lie : {0xFFFFFFFFU, 32769U, 260U, 5000U}) {
    kernel.searchLie = lie;
    EXPECT_EQ(files.mSearchPath(L"a.dll"), std::nullopt) << lie;
  }
}

TEST_F(FileUtilTest, A_path_ends_at_its_NUL_even_if_a_greater_length_is_reported) {
  kernel.searchLie = 100;
  EXPECT_EQ(files.mSearchPath(L"a.dll"), L"");
}

TEST_F(FileUtilTest, A_path_may_contain_characters_outside_the_code_page) {
  kernel.paths["a.dll"] = std::wstring(L"C:\\日本 é\\a.dll");
  versions.blocks[std::wstring(L"C:\\日本 é\\a.dll")] = FakeVersions::Block(1, 0, 0, 1);
  EXPECT_EQ(files.mGetFileVersionInfoString(files.mSearchPath(L"a.dll").value()), L"1.0.0.1");
}

TEST_F(FileUtilTest, The_version_is_that_of_the_file_not_of_the_product) {
  versions.blocks["a.dll"] = FakeVersions::Block(10, 0, 65535, 3);
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), L"10.0.65535.3");
  EXPECT_EQ(files.pErrorMessage(), L"");
}

TEST_F(FileUtilTest, A_file_without_version_information_is_reported) {
  kernel.lastError = 1813;
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), std::nullopt);
  EXPECT_EQ(files.pErrorMessage(), L"mGetFileVersionInfoString(a.dll)\r\nAPI GetFileVersionInfoSize ");
  EXPECT_EQ(files.pErrorCode(), 1813U);
}

TEST_F(FileUtilTest, Unreadable_version_information_is_reported) {
  versions.blocks["a.dll"] = FakeVersions::Block(1, 2, 3, 4);
  versions.readable = false;
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), std::nullopt);
  EXPECT_EQ(files.pErrorMessage(), L"mGetFileVersionInfoString(a.dll)\r\nAPI GetFileVersionInfo ");
}

TEST_F(FileUtilTest, A_success_clears_the_previous_error) {
  files.mSearchPath(L"a.dll");
  kernel.paths["a.dll"] = "C:\\a.dll";
  files.mSearchPath(L"a.dll");
  EXPECT_EQ(files.pErrorMessage(), L"");
  EXPECT_EQ(files.pErrorCode(), 0U);
}

TEST_F(FileUtilTest, An_impossible_size_of_version_information_is_rejected) {
  versions.sizeLie = 0xFFFFFFFF;
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), std::nullopt);
}

TEST_F(FileUtilTest, A_block_shorter_than_its_reported_size_has_no_version) {
  versions.blocks["a.dll"] = {};
  versions.sizeLie = 200;
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), std::nullopt);
}

TEST_F(FileUtilTest, A_missing_root_is_reported) {
  versions.blocks["a.dll"] = FakeVersions::Block(1, 2, 3, 4);
  versions.queryable = false;
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), std::nullopt);
  EXPECT_EQ(files.pErrorMessage(), L"mGetFileVersionInfoString(a.dll)\r\nAPI VerQueryValue ");
}

TEST_F(FileUtilTest, A_root_outside_its_block_is_not_read) {
  versions.blocks["a.dll"] = FakeVersions::Block(1, 2, 3, 4);
  const FixedFileInfo elsewhere{FixedFileInfo::kSignature};
  versions.valueLie = nullptr;
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), std::nullopt);
  versions.valueLie = &elsewhere;
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), std::nullopt);
  versions.valueLie = reinterpret_cast<const void*>(~std::uintptr_t{0});
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), std::nullopt);
}

TEST_F(FileUtilTest, A_root_that_extends_beyond_its_block_is_not_read) {
  versions.blocks["a.dll"] = FakeVersions::Block(1, 2, 3, 4);
  versions.rootLength = 0xFFFFFFFF;
  for (const std::ptrdiff_t offset : {61, 111, 112, 113, -1}) {
    versions.rootOffset = offset;
    EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), std::nullopt) << offset;
  }
}

TEST_F(FileUtilTest, A_root_that_is_too_short_or_lacks_the_signature_has_no_version) {
  versions.blocks["a.dll"] = FakeVersions::Block(1, 2, 3, 4);
  versions.rootLength = 51;
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), std::nullopt);
  versions.rootLength = 52;
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), L"1.2.3.4");
  versions.blocks["a.dll"][FakeVersions::kRootOffset] = std::byte{0};
  EXPECT_EQ(files.mGetFileVersionInfoString(L"a.dll"), std::nullopt);
}

TEST_F(FileUtilTest, The_error_code_is_never_left_over_from_an_earlier_call) {
  kernel.lastError = 5;
  kernel.searchLie = 5000;
  files.mSearchPath(L"a.dll");
  EXPECT_EQ(files.pErrorCode(), 13U);

  versions.blocks["a.dll"] = FakeVersions::Block(1, 2, 3, 4);
  versions.queryable = false;
  files.mGetFileVersionInfoString(L"a.dll");
  EXPECT_EQ(files.pErrorCode(), 13U);

  versions.sizeLie = 0xFFFFFFFF;
  files.mGetFileVersionInfoString(L"a.dll");
  EXPECT_EQ(files.pErrorCode(), 13U);
}

}  // namespace
}  // namespace tarvik::test
