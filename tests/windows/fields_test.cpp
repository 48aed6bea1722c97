#include <algorithm>

#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

class Fields : public WindowsTest<Fields> {};

TEST_F(Fields, Have_defaults_without_a_command_line) {
  const WindowUnderTest window = Start();
  EXPECT_EQ(window.Text(ID_txtPingReqCount), "4");
  EXPECT_EQ(window.Text(ID_txtTcpPortNo), "8193");
  EXPECT_EQ(window.Text(ID_txtNxlibTimeOut), "10");
  EXPECT_EQ(window.Text(ID_txtK7ApiTestCount), "10");
}

TEST_F(Fields, Take_their_values_from_the_command_line) {
  // The last option has no value and changes nothing.
  const WindowUnderTest window = Start("-PING_N 7 -TCP_PORT 9000 -NXLIB_TMOUT 3 -PING_N");
  EXPECT_EQ(window.Text(ID_txtPingReqCount), "7");
  EXPECT_EQ(window.Text(ID_txtTcpPortNo), "9000");
  EXPECT_EQ(window.Text(ID_txtNxlibTimeOut), "3");
}

TEST_F(Fields, Are_named_by_the_label_before_them) {
  const WindowUnderTest window = Start();
  constexpr std::pair<int, int> kLabels[] = {
      {ID_cmbIPAddr, ID_lblIPAddr},
      {ID_lstResult, ID_lblResult},
      {ID_txtPingReqCount, ID_lblPingReqCount},
      {ID_txtNxlibTimeOut, ID_lblNxlibTimeOut},
      {ID_txtTcpPortNo, ID_lblTcpPortNo},
      {ID_txtAccessCode, ID_lblAccessCode},
      {ID_txtK7ApiTestCount, ID_lblTestCount},
      {ID_txtFtpUsername, ID_lblFtpUsername},
      {ID_txtFtpPasswd, ID_lblFtpPasswd},
  };
  for (const auto& [field, label] : kLabels) {
    const WindowUnderTest::ControlInfo before = window.Previous(field);
    EXPECT_EQ(before.id, label);
    EXPECT_EQ(before.windowClass, "Static") << label;
  }
}

TEST_F(Fields, The_menu_has_the_about_box_but_no_PMC_window) {
  const std::vector<WindowUnderTest::MenuItem> menu = Start().Menu();
  const auto has = [&menu](int id) {
    return std::any_of(menu.begin(), menu.end(), [id](const auto& item) { return item.id == id; });
  };
  EXPECT_TRUE(has(ID_mnuHelpSub));
  EXPECT_FALSE(has(ID_mnuPMC));
}

TEST_F(Fields, LOCALEID_selects_the_language_file) {
  EXPECT_EQ(Start().Text(ID_lblIPAddr), "IP address or host &name:");
  EXPECT_EQ(Start("-LOCALEID 1041 -X 0").Text(ID_lblIPAddr), "IPｱﾄﾞﾚｽ/ﾎｽﾄ名(&N):");
}

}  // namespace
}  // namespace tarvik::lab
