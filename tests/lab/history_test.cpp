#include "app/control_ids.h"
#include "tests/lab/lab_fixture.h"

namespace tarvik::lab {
namespace {

using Lines = std::vector<std::string>;

constexpr char kKey[] = "Software\\NORVAX_FN_PingUtil\\History";

class TestedAddresses : public LabTest<TestedAddresses> {
 protected:
  void SetUp() override {
    LabTest::SetUp();
    if (!IsSkipped()) Pc().DeleteRegistryKey(kKey);
  }

  /// Types the address into the box, tests it, and closes the program.
  void TestAndClose(const std::string& address) {
    const WindowUnderTest window = Start("-PING_N 1 -X");
    window.SetText(ID_cmbIPAddr, "");
    window.Type(ID_cmbIPAddr, address);
    window.Click(ID_cmdPing);
    Listener listener;
    listener.onBox = [](const BoxUnderTest&) {};
    FollowRun(Program(), window, std::chrono::seconds(60), listener);
    window.Close();
    Program().WaitForEnd();
  }

  static std::string Key(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

  static Lines Stored() {
    Lines stored;
    for (int i = 1; i <= 12; ++i) {
      if (const auto text = Pc().RegistryText(kKey, Key(i))) stored.push_back(*text);
    }
    return stored;
  }

  static void Store(const Lines& addresses) {
    for (size_t i = 0; i < addresses.size(); ++i) {
      Pc().SetRegistryText(kKey, Key(static_cast<int>(i) + 1), addresses[i]);
    }
  }
};

TEST_F(TestedAddresses, Are_kept_after_closing) {
  TestAndClose(kNearAddress);
  EXPECT_EQ(Stored(), (Lines{kNearAddress}));
  const WindowUnderTest window = Start();
  EXPECT_EQ(window.Text(ID_cmbIPAddr), kNearAddress);
}

TEST_F(TestedAddresses, The_eleventh_pushes_the_oldest_out) {
  Store({"10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.4", "10.0.0.5", "10.0.0.6", "10.0.0.7", "10.0.0.8",
         "10.0.0.9", "10.0.0.10"});
  TestAndClose(kNearAddress);
  EXPECT_EQ(Stored(), (Lines{kNearAddress, "10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.4", "10.0.0.5",
                             "10.0.0.6", "10.0.0.7", "10.0.0.8", "10.0.0.9"}));
}

TEST_F(TestedAddresses, One_that_is_known_leaves_the_order) {
  const Lines known = {"10.0.0.1", kNearAddress, "10.0.0.3"};
  Store(known);
  TestAndClose(kNearAddress);
  EXPECT_EQ(Stored(), known);
}

TEST_F(TestedAddresses, An_empty_box_is_never_added) {
  TestAndClose("");
  EXPECT_TRUE(Stored().empty());
}

TEST_F(TestedAddresses, A_name_that_cannot_be_resolved_is_not_kept) {
  TestAndClose("cnc-9");
  EXPECT_TRUE(Stored().empty());
}

TEST_F(TestedAddresses, A_target_from_the_command_line_is_kept_too) {
  Store({"10.0.0.1"});
  const WindowUnderTest window = Start(std::string("-PING_N 1 ") + kNearAddress);
  FollowRun(Program(), window, std::chrono::seconds(60));
  EXPECT_EQ(window.ComboItems(ID_cmbIPAddr), (Lines{kNearAddress, "10.0.0.1"}));
  window.Close();
  Program().WaitForEnd();
  EXPECT_EQ(Stored(), (Lines{kNearAddress, "10.0.0.1"}));
}

}  // namespace
}  // namespace tarvik::lab
