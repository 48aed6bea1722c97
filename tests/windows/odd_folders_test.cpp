// Files in folders whose names the PC's code page cannot represent, and profile files as Windows reads them.

#include <filesystem>
#include <fstream>

#include "tests/windows/product_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kOddName[] = "日本 ไทย";

class ProfileFiles : public ProductTest {
 protected:
  std::string Write(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
    return WindowsPath(path);
  }
};

TEST_F(ProfileFiles, Are_read_as_Windows_reads_them) {
  const std::string path =
      Write(Folder() + "/texts.ini",
            "before=0\r\n[1033]\r\n1=plain\r\n 2 = spaces around \t\r\n3=\" quoted \"\r\n4=' single '\r\n"
            "5=\"\"\r\n6=\"\r\n7=\"open\r\n8=\"mixed'\r\n9=a=b;c\r\n;10=comment\r\n11\r\n12=\r\n13=first\r\n"
            "13=second\r\nName=x\r\n14=say \"no\"\r\n15=\"\"q\"\"\r\n  ; 16=comment\r\n17=end ; of "
            "line\r\n[1041]\r\n"
            "1=other\r\n[MixedCase]\r\nk=y\r\n[1033]\r\n20=late\r\n[last]\r\n1=no line end");
  for (const char* const section : {"1033", "1041", "mixedcase", "MixedCase", "last", "none"}) {
    for (const char* const key :
         {"1",  "2",  "3",  "4",  "5",  "6",  "7",    "8",    "9", "10",     "11",  "12",
          "13", "14", "15", "16", "17", "20", "name", "NAME", "K", "before", "none"}) {
      const Fields answer = Call({"profile", path, section, key});
      EXPECT_EQ(answer.at(1), answer.at(0)) << section << "/" << key;
    }
  }
  EXPECT_EQ(Call({"profile", path, "1033", "3"}).at(0), " quoted ");
}

TEST_F(ProfileFiles, Are_read_in_a_folder_that_the_code_page_cannot_represent) {
  std::filesystem::create_directory(Folder() + "/" + kOddName);
  const std::string path = Write(Folder() + "/" + kOddName + "/texts.ini", "[1033]\r\n1=text\r\n");
  EXPECT_EQ(Call({"profile", path, "1033", "1"}).at(1), "text");
}

class ModuleVersions : public ProductTest {};

TEST_F(ModuleVersions, Are_read_in_a_folder_that_the_code_page_cannot_represent) {
  std::filesystem::create_directory(Folder() + "/" + kOddName);
  const std::string path = Folder() + "/" + kOddName + "/NxLib32.dll";
  std::filesystem::copy_file(Bench() + "/NxLib32.dll", path);
  EXPECT_EQ(Call({"module_version", WindowsPath(path)}), Fields{"1.0.0.0"});
}

}  // namespace
}  // namespace tarvik::lab
