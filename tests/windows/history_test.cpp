#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

constexpr char kKey[] = "Software\\NORVAX_FN_PingUtil\\History";

class History : public WindowsTest<History> {
 protected:
  void SetUp() override {
    WindowsTest::SetUp();
    if (!IsSkipped()) Pc().DeleteRegistryKey(kKey);
  }
};

TEST_F(History, Is_read_newest_first_without_empty_and_missing_entries) {
  Pc().SetRegistryText(kKey, "01", "192.168.1.1");
  Pc().SetRegistryText(kKey, "02", "");
  Pc().SetRegistryText(kKey, "03", "cnc-3");
  Pc().SetRegistryText(kKey, "11", "192.168.1.11");
  const WindowUnderTest window = Start();
  EXPECT_EQ(window.ComboItems(ID_cmbIPAddr), (std::vector<std::string>{"192.168.1.1", "cnc-3"}));
  EXPECT_EQ(window.Text(ID_cmbIPAddr), "192.168.1.1");
}

TEST_F(History, Enter_in_the_open_list_selects_the_entry_and_starts_the_check) {
  Pc().SetRegistryText(kKey, "01", "127.0.0.1");
  Pc().SetRegistryText(kKey, "02", "127.0.0.2");
  const WindowUnderTest window = Start();
  const std::vector<std::string> known = window.Lines(ID_lstResult);
  window.SetFocus(ID_cmbIPAddr);
  window.Press("F4");
  window.Press("Down");
  window.Settle();
  EXPECT_EQ(window.Lines(ID_lstResult), known);
  window.Press("Enter");
  window.WaitForText(ID_cmbIPAddr, "127.0.0.2");
  window.WaitForChange(ID_lstResult, known, kSoon);
}

TEST_F(History, Is_saved_without_gaps_when_the_program_ends) {
  Pc().SetRegistryText(kKey, "01", "10.1.1.1");
  Pc().SetRegistryText(kKey, "03", "10.1.1.3");
  Start().Close();
  Program().WaitForEnd();
  EXPECT_EQ(Pc().RegistryText(kKey, "01"), "10.1.1.1");
  EXPECT_EQ(Pc().RegistryText(kKey, "02"), "10.1.1.3");
}

TEST_F(History, An_empty_history_stays_empty) {
  const WindowUnderTest window = Start();
  EXPECT_EQ(window.Text(ID_cmbIPAddr), "");
  EXPECT_TRUE(window.ComboItems(ID_cmbIPAddr).empty());
  window.Close();
  Program().WaitForEnd();
  EXPECT_EQ(Pc().RegistryText(kKey, "01"), std::nullopt);
}

TEST_F(History, A_very_long_entry_does_not_hide_the_next) {
  Pc().SetRegistryText(kKey, "01", std::string(3000, 'a'));
  Pc().SetRegistryText(kKey, "02", "10.1.1.2");
  const WindowUnderTest window = Start();
  EXPECT_EQ(window.ComboItems(ID_cmbIPAddr).back(), "10.1.1.2");
}

}  // namespace
}  // namespace tarvik::lab
