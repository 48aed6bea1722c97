#include "app/control_ids.h"
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

TEST_F(History, Is_read_newest_first_from_the_registry) {
  Pc().SetRegistryText(kKey, "01", "192.168.1.1");
  Pc().SetRegistryText(kKey, "03", "cnc-3");
  const WindowUnderTest window = Start();
  EXPECT_EQ(window.ComboItems(ID_cmbIPAddr), (std::vector<std::string>{"192.168.1.1", "cnc-3"}));
  EXPECT_EQ(window.Text(ID_cmbIPAddr), "192.168.1.1");
}

TEST_F(History, Keeps_a_tested_address_after_the_program_has_closed) {
  const WindowUnderTest window = Start("-PING_N 0 -TCP_PORT 1 127.0.0.1");
  EXPECT_TRUE(WaitUntil(kSoon, [&] { return window.Text(ID_cmdPing) == "&Ping"; }));
  window.Close();
  EXPECT_EQ(Program().WaitForEnd(), 0U);
  EXPECT_EQ(Pc().RegistryText(kKey, "01"), "127.0.0.1");
}

}  // namespace
}  // namespace tarvik::lab
