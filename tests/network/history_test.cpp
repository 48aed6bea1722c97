// The tested addresses that the program keeps in the registry.

#include "tests/network/lab_fixture.h"

namespace tarvik::lab {
namespace {

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
    ClickAndFollow(Program(), window, ID_cmdPing, kRunTimeOut, {.onBox = [](const BoxUnderTest&) {}});
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

TEST_F(TestedAddresses, An_eleventh_replaces_the_oldest) {
  Store({"10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.4", "10.0.0.5", "10.0.0.6", "10.0.0.7", "10.0.0.8",
         "10.0.0.9", "10.0.0.10"});
  TestAndClose(kNearAddress);
  EXPECT_EQ(Stored(), (Lines{kNearAddress, "10.0.0.1", "10.0.0.2", "10.0.0.3", "10.0.0.4", "10.0.0.5",
                             "10.0.0.6", "10.0.0.7", "10.0.0.8", "10.0.0.9"}));
}

TEST_F(TestedAddresses, A_known_one_does_not_change_the_order) {
  const Lines known = {"10.0.0.1", kNearAddress, "10.0.0.3"};
  Store(known);
  TestAndClose(kNearAddress);
  EXPECT_EQ(Stored(), known);
}

TEST_F(TestedAddresses, An_empty_one_is_never_kept) {
  TestAndClose("");
  EXPECT_TRUE(Stored().empty());
}

TEST_F(TestedAddresses, An_unresolvable_name_is_not_kept) {
  TestAndClose("cnc-9");
  EXPECT_TRUE(Stored().empty());
}

TEST_F(TestedAddresses, A_target_from_the_command_line_is_kept_too) {
  Store({"10.0.0.1"});
  const WindowUnderTest window = Start(std::string("-PING_N 1 ") + kNearAddress);
  FollowRun(Program(), window, kRunTimeOut);
  EXPECT_EQ(window.ComboItems(ID_cmbIPAddr), (Lines{kNearAddress, "10.0.0.1"}));
  window.Close();
  Program().WaitForEnd();
  EXPECT_EQ(Stored(), (Lines{kNearAddress, "10.0.0.1"}));
}

}  // namespace
}  // namespace tarvik::lab
