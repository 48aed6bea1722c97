#include "k7/services_file_adding.h"

#include <vector>

#include "tests/unit/k7/services_file_fixture.h"

namespace tarvik::test {
namespace {

class ServicesFileAddingTest : public ServicesFileFixture {
 protected:
  bool Add(std::vector<ServiceEntry>& entries) {
    return ServicesFileAdder(files, codePage, errors, boxes, path).Add(entries, {2024, 2, 3, 4, 5});
  }

  const std::wstring backup = path + L".202402030405";
};

TEST_F(ServicesFileAddingTest, Nothing_is_written_when_no_entry_is_missing) {
  files.contents[path] = "NORVAX_K7_SERVER 8193/udp";
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_TRUE(Add(entries));
  EXPECT_EQ(files.contents.size(), 1U);
  EXPECT_EQ(files.contents[path], "NORVAX_K7_SERVER 8193/udp");
}

TEST_F(ServicesFileAddingTest, A_missing_entry_gets_the_next_free_port_after_the_file_is_backed_up) {
  const std::string before = "echo 7/tcp\r\ngame 9000/udp\r\n";
  files.contents[path] = before;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_TRUE(Add(entries));
  EXPECT_EQ(files.contents[path],
            before + "NORVAX_K7_SERVER  9001/udp  # For NORVAX FA System for PC, 2024/02/03\r\n");
  EXPECT_EQ(files.contents[backup], before);
  EXPECT_TRUE(entries[0].NameExist);
  EXPECT_TRUE(entries[0].PortNoExist);
  EXPECT_EQ(entries[0].PortNo, 9001);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(ServicesFileAddingTest, Added_entries_are_found_by_a_check) {
  files.contents[path] = "echo 7/tcp";
  std::vector<ServiceEntry> entries{
      K7Entry(), {L"x", 0, L"tcp", false, false}, {L"y", 500, L"tcp", false, false}};
  EXPECT_TRUE(Add(entries));
  EXPECT_TRUE(files.contents[path].starts_with("echo 7/tcp\r\nNORVAX_K7_SERVER  8/udp"));
  std::vector<ServiceEntry> again{
      K7Entry(), {L"x", 0, L"tcp", false, false}, {L"y", 0, L"tcp", false, false}};
  CheckServicesFile(files, codePage, errors, boxes, path, again);
  EXPECT_EQ(again[0].PortNo, 8);
  EXPECT_EQ(again[1].PortNo, 9);
  EXPECT_EQ(again[2].PortNo, 500);
}

TEST_F(ServicesFileAddingTest, New_entries_get_distinct_ports) {
  files.contents[path] = "echo 7/tcp\r\n";
  std::vector<ServiceEntry> entries{K7Entry(),
                                    {L"x", 8, L"tcp", false, false},
                                    {L"y", 0, L"tcp", false, false},
                                    {L"z", 10, L"tcp", false, false}};
  EXPECT_TRUE(Add(entries));
  EXPECT_EQ(entries[0].PortNo, 9);
  EXPECT_EQ(entries[1].PortNo, 8);
  EXPECT_EQ(entries[2].PortNo, 11);
  EXPECT_EQ(entries[3].PortNo, 10);
}

TEST_F(ServicesFileAddingTest, A_read_only_file_is_read_only_again_afterwards) {
  files.contents[path] = "";
  files.attributes[path] = 0x21;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_TRUE(Add(entries));
  EXPECT_EQ(files.attributes[path], 0x21U);
  EXPECT_FALSE(files.contents[path].empty());
}

TEST_F(ServicesFileAddingTest, Adding_to_an_unreadable_file_is_reported) {
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Open [" + path + L"] for Read\n\rERROR: 2 - The file is not there.");
}

TEST_F(ServicesFileAddingTest, Without_a_backup_nothing_is_added) {
  files.contents[path] = "echo 7/tcp";
  files.unwritable.insert(backup);
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't backup\r\nERROR: 2 - The file is not there.");
  EXPECT_EQ(files.contents[path], "echo 7/tcp");
}

TEST_F(ServicesFileAddingTest, Attributes_that_cannot_be_read_are_reported) {
  files.contents[path] = "echo 7/tcp";
  files.attributesReadable = false;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Get Attribute [" + path + L"]\r\nERROR: 2 - The file is not there.");
  EXPECT_EQ(files.contents[path], "echo 7/tcp");
}

TEST_F(ServicesFileAddingTest, Attributes_that_cannot_be_set_are_reported) {
  files.contents[path] = "echo 7/tcp";
  files.attributes[path] = 1;
  files.attributesLeft = 0;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Set Attribute [" + path + L"]\r\nERROR: 2 - The file is not there.");
  EXPECT_EQ(files.contents[path], "echo 7/tcp");
}

TEST_F(ServicesFileAddingTest, Attributes_that_cannot_be_restored_are_reported) {
  files.contents[path] = "";
  files.attributes[path] = 1;
  files.attributesLeft = 1;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_TRUE(Add(entries));
  ExpectFileError(L"Can't Set Attribute [" + path + L"]\r\nERROR: 2 - The file is not there.");
}

TEST_F(ServicesFileAddingTest, A_file_that_cannot_be_opened_for_appending_is_reported) {
  files.contents[path] = "echo 7/tcp";
  files.attributes[path] = 1;
  files.appendsLeft = 0;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Open [" + path + L"] for Append\r\nERROR: 2 - The file is not there.");
  EXPECT_EQ(files.attributes[path], 1U);
}

TEST_F(ServicesFileAddingTest, A_line_that_cannot_be_written_is_reported_and_ends_the_adding) {
  files.contents[path] = "echo 7/tcp\r\n";
  files.appendsLeft = 2;
  std::vector<ServiceEntry> entries{
      {L"x", 0, L"tcp", false, false}, K7Entry(), {L"y", 0, L"tcp", false, false}};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Append [NORVAX_K7_SERVER  9/udp  # For NORVAX FA System for PC, 2024/02/03] to [" +
                  path + L"]\r\nERROR: 2 - The file is not there.");
  EXPECT_TRUE(entries[0].NameExist);
  EXPECT_FALSE(entries[1].NameExist);
  EXPECT_FALSE(entries[2].NameExist);
}

TEST_F(ServicesFileAddingTest, No_port_is_assigned_above_the_largest_number) {
  files.contents[path] = "top 2147483647/tcp\r\n";
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Append [NORVAX_K7_SERVER] to [" + path + L"]");
  EXPECT_EQ(files.contents[path], "top 2147483647/tcp\r\n");
}

}  // namespace
}  // namespace tarvik::test
