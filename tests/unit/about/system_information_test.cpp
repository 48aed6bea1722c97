#include "about/system_information.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_processes.h"
#include "tests/fakes/fake_system.h"

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

constexpr wchar_t kTool[] = L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO|PATH";
constexpr wchar_t kFolder[] = L"SOFTWARE\\Microsoft\\Shared Tools Location|MSINFO";

struct StartSysInfoTest : testing::Test {
  void Start() { StartSysInfo(system, processes, boxes); }
  FakeSystem system;
  FakeProcesses processes;
  FakeBoxes boxes;
};

TEST_F(StartSysInfoTest, Starts_the_tool_named_in_the_registry) {
  system.registry[kTool] = L"C:\\Program Files\\msinfo32.exe";
  system.registry[kFolder] = L"C:\\Other";
  Start();
  EXPECT_EQ(processes.commandLines, Lines{L"\"C:\\Program Files\\msinfo32.exe\""});
  EXPECT_EQ(processes.windows, std::vector<StartWindow>{StartWindow::NormalFocused});
  EXPECT_TRUE(boxes.boxes.empty());
}

TEST_F(StartSysInfoTest, Otherwise_starts_the_tool_in_the_shared_tools_folder) {
  system.registry[kFolder] = L"C:\\Shared";
  Start();
  EXPECT_EQ(processes.commandLines, Lines{L"\"C:\\Shared\\MSINFO32.EXE\""});
  system.registry[kTool] = L"";
  Start();
  EXPECT_EQ(processes.commandLines.back(), L"\"C:\\Shared\\MSINFO32.EXE\"");
}

TEST_F(StartSysInfoTest, Adds_no_quotes_to_a_quoted_path) {
  system.registry[kTool] = L"\"C:\\a b.exe\" /x";
  Start();
  EXPECT_EQ(processes.commandLines, Lines{L"\"C:\\a b.exe\" /x"});
}

TEST_F(StartSysInfoTest, Reports_a_missing_tool) {
  Start();
  EXPECT_TRUE(processes.commandLines.empty());
  EXPECT_EQ(boxes.Texts(), Lines{L"Cannot display the system information"});
}

TEST_F(StartSysInfoTest, Reports_a_tool_that_does_not_start) {
  system.registry[kTool] = L"C:\\gone.exe";
  processes.processId = 0;
  Start();
  EXPECT_EQ(boxes.Texts(), Lines{L"Cannot display the system information"});
}

}  // namespace
}  // namespace tarvik::test
