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

}  // namespace
}  // namespace tarvik::lab
