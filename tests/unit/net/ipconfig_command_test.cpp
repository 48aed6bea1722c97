#include "net/ipconfig_command.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "tests/unit/net/fake_pc.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

const std::wstring kBatch = L"C:\\Tarvik\\ipconfig.bat";
const std::wstring kOutput = L"C:\\Tarvik\\ipconfig.txt";

struct IpconfigCommandTest : testing::Test, FakePc {
  IpconfigCommandTest() {
    processes.onStart = [this] {
      files.contents[kOutput] = "IP Address: 192.168.1.10\r\nSubnet Mask: 255.255.255.0\r\n";
    };
  }

  bool Run() { return GetIPConfig(context, libraries, list); }

  void ExpectNothingLeftBehind() {
    EXPECT_TRUE(files.contents.empty());
    EXPECT_TRUE(processes.openHandles.empty());
  }

  std::vector<LocalAddressRecord> list{{L"9.9.9.9", L"", {}}};
};

TEST_F(IpconfigCommandTest, A_hidden_batch_file_in_the_programs_folder_writes_the_output) {
  ASSERT_TRUE(Run());
  EXPECT_EQ(files.written[kBatch], "cd\\\r\nipconfig > \"oem C:\\Tarvik\\ipconfig.txt\"\r\n");
  EXPECT_EQ(processes.commandLines, Lines{L"\"C:\\Tarvik\\ipconfig.bat\""});
  EXPECT_EQ(processes.windows, std::vector{StartWindow::Hidden});
  EXPECT_EQ(processes.openedAccess, 0x0400u);
  EXPECT_EQ(processes.openedId, 4711u);
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"192.168.1.10");
  EXPECT_TRUE(boxes.boxes.empty());
  ExpectNothingLeftBehind();
}

TEST_F(IpconfigCommandTest, A_folder_that_ends_in_a_backslash_gets_no_second_backslash) {
  folder = L"C:\\Tarvik\\";
  EXPECT_TRUE(Run());
  EXPECT_EQ(processes.commandLines, Lines{L"\"C:\\Tarvik\\ipconfig.bat\""});
}

TEST_F(IpconfigCommandTest, The_folder_name_is_written_in_the_OEM_code_page) {
  folder = L"C:\\診断";
  processes.onStart = [this] {
    files.contents[L"C:\\診断\\ipconfig.txt"] = "IP Address: 10.0.0.1\r\nSubnet Mask: 255.0.0.0\r\n";
  };
  EXPECT_TRUE(Run());
  EXPECT_EQ(files.written[L"C:\\診断\\ipconfig.bat"],
            "cd\\\r\nipconfig > \"" + codePage.ToOem(L"C:\\診断\\ipconfig.txt") + "\"\r\n");
  EXPECT_EQ(processes.commandLines, Lines{L"\"C:\\診断\\ipconfig.bat\""});
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].IpAddress, L"10.0.0.1");
  ExpectNothingLeftBehind();
}

TEST_F(IpconfigCommandTest, A_percent_sign_in_the_folder_name_is_doubled) {
  folder = L"C:\\100%";
  Run();
  EXPECT_EQ(files.written[L"C:\\100%\\ipconfig.bat"],
            "cd\\\r\nipconfig > \"oem C:\\100%%\\ipconfig.txt\"\r\n");
  EXPECT_EQ(processes.commandLines, Lines{L"\"C:\\100%\\ipconfig.bat\""});
}

TEST_F(IpconfigCommandTest, The_wait_for_the_batch_file_has_no_limit) {
  files.hiddenQueries = 1000;
  EXPECT_TRUE(Run());
  EXPECT_EQ(pump.now, 1000u * 500u + 500u);
  EXPECT_EQ(pump.eventRounds, 1001);
}

TEST_F(IpconfigCommandTest, A_stop_request_ends_the_wait_for_the_batch_file) {
  files.hiddenQueries = 1000;
  pump.stopAt = 1250;
  EXPECT_FALSE(Run());
  EXPECT_EQ(pump.now, 1250u);
  EXPECT_TRUE(processes.commandLines.empty());
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(IpconfigCommandTest, A_batch_file_that_cannot_be_written_is_a_failure_at_once) {
  files.unwritable.insert(kBatch);
  EXPECT_FALSE(Run());
  EXPECT_EQ(pump.now, 0u);
  EXPECT_TRUE(processes.commandLines.empty());
  EXPECT_TRUE(list.empty());
}

TEST_F(IpconfigCommandTest, A_failed_start_is_a_failure) {
  processes.processId = 0;
  EXPECT_FALSE(Run());
  EXPECT_EQ(processes.polls, 0);
  EXPECT_TRUE(boxes.boxes.empty());
  ExpectNothingLeftBehind();
}

TEST_F(IpconfigCommandTest, The_eleventh_poll_is_the_last) {
  processes.runningPolls = 10;
  EXPECT_TRUE(Run());
  EXPECT_EQ(processes.polls, 11);
  EXPECT_EQ(pump.now, 5500u);
  EXPECT_EQ(pump.eventRounds, 11);
  ExpectNothingLeftBehind();
}

TEST_F(IpconfigCommandTest, A_process_that_does_not_finish_is_reported_after_eleven_polls) {
  processes.runningPolls = 11;
  EXPECT_FALSE(Run());
  EXPECT_EQ(processes.polls, 11);
  EXPECT_EQ(pump.now, 5500u);
  EXPECT_EQ(boxes.Texts(), Lines{L"GetIPConfig:GetExitCodeProcess(tID=4711), [C:\\Tarvik\\ipconfig.bat]"});
  EXPECT_TRUE(list.empty());
  ExpectNothingLeftBehind();
}

TEST_F(IpconfigCommandTest, The_handle_is_closed_before_the_box_is_shown) {
  processes.runningPolls = 11;
  boxes.onShow = [this] { EXPECT_TRUE(processes.openHandles.empty()); };
  EXPECT_FALSE(Run());
}

TEST_F(IpconfigCommandTest, An_exit_code_other_than_0_does_not_count_as_finished) {
  processes.exitCode = 1;
  EXPECT_FALSE(Run());
  EXPECT_EQ(boxes.boxes.size(), 1u);
}

TEST_F(IpconfigCommandTest, An_exit_code_that_cannot_be_read_does_not_count_as_finished) {
  processes.exitCodeReadable = false;
  EXPECT_FALSE(Run());
  EXPECT_EQ(boxes.boxes.size(), 1u);
  ExpectNothingLeftBehind();
}

TEST_F(IpconfigCommandTest, A_process_that_cannot_be_opened_does_not_count_as_finished) {
  processes.handle = 0;
  EXPECT_FALSE(Run());
  EXPECT_EQ(boxes.boxes.size(), 1u);
}

TEST_F(IpconfigCommandTest, A_stop_request_ends_the_polling_without_a_box) {
  processes.runningPolls = 11;
  pump.stopAt = 1700;
  EXPECT_FALSE(Run());
  EXPECT_EQ(pump.now, 1700u);
  EXPECT_TRUE(boxes.boxes.empty());
  EXPECT_TRUE(list.empty());
  ExpectNothingLeftBehind();
}

TEST_F(IpconfigCommandTest, An_output_that_cannot_be_read_is_a_failure) {
  processes.onStart = nullptr;
  EXPECT_FALSE(Run());
  EXPECT_TRUE(list.empty());
  ExpectNothingLeftBehind();
}

TEST_F(IpconfigCommandTest, An_output_without_addresses_is_an_empty_list) {
  processes.onStart = [this] { files.contents[kOutput] = ""; };
  EXPECT_TRUE(Run());
  EXPECT_TRUE(list.empty());
}

TEST_F(IpconfigCommandTest, An_exception_leaves_no_file_and_no_handle) {
  processes.onPoll = [] { throw RuntimeError(L"broken"); };
  EXPECT_THROW(Run(), RuntimeError);
  ExpectNothingLeftBehind();
}

}  // namespace
}  // namespace tarvik::test
