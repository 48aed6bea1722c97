// Every operation of the FTP client, through the system's library, with two real servers.

#include <fstream>
#include <iterator>

#include "lab/network/ftp_server.h"
#include "tests/network/on_cables.h"
#include "tests/windows/product_fixture.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;
using Product = FtpServer::Product;

constexpr Product kProducts[] = {Product::Vsftpd, Product::Pyftpdlib};

class FtpOperations : public OnCables<ProductTest> {
 protected:
  void SetUp() override {
    for (const Product product : kProducts)
      if (const auto reason = FtpServer::UnsupportedReason(product)) GTEST_SKIP() << *reason;
    OnCables::SetUp();
  }

  static FtpServer Serve(Product product) { return FtpServer(Net(), Host::Near, product, Cache()); }
  std::string Ask(const Fields& command) { return Call(command).at(0); }
  void Connect() { ASSERT_EQ(Ask({"ftp_connect", kNearAddress, kFtpUser, kFtpPassword}), "1"); }

  std::string Local(const std::string& name) const { return Folder() + "/" + name; }
  static std::string BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static void Write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
};

const std::string kBytes = std::string("O1000\r\n\n\0\xFF%", 10);

TEST_F(FtpOperations, Files_are_transferred_unchanged_in_both_directions) {
  for (const Product product : kProducts) {
    const FtpServer server = Serve(product);
    Write(server.Folder() + "/O1000.NC", kBytes);
    Connect();
    fs::remove(Local("here.nc"));
    EXPECT_EQ(Ask({"ftp_get", "O1000.NC", WindowsPath(Local("here.nc")), "1"}), "1");
    EXPECT_EQ(BytesOf(Local("here.nc")), kBytes);
    EXPECT_EQ(Ask({"ftp_put", WindowsPath(Local("here.nc")), "O2000.NC"}), "1");
    EXPECT_TRUE(WaitUntil(kSoon, [&] { return BytesOf(server.Folder() + "/O2000.NC") == kBytes; }));
  }
}

TEST_F(FtpOperations, An_existing_local_file_is_kept_on_request) {
  const FtpServer server = Serve(Product::Vsftpd);
  Write(server.Folder() + "/O1000.NC", kBytes);
  Write(Local("here.nc"), "mine");
  Connect();
  EXPECT_EQ(Ask({"ftp_get", "O1000.NC", WindowsPath(Local("here.nc")), "1"}), "0");
  EXPECT_EQ(BytesOf(Local("here.nc")), "mine");
  EXPECT_EQ(Ask({"ftp_get", "O1000.NC", WindowsPath(Local("here.nc")), "0"}), "1");
  EXPECT_EQ(BytesOf(Local("here.nc")), kBytes);
}

TEST_F(FtpOperations, Files_are_renamed_and_deleted) {
  for (const Product product : kProducts) {
    const FtpServer server = Serve(product);
    Write(server.Folder() + "/O1000.NC", kBytes);
    Connect();
    EXPECT_EQ(Ask({"ftp_rename", "O1000.NC", "O3000.NC"}), "1");
    EXPECT_TRUE(fs::exists(server.Folder() + "/O3000.NC"));
    EXPECT_EQ(Ask({"ftp_delete", "O3000.NC"}), "1");
    EXPECT_TRUE(fs::is_empty(server.Folder()));
  }
}

TEST_F(FtpOperations, Directories_are_created_entered_and_removed) {
  for (const Product product : kProducts) {
    const FtpServer server = Serve(product);
    Connect();
    const std::string home = Ask({"ftp_dir"});
    EXPECT_EQ(Ask({"ftp_make_dir", "PROGRAMS"}), "1");
    EXPECT_TRUE(fs::is_directory(server.Folder() + "/PROGRAMS"));
    EXPECT_EQ(Ask({"ftp_set_dir", "PROGRAMS"}), "1");
    EXPECT_TRUE(Ask({"ftp_dir"}).ends_with("/PROGRAMS"));
    EXPECT_EQ(Ask({"ftp_set_dir", home}), "1");
    EXPECT_EQ(Ask({"ftp_remove_dir", "PROGRAMS"}), "1");
    EXPECT_FALSE(fs::exists(server.Folder() + "/PROGRAMS"));
  }
}

TEST_F(FtpOperations, A_rejected_operation_fails_and_the_reply_names_the_reason) {
  for (const Product product : kProducts) {
    const FtpServer server = Serve(product);
    Connect();
    EXPECT_EQ(Ask({"ftp_get", "absent.nc", WindowsPath(Local("absent.nc")), "1"}), "0");
    EXPECT_EQ(Ask({"ftp_delete", "absent.nc"}), "0");
    EXPECT_NE(Ask({"ftp_response"}).find("550"), std::string::npos) << Ask({"ftp_response"});
    EXPECT_EQ(Ask({"ftp_rename", "absent.nc", "other.nc"}), "0");
    EXPECT_EQ(Ask({"ftp_set_dir", "absent"}), "0");
    EXPECT_EQ(Ask({"ftp_remove_dir", "absent"}), "0");
  }
}

TEST_F(FtpOperations, A_directory_entry_is_found_by_its_name) {
  for (const Product product : kProducts) {
    const FtpServer server = Serve(product);
    Write(server.Folder() + "/O1000.NC", kBytes);
    fs::create_directory(server.Folder() + "/PROGRAMS");
    Connect();
    EXPECT_EQ(Call({"ftp_information", "O1000.NC"}), (Fields{"1", "O1000.NC", "10", "0"}));
    EXPECT_EQ(Ask({"ftp_information", "absent"}), "0");
  }
}

TEST_F(FtpOperations, Nothing_works_without_a_connection) {
  EXPECT_EQ(Ask({"ftp_dir"}), "");
  EXPECT_EQ(Ask({"ftp_make_dir", "PROGRAMS"}), "0");
  EXPECT_EQ(Ask({"ftp_information", "O1000.NC"}), "0");
}

}  // namespace
}  // namespace tarvik::lab
