#include "k7/services_file.h"

#include "tests/unit/k7/services_file_fixture.h"

namespace tarvik::test {
namespace {

class ServicesFileTest : public ServicesFileFixture {
 protected:
  /// The K7 Server's entry after a scan of these bytes.
  ServiceEntry Scan(const std::string& bytes) {
    ServiceEntry entries[] = {K7Entry()};
    highest = ScanServices(bytes, entries, codePage);
    return entries[0];
  }

  /// The K7 Server's entry after a check of the file.
  ServiceEntry Check() {
    ServiceEntry entries[] = {K7Entry()};
    CheckServicesFile(files, codePage, errors, boxes, path, entries);
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

  int32_t highest = 0;  ///< port that the latest scan returned
};

TEST_F(ServicesFileTest, A_line_with_name_port_and_protocol_is_found) {
  ExpectPort("NORVAX_K7_SERVER 8193/udp\r\n", 8193);
}

TEST_F(ServicesFileTest, Any_number_of_spaces_tabs_and_slashes_separates_words) {
  ExpectPort(" \tNORVAX_K7_SERVER \t 8193 // udp", 8193);
  ExpectPort("NORVAX_K7_SERVER/8193/udp", 8193);
  ExpectPort("NORVAX_K7_SERVER\t8193\tudp\talias # comment", 8193);
}

TEST_F(ServicesFileTest, Lines_end_with_CR_LF_or_CR_or_LF) {
  for (const char* const end : {"\r\n", "\n", "\r", "\n\n"})
    ExpectPort(std::string("echo 7/tcp") + end + "NORVAX_K7_SERVER 8193/udp" + end + "x 1/udp", 8193);
}

TEST_F(ServicesFileTest, The_protocol_must_match_exactly) {
  ExpectNothing("NORVAX_K7_SERVER 8193/tcp");
  ExpectNothing("NORVAX_K7_SERVER 8193/UDP");
  ExpectNothing("NORVAX_K7_SERVER 8193/udp#comment");
  ExpectPort("NORVAX_K7_SERVER 8193/tcp\nNORVAX_K7_SERVER 8194/udp", 8194);
}

TEST_F(ServicesFileTest, A_line_whose_first_word_contains_a_hash_is_a_comment) {
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

TEST_F(ServicesFileTest, The_name_must_match_exactly) {
  ExpectNothing("norvax_k7_server 8193/udp");
  ExpectNothing("NORVAX_K7_SERVER2 8193/udp");
  ExpectNothing("x 8193/udp NORVAX_K7_SERVER");
}

TEST_F(ServicesFileTest, Only_the_second_word_may_be_numeric) {
  Scan("4711 8193 udp\nx 8194 17\ny port udp\n-5 8195 udp\nz 81.93 udp\nz 8193x udp\nz - udp");
  EXPECT_EQ(highest, 0);
  Scan("4711x 8193 udp");
  EXPECT_EQ(highest, 8193);
}

TEST_F(ServicesFileTest, A_line_whose_port_does_not_fit_32_bits_is_skipped) {
  ExpectNothing("NORVAX_K7_SERVER 2147483648/udp");
  ExpectNothing("NORVAX_K7_SERVER -2147483649/udp");
  ExpectNothing("NORVAX_K7_SERVER " + std::string(5000, '9') + "/udp");
  EXPECT_EQ(highest, 0);
  ExpectPort("NORVAX_K7_SERVER 2147483647/udp", 2147483647);
  ExpectPort("NORVAX_K7_SERVER -1/udp", -1);
}

TEST_F(ServicesFileTest, The_first_matching_line_wins) {
  ExpectPort("NORVAX_K7_SERVER 8193/udp\nNORVAX_K7_SERVER 9000/udp", 8193);
  EXPECT_EQ(highest, 9000);
}

TEST_F(ServicesFileTest, A_port_of_another_service_counts_as_existing) {
  ServiceEntry entries[] = {{L"NORVAX_K7_SERVER", 8193, L"udp", false, false}};
  ScanServices("other 8193/tcp", entries, codePage);
  EXPECT_FALSE(entries[0].NameExist);
  EXPECT_TRUE(entries[0].PortNoExist);
  EXPECT_EQ(entries[0].PortNo, 8193);
}

TEST_F(ServicesFileTest, A_line_with_port_0_matches_an_entry_without_a_port) {
  const ServiceEntry entry = Scan("other 0/tcp");
  EXPECT_FALSE(entry.NameExist);
  EXPECT_TRUE(entry.PortNoExist);
}

TEST_F(ServicesFileTest, Several_entries_are_found_in_one_scan) {
  ServiceEntry entries[] = {{L"one", 0, L"udp", false, false},
                            {L"two", 0, L"tcp", false, false},
                            {L"three", 0, L"tcp", false, false}};
  EXPECT_EQ(ScanServices("two 2/tcp\none 7000/udp\nfour 4/udp", entries, codePage), 7000);
  EXPECT_EQ(entries[0].PortNo, 7000);
  EXPECT_EQ(entries[1].PortNo, 2);
  EXPECT_FALSE(entries[2].NameExist);
  EXPECT_EQ(ScanServices("two 2/tcp", {}, codePage), 2);
}

TEST_F(ServicesFileTest, A_scan_accepts_any_bytes_and_any_length) {
  std::string bytes(1'000'000, '\xFF');
  bytes += std::string("\0\0 \x1A\n", 5);
  bytes += "NORVAX_K7_SERVER 8193/udp " + std::string(1'000'000, ' ');
  ExpectPort(bytes, 8193);
}

TEST_F(ServicesFileTest, A_check_reads_the_file_and_does_not_change_it) {
  files.contents[path] = "NORVAX_K7_SERVER 8193/udp";
  EXPECT_EQ(Check().PortNo, 8193);
  EXPECT_TRUE(files.written.empty());
  EXPECT_EQ(files.contents.size(), 1U);
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(ServicesFileTest, An_unreadable_file_is_reported_with_error_number_and_description_on_a_new_line) {
  EXPECT_FALSE(Check().NameExist);
  ExpectFileError(L"Can't Open [" + path + L"] for Read\n\rERROR: 2 - The file is not there.");
}

TEST_F(ServicesFileTest, A_failure_without_an_error_number_is_reported_without_a_description) {
  files.failure = 0;
  Check();
  ExpectFileError(L"Can't Open [" + path + L"] for Read\n\r");
}

}  // namespace
}  // namespace tarvik::test
