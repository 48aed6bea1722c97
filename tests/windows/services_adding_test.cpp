// Adding entries to the services file, on real files.

#include <fstream>
#include <iterator>

#include "tests/windows/product_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kBytes[] = "echo 7/udp\r\nNORVAX_OTHER 8200/udp # open end";

class ServicesAdding : public ProductTest {
 protected:
  void SetUp() override {
    ProductTest::SetUp();
    if (!IsSkipped()) std::ofstream(Path(), std::ios::binary) << kBytes;
  }
  std::string Path() const { return Folder() + "/services"; }
  Fields Add(const std::string& port = "0") {
    return Call({"add_services", WindowsPath(Path()), "NORVAX_K7_SERVER", port, "udp"});
  }
  static std::string BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static bool ReadOnly(const std::string& path) {
    return (std::filesystem::status(path).permissions() & std::filesystem::perms::owner_write) ==
           std::filesystem::perms::none;
  }
};

TEST_F(ServicesAdding, A_missing_entry_is_added_with_the_next_port_after_a_backup) {
  EXPECT_EQ(Add(), (Fields{"1", "8201"}));
  EXPECT_EQ(
      BytesOf(Path()),
      std::string(kBytes) + "\r\nNORVAX_K7_SERVER  8201/udp  # For NORVAX FA System for PC, 2026/11/21\r\n");
  EXPECT_EQ(BytesOf(Path() + ".202611210905"), kBytes);
}

TEST_F(ServicesAdding, An_existing_entry_leaves_the_file_unchanged) {
  EXPECT_EQ(Add("8300").at(0), "1");
  const std::string bytes = BytesOf(Path());
  std::filesystem::remove(Path() + ".202611210905");
  EXPECT_EQ(Add(), (Fields{"1", "8300"}));
  EXPECT_EQ(BytesOf(Path()), bytes);
  EXPECT_FALSE(std::filesystem::exists(Path() + ".202611210905"));
}

TEST_F(ServicesAdding, A_read_only_file_is_changed_and_stays_read_only) {
  std::filesystem::permissions(Path(), std::filesystem::perms::owner_read);
  EXPECT_EQ(Add(), (Fields{"1", "8201"}));
  EXPECT_TRUE(ReadOnly(Path()));
  EXPECT_NE(BytesOf(Path()).find("NORVAX_K7_SERVER  8201/udp"), std::string::npos);
}

TEST_F(ServicesAdding, An_existing_backup_is_kept_and_nothing_is_added) {
  std::ofstream(Path() + ".202611210905") << "older";
  const Fields answer = Add();
  EXPECT_EQ(answer.at(0), "0");
  ASSERT_EQ(answer.size(), 3U);
  EXPECT_TRUE(answer[2].starts_with("Can't backup")) << answer[2];
  EXPECT_EQ(BytesOf(Path()), kBytes);
  EXPECT_EQ(BytesOf(Path() + ".202611210905"), "older");
}

TEST_F(ServicesAdding, A_missing_file_is_reported_and_not_created) {
  std::filesystem::remove(Path());
  const Fields answer = Add();
  EXPECT_EQ(answer.at(0), "0");
  EXPECT_EQ(answer.size(), 3U);
  EXPECT_FALSE(std::filesystem::exists(Path()));
}

}  // namespace
}  // namespace tarvik::lab
