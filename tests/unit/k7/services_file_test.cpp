#include "k7/services_file.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_modules.h"

namespace tarvik::test {
namespace {

const std::wstring kPath = L"C:\\Windows\\System32\\Drivers\\Etc\\Services";
const std::wstring kBackup = kPath + L".202402030405";
constexpr LocalTime kNow{2024, 2, 3, 4, 5};

class ServicesFileTest : public testing::Test {
 protected:
  ServicesFileTest() { kernel.messages[2] = "The file is not there.\r\n"; }

  static ServiceEntry K7Entry() { return {L"NORVAX_K7_SERVER", 0, L"udp", false, false}; }

  /// The entry of the K7 Server behind a scan of these bytes.
  ServiceEntry Scan(const std::string& bytes) {
    ServiceEntry entries[] = {K7Entry()};
    highest = ScanServices(bytes, entries, codePage);
    return entries[0];
  }

  void ExpectPort(const std::string& bytes, int32_t port) {
    const ServiceEntry entry = Scan(bytes);
    EXPECT_TRUE(entry.NameExist) << bytes;
    EXPECT_TRUE(entry.PortNoExist) << bytes;
    EXPECT_EQ(entry.PortNo, port) << bytes;
  }

  void ExpectNothing(const std::string& bytes) {
    const ServiceEntry entry = Scan(bytes);
    EXPECT_FALSE(entry.NameExist) << bytes;
    EXPECT_FALSE(entry.PortNoExist) << bytes;
    EXPECT_EQ(entry.PortNo, 0) << bytes;
  }

  ServicesFileTools Tools() { return {files, codePage, errors, boxes}; }

  bool Add(std::vector<ServiceEntry>& entries) {
    return CheckServicesFile(Tools(), kPath, entries, false, kNow);
  }

  void ExpectFileError(const std::wstring& text) {
    ASSERT_EQ(boxes.boxes.size(), 1U);
    EXPECT_EQ(boxes.boxes[0].text, text);
    EXPECT_TRUE(boxes.boxes[0].systemModal);
    EXPECT_EQ(boxes.boxes[0].icon, report::BoxIcon::Critical);
  }

  FakeCodePage codePage;
  FakeFiles files;
  FakeKernel kernel;
  FakeBoxes boxes;
  FmtErrMsg errors{kernel, codePage, boxes};
  int32_t highest = 0;
};

// Reading

TEST_F(ServicesFileTest, A_line_with_name_port_and_protocol_is_found) {
  ExpectPort("NORVAX_K7_SERVER 8193/udp\r\n", 8193);
}

TEST_F(ServicesFileTest, Words_stand_between_blanks_tabs_and_slashes_any_number_of_them) {
  ExpectPort(" \tNORVAX_K7_SERVER \t 8193 // udp", 8193);
  ExpectPort("NORVAX_K7_SERVER/8193/udp", 8193);
  ExpectPort("NORVAX_K7_SERVER\t8193\tudp\talias # comment", 8193);
}

TEST_F(ServicesFileTest, Lines_end_with_CR_LF_or_either) {
  for (const char* const end : {"\r\n", "\n", "\r", "\n\n"})
    ExpectPort(std::string("echo 7/tcp") + end + "NORVAX_K7_SERVER 8193/udp" + end + "x 1/udp", 8193);
}

TEST_F(ServicesFileTest, The_protocol_is_compared_too) {
  ExpectNothing("NORVAX_K7_SERVER 8193/tcp");
  ExpectNothing("NORVAX_K7_SERVER 8193/UDP");
  ExpectNothing("NORVAX_K7_SERVER 8193/udp#comment");
  ExpectPort("NORVAX_K7_SERVER 8193/tcp\nNORVAX_K7_SERVER 8194/udp", 8194);
}

TEST_F(ServicesFileTest, A_first_word_with_a_hash_makes_a_comment) {
  ExpectNothing("#NORVAX_K7_SERVER 8193/udp");
  ExpectNothing("# NORVAX_K7_SERVER 8193/udp");
  Scan("other#name 9000/udp");
  EXPECT_EQ(highest, 0);
}

TEST_F(ServicesFileTest, A_line_of_fewer_than_three_words_is_skipped) {
  for (const char* const line :
       {"", " ", "NORVAX_K7_SERVER", "NORVAX_K7_SERVER 8193", "NORVAX_K7_SERVER 8193/ \t"})
    ExpectNothing(line);
}

TEST_F(ServicesFileTest, The_name_is_compared_to_the_letter) {
  ExpectNothing("norvax_k7_server 8193/udp");
  ExpectNothing("NORVAX_K7_SERVER2 8193/udp");
  ExpectNothing("x 8193/udp NORVAX_K7_SERVER");
}

TEST_F(ServicesFileTest, Only_the_second_word_may_be_a_number) {
  Scan("4711 8193 udp\nx 8194 17\ny port udp\n-5 8195 udp\nz 81.93 udp\nz 8193x udp\nz - udp");
  EXPECT_EQ(highest, 0);
  Scan("4711x 8193 udp");
  EXPECT_EQ(highest, 8193);
}

TEST_F(ServicesFileTest, A_port_that_does_not_fit_32_bits_makes_its_line_no_data) {
  ExpectNothing("NORVAX_K7_SERVER 2147483648/udp");
  ExpectNothing("NORVAX_K7_SERVER -2147483649/udp");
  ExpectNothing("NORVAX_K7_SERVER " + std::string(5000, '9') + "/udp");
  EXPECT_EQ(highest, 0);
  ExpectPort("NORVAX_K7_SERVER 2147483647/udp", 2147483647);
  ExpectPort("NORVAX_K7_SERVER -1/udp", -1);
}

TEST_F(ServicesFileTest, The_first_matching_line_counts) {
  ExpectPort("NORVAX_K7_SERVER 8193/udp\nNORVAX_K7_SERVER 9000/udp", 8193);
  EXPECT_EQ(highest, 9000);
}

TEST_F(ServicesFileTest, A_port_that_another_service_has_is_found_without_the_name) {
  ServiceEntry entries[] = {{L"NORVAX_K7_SERVER", 8193, L"udp", false, false}};
  ScanServices("other 8193/tcp", entries, codePage);
  EXPECT_FALSE(entries[0].NameExist);
  EXPECT_TRUE(entries[0].PortNoExist);
  EXPECT_EQ(entries[0].PortNo, 8193);
}

TEST_F(ServicesFileTest, A_line_with_port_0_is_taken_for_the_port_of_an_entry_without_one) {
  const ServiceEntry entry = Scan("other 0/tcp");
  EXPECT_FALSE(entry.NameExist);
  EXPECT_TRUE(entry.PortNoExist);
}

TEST_F(ServicesFileTest, Several_entries_are_looked_for_in_one_pass) {
  ServiceEntry entries[] = {{L"one", 0, L"udp", false, false},
                            {L"two", 0, L"tcp", false, false},
                            {L"three", 0, L"tcp", false, false}};
  EXPECT_EQ(ScanServices("two 2/tcp\none 7000/udp\nfour 4/udp", entries, codePage), 7000);
  EXPECT_EQ(entries[0].PortNo, 7000);
  EXPECT_EQ(entries[1].PortNo, 2);
  EXPECT_FALSE(entries[2].NameExist);
  EXPECT_EQ(ScanServices("two 2/tcp", {}, codePage), 2);
}

TEST_F(ServicesFileTest, Any_bytes_and_any_length_are_read) {
  std::string bytes(1'000'000, '\xFF');
  bytes += std::string("\0\0 \x1A\n", 5);
  bytes += "NORVAX_K7_SERVER 8193/udp " + std::string(1'000'000, ' ');
  ExpectPort(bytes, 8193);
}

TEST_F(ServicesFileTest, Checking_reads_the_file_and_leaves_it_alone) {
  files.contents[kPath] = "NORVAX_K7_SERVER 8193/udp";
  ServiceEntry entries[] = {K7Entry()};
  CheckServicesFile(Tools(), kPath, entries, true);
  EXPECT_EQ(entries[0].PortNo, 8193);
  EXPECT_TRUE(files.written.empty());
  EXPECT_EQ(files.contents.size(), 1U);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(ServicesFileTest,
       A_file_that_cannot_be_read_is_told_with_number_and_description_on_a_line_of_their_own) {
  ServiceEntry entries[] = {K7Entry()};
  CheckServicesFile(Tools(), kPath, entries, true);
  ExpectFileError(L"Can't Open [" + kPath + L"] for Read\n\rERROR: 2 - The file is not there.");
  EXPECT_FALSE(entries[0].NameExist);
}

TEST_F(ServicesFileTest, A_failure_without_a_number_is_told_alone) {
  files.failure = 0;
  ServiceEntry entries[] = {K7Entry()};
  CheckServicesFile(Tools(), kPath, entries, true);
  ExpectFileError(L"Can't Open [" + kPath + L"] for Read\n\r");
}

// Adding

TEST_F(ServicesFileTest, Nothing_is_touched_when_no_entry_is_missing) {
  files.contents[kPath] = "NORVAX_K7_SERVER 8193/udp";
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_TRUE(Add(entries));
  EXPECT_EQ(files.contents.size(), 1U);
  EXPECT_EQ(files.contents[kPath], "NORVAX_K7_SERVER 8193/udp");
}

TEST_F(ServicesFileTest, A_missing_entry_gets_the_next_free_port_and_the_file_a_copy) {
  const std::string before = "echo 7/tcp\r\ngame 9000/udp\r\n";
  files.contents[kPath] = before;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_TRUE(Add(entries));
  EXPECT_EQ(files.contents[kPath],
            before + "NORVAX_K7_SERVER  9001/udp  # For NORVAX FA System for PC, 2024/02/03\r\n");
  EXPECT_EQ(files.contents[kBackup], before);
  EXPECT_TRUE(entries[0].NameExist);
  EXPECT_TRUE(entries[0].PortNoExist);
  EXPECT_EQ(entries[0].PortNo, 9001);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(ServicesFileTest, What_was_added_is_found_again) {
  files.contents[kPath] = "echo 7/tcp";
  std::vector<ServiceEntry> entries{
      K7Entry(), {L"x", 0, L"tcp", false, false}, {L"y", 500, L"tcp", false, false}};
  EXPECT_TRUE(Add(entries));
  EXPECT_TRUE(files.contents[kPath].starts_with("echo 7/tcp\r\nNORVAX_K7_SERVER  8/udp"));
  std::vector<ServiceEntry> again{
      K7Entry(), {L"x", 0, L"tcp", false, false}, {L"y", 0, L"tcp", false, false}};
  CheckServicesFile(Tools(), kPath, again, true);
  EXPECT_EQ(again[0].PortNo, 8);
  EXPECT_EQ(again[1].PortNo, 9);
  EXPECT_EQ(again[2].PortNo, 500);
}

TEST_F(ServicesFileTest, No_two_new_entries_get_the_same_port) {
  files.contents[kPath] = "echo 7/tcp\r\n";
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

TEST_F(ServicesFileTest, A_write_protected_file_is_protected_again_behind_the_work) {
  files.contents[kPath] = "";
  files.attributes[kPath] = 0x21;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_TRUE(Add(entries));
  EXPECT_EQ(files.attributes[kPath], 0x21U);
  EXPECT_FALSE(files.contents[kPath].empty());
}

TEST_F(ServicesFileTest, Adding_to_a_file_that_cannot_be_read_is_told) {
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Open [" + kPath + L"] for Read\n\rERROR: 2 - The file is not there.");
}

TEST_F(ServicesFileTest, Without_a_copy_nothing_is_added) {
  files.contents[kPath] = "echo 7/tcp";
  files.unwritable.insert(kBackup);
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't backup\r\nERROR: 2 - The file is not there.");
  EXPECT_EQ(files.contents[kPath], "echo 7/tcp");
}

TEST_F(ServicesFileTest, Attributes_that_cannot_be_read_are_told) {
  files.contents[kPath] = "echo 7/tcp";
  files.attributesReadable = false;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Get Attribute [" + kPath + L"]\r\nERROR: 2 - The file is not there.");
  EXPECT_EQ(files.contents[kPath], "echo 7/tcp");
}

TEST_F(ServicesFileTest, Attributes_that_cannot_be_set_are_told) {
  files.contents[kPath] = "echo 7/tcp";
  files.attributes[kPath] = 1;
  files.attributesLeft = 0;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Set Attribute [" + kPath + L"]\r\nERROR: 2 - The file is not there.");
  EXPECT_EQ(files.contents[kPath], "echo 7/tcp");
}

TEST_F(ServicesFileTest, Attributes_that_cannot_be_restored_are_told) {
  files.contents[kPath] = "";
  files.attributes[kPath] = 1;
  files.attributesLeft = 1;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_TRUE(Add(entries));
  ExpectFileError(L"Can't Set Attribute [" + kPath + L"]\r\nERROR: 2 - The file is not there.");
}

TEST_F(ServicesFileTest, A_file_that_cannot_be_opened_for_appending_is_told) {
  files.contents[kPath] = "echo 7/tcp";
  files.attributes[kPath] = 1;
  files.appendsLeft = 0;
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Open [" + kPath + L"] for Append\r\nERROR: 2 - The file is not there.");
  EXPECT_EQ(files.attributes[kPath], 1U);
}

TEST_F(ServicesFileTest, A_line_that_cannot_be_written_is_told_and_ends_the_work) {
  files.contents[kPath] = "echo 7/tcp\r\n";
  files.appendsLeft = 2;
  std::vector<ServiceEntry> entries{
      {L"x", 0, L"tcp", false, false}, K7Entry(), {L"y", 0, L"tcp", false, false}};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Append [NORVAX_K7_SERVER  9/udp  # For NORVAX FA System for PC, 2024/02/03] to [" +
                  kPath + L"]\r\nERROR: 2 - The file is not there.");
  EXPECT_TRUE(entries[0].NameExist);
  EXPECT_FALSE(entries[1].NameExist);
  EXPECT_FALSE(entries[2].NameExist);
}

TEST_F(ServicesFileTest, Above_the_highest_number_there_is_no_further_port) {
  files.contents[kPath] = "top 2147483647/tcp\r\n";
  std::vector<ServiceEntry> entries{K7Entry()};
  EXPECT_FALSE(Add(entries));
  ExpectFileError(L"Can't Append [NORVAX_K7_SERVER] to [" + kPath + L"]");
  EXPECT_EQ(files.contents[kPath], "top 2147483647/tcp\r\n");
}

}  // namespace
}  // namespace tarvik::test
