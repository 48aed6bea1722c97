#include "ftp/ftp_client.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_wininet.h"

namespace tarvik::test {
namespace {

using Calls = std::vector<std::string>;

FileTime Time(uint64_t steps) { return {static_cast<uint32_t>(steps), static_cast<uint32_t>(steps >> 32)}; }

class FtpClient : public testing::Test {
 protected:
  void TearDown() override {
    EXPECT_TRUE(wininet.open.empty());
    EXPECT_EQ(wininet.misuses, 0);
  }

  bool Connect(clsFtpClient& client) { return client.Connect(L"192.168.1.100", L"cnc", L"secret"); }

  FakeWininet wininet;
  FakeCodePage codePage;
};

TEST_F(FtpClient, The_session_is_opened_and_closed_with_the_object) {
  {
    const clsFtpClient client(wininet, codePage);
    EXPECT_EQ(wininet.calls, Calls{"InternetOpenA(none, 0, none, none, 0)"});
  }
  EXPECT_EQ(wininet.calls.back(), "InternetCloseHandle(1)");
}

TEST_F(FtpClient, A_connection_uses_active_mode_port_21_and_a_status_callback) {
  clsFtpClient client(wininet, codePage);
  EXPECT_TRUE(Connect(client));
  EXPECT_EQ(wininet.CallsOf("InternetConnectA"),
            Calls{"InternetConnectA(192.168.1.100, 21, cnc, secret, 1, 0, 0)"});
  EXPECT_EQ(wininet.CallsOf("InternetSetStatusCallback").size(), 1U);
}

TEST_F(FtpClient, The_port_can_be_changed) {
  clsFtpClient client(wininet, codePage);
  client.Port = 65535;
  Connect(client);
  EXPECT_EQ(wininet.CallsOf("InternetConnectA"),
            Calls{"InternetConnectA(192.168.1.100, 65535, cnc, secret, 1, 0, 0)"});
}

TEST_F(FtpClient, An_empty_user_or_password_is_passed_as_null) {
  clsFtpClient client(wininet, codePage);
  client.Connect(L"h", L"", L"");
  client.Connect(L"h", L"cnc", L"");
  client.Connect(L"h", L"", L"secret");
  EXPECT_EQ(wininet.CallsOf("InternetConnectA"), (Calls{"InternetConnectA(h, 21, none, none, 1, 0, 0)",
                                                        "InternetConnectA(h, 21, cnc, none, 1, 0, 0)",
                                                        "InternetConnectA(h, 21, none, secret, 1, 0, 0)"}));
}

TEST_F(FtpClient, User_and_password_are_converted_to_the_code_page) {
  clsFtpClient client(wininet, codePage);
  client.Connect(L"h", L"機", L"ｷ");
  EXPECT_EQ(wininet.CallsOf("InternetConnectA"), Calls{"InternetConnectA(h, 21, " + codePage.ToAnsi(L"機") +
                                                       ", " + codePage.ToAnsi(L"ｷ") + ", 1, 0, 0)"});
}

TEST_F(FtpClient, An_empty_host_makes_no_call_and_closes_the_earlier_connection) {
  clsFtpClient client(wininet, codePage);
  EXPECT_FALSE(client.Connect(L"", L"cnc", L"secret"));
  EXPECT_TRUE(wininet.CallsOf("InternetConnectA").empty());
  Connect(client);
  EXPECT_FALSE(client.Connect(L"", L"cnc", L"secret"));
  EXPECT_EQ(wininet.open.size(), 1U);
}

TEST_F(FtpClient, A_second_connection_closes_the_first) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  EXPECT_TRUE(Connect(client));
  EXPECT_EQ(wininet.CallsOf("InternetCloseHandle"), Calls{"InternetCloseHandle(2)"});
  EXPECT_EQ(wininet.open.size(), 2U);
}

TEST_F(FtpClient, Without_a_session_nothing_is_connected_and_nothing_closed) {
  wininet.failing = {"InternetOpenA"};
  {
    clsFtpClient client(wininet, codePage);
    EXPECT_FALSE(Connect(client));
  }
  EXPECT_EQ(wininet.calls.size(), 1U);
}

TEST_F(FtpClient, A_failed_connection_gets_no_callback_and_is_not_closed) {
  wininet.failing = {"InternetConnectA"};
  {
    clsFtpClient client(wininet, codePage);
    EXPECT_FALSE(Connect(client));
  }
  EXPECT_TRUE(wininet.CallsOf("InternetSetStatusCallback").empty());
  EXPECT_EQ(wininet.CallsOf("InternetCloseHandle"), Calls{"InternetCloseHandle(1)"});
}

TEST_F(FtpClient, DisConnect_closes_the_connection_once) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  client.DisConnect();
  client.DisConnect();
  EXPECT_EQ(wininet.CallsOf("InternetCloseHandle"), Calls{"InternetCloseHandle(2)"});
}

TEST_F(FtpClient, The_connection_is_closed_before_its_session) {
  {
    clsFtpClient client(wininet, codePage);
    Connect(client);
  }
  EXPECT_EQ(wininet.CallsOf("InternetCloseHandle"),
            (Calls{"InternetCloseHandle(2)", "InternetCloseHandle(1)"}));
}

TEST_F(FtpClient, The_current_directory_is_read_and_set) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  wininet.currentDirectory = codePage.ToAnsi(L"/機械");
  EXPECT_EQ(client.CurrentDir(), L"/機械");
  EXPECT_TRUE(client.SetCurrentDir(L"機"));
  EXPECT_EQ(wininet.CallsOf("FtpSetCurrentDirectoryA"),
            Calls{"FtpSetCurrentDirectoryA(" + codePage.ToAnsi(L"機") + ")"});
  wininet.currentDirectory = std::string(5000, 'd');
  EXPECT_EQ(client.CurrentDir(), std::wstring(5000, L'd'));
}

TEST_F(FtpClient, Each_operation_makes_its_call) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  wininet.calls.clear();
  EXPECT_TRUE(client.Get(L"r", L"C:\\l", true));
  EXPECT_TRUE(client.Get(L"r", L"C:\\l", false));
  EXPECT_TRUE(client.Put(L"C:\\l", L"r"));
  EXPECT_TRUE(client.Delete(L"f"));
  EXPECT_TRUE(client.Rename(L"a", L"b"));
  EXPECT_TRUE(client.MakeDir(L"d"));
  EXPECT_TRUE(client.RemoveDir(L"d"));
  EXPECT_EQ(wininet.calls, (Calls{"FtpGetFileA(r, C:\\l, 1, 128, 2214592514, 0)",
                                  "FtpGetFileA(r, C:\\l, 0, 128, 2214592514, 0)",
                                  "FtpPutFileA(C:\\l, r, 2, 0)", "FtpDeleteFileA(f)", "FtpRenameFileA(a, b)",
                                  "FtpCreateDirectoryA(d)", "FtpRemoveDirectoryA(d)"}));
}

TEST_F(FtpClient, Transfer_type_and_cache_options_become_flags) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  wininet.calls.clear();
  client.TransferType = 1;
  client.Reload = false;
  client.Get(L"r", L"l", false);
  client.NoCacheWrite = false;
  client.Get(L"r", L"l", false);
  client.Put(L"l", L"r");
  EXPECT_EQ(wininet.calls, (Calls{"FtpGetFileA(r, l, 0, 128, 67108865, 0)", "FtpGetFileA(r, l, 0, 128, 1, 0)",
                                  "FtpPutFileA(l, r, 1, 0)"}));
}

TEST_F(FtpClient, Every_operation_that_the_server_rejects_returns_false) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  wininet.failing = {
      "FtpGetFileA",         "FtpPutFileA",         "FtpDeleteFileA",          "FtpRenameFileA",
      "FtpCreateDirectoryA", "FtpRemoveDirectoryA", "FtpSetCurrentDirectoryA", "FtpGetCurrentDirectoryA"};
  EXPECT_FALSE(client.Get(L"r", L"l", false) || client.Put(L"l", L"r") || client.Delete(L"f") ||
               client.Rename(L"a", L"b") || client.MakeDir(L"d") || client.RemoveDir(L"d") ||
               client.SetCurrentDir(L"d"));
  EXPECT_EQ(client.CurrentDir(), L"");
}

TEST_F(FtpClient, Without_a_connection_no_operation_calls_the_library) {
  clsFtpClient client(wininet, codePage);
  wininet.calls.clear();
  EXPECT_FALSE(client.Get(L"r", L"l", false) || client.Put(L"l", L"r") || client.Delete(L"f") ||
               client.Rename(L"a", L"b") || client.MakeDir(L"d") || client.RemoveDir(L"d") ||
               client.SetCurrentDir(L"d") || client.FileInformation(L"f"));
  EXPECT_EQ(client.CurrentDir(), L"");
  EXPECT_TRUE(wininet.calls.empty());
}

class Listed : public FtpClient {
 protected:
  std::vector<std::string> Enumerate(clsFtpClient& client) {
    std::vector<std::string> events;
    client.onBeginEnumFiles = [&](int32_t count) { events.push_back("begin " + std::to_string(count)); };
    client.onEnumFile = [&](const FtpFile& file) { events.push_back(codePage.ToAnsi(file.FileName)); };
    client.onEndEnumFile = [&](bool enumerated) { events.push_back(enumerated ? "end" : "no listing"); };
    client.EnumFile();
    return events;
  }
};

TEST_F(Listed, The_search_is_closed_before_its_entries_are_reported_in_order) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  wininet.entries = {FakeWininet::File("b"), FakeWininet::Directory("a"), FakeWininet::File("c")};
  EXPECT_EQ(Enumerate(client), (Calls{"begin 3", "b", "a", "c", "end"}));
  EXPECT_EQ(wininet.CallsOf("FtpFindFirstFileA"), Calls{"FtpFindFirstFileA(*, 2214592512, 0)"});
  EXPECT_EQ(wininet.calls.back(), "InternetCloseHandle(3)");
}

TEST_F(Listed, A_failed_search_is_reported_as_an_empty_listing) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  EXPECT_EQ(Enumerate(client), (Calls{"begin 0", "no listing"}));
}

TEST_F(Listed, An_entry_has_its_size_attributes_and_dates) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  FindData data = FakeWininet::File(codePage.ToAnsi(L"機械.txt"), 5, 0x21);
  data.nFileSizeHigh = 2;
  data.ftCreationTime = Time(116'444'736'000'000'000);
  data.ftLastWriteTime = Time(133'789'463'999'999'999);
  wininet.entries = {data};
  const std::optional<FtpFile> file = client.FileInformation(L"機械.txt");
  ASSERT_TRUE(file);
  EXPECT_EQ(file->FileName, L"機械.txt");
  EXPECT_EQ(file->Size, 0x200000005U);
  EXPECT_EQ(file->Attr, 0x21U);
  EXPECT_EQ(file->ftCreate, (DateAndTime{1970, 1, 1, 0, 0, 0}));
  EXPECT_EQ(file->ftWrite, (DateAndTime{2024, 12, 17, 21, 59, 59}));
  EXPECT_EQ(file->ftAccess, DateAndTime());
}

TEST_F(Listed, A_file_is_found_by_its_exact_name_only) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  wininet.entries = {FakeWininet::File("ab"), FakeWininet::Directory("b")};
  EXPECT_FALSE(client.FileInformation(L"a"));
  EXPECT_FALSE(client.FileInformation(L"*"));
  EXPECT_EQ(client.FileInformation(L"b").value_or(FtpFile()).Attr, 0x10U);
}

TEST_F(Listed, A_name_that_fills_its_field_is_not_read_beyond_it) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  FindData data = FakeWininet::File(std::string(260, 'n'));
  std::fill_n(data.cAlternateFileName, sizeof data.cAlternateFileName, 'x');
  wininet.entries = {data};
  EXPECT_EQ(Enumerate(client).at(1), std::string(260, 'n'));
}

TEST_F(Listed, The_rest_of_an_earlier_longer_name_is_not_shown) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  wininet.entries = {FakeWininet::File(std::string("a\0lder", 6))};
  EXPECT_EQ(Enumerate(client).at(1), "a");
}

TEST_F(Listed, An_endless_search_is_ended) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  wininet.entries = {FakeWininet::File("again")};
  wininet.endless = true;
  int listed = 0;
  client.onEnumFile = [&listed](const FtpFile&) { ++listed; };
  client.EnumFile();
  EXPECT_EQ(listed, 200'000);
}

TEST_F(Listed, The_search_is_closed_when_a_call_throws) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  wininet.entries = {FakeWininet::File("a")};
  wininet.throwing = "InternetFindNextFileA";
  EXPECT_THROW(client.EnumFile(), RuntimeError);
  EXPECT_EQ(wininet.open.size(), 2U);
}

TEST_F(Listed, The_events_are_optional) {
  clsFtpClient client(wininet, codePage);
  Connect(client);
  wininet.entries = {FakeWininet::File("a")};
  client.EnumFile();
}

TEST(FtpDates, A_time_of_0_or_after_the_year_9999_is_not_a_date) {
  EXPECT_EQ(ToDateAndTime({}), DateAndTime());
  EXPECT_EQ(ToDateAndTime(Time(~uint64_t{0})), DateAndTime());
  EXPECT_EQ(ToDateAndTime(Time(2'650'467'744'000'000'000)), DateAndTime());
  EXPECT_EQ(ToDateAndTime(Time(2'650'467'743'999'999'999)), (DateAndTime{9999, 12, 31, 23, 59, 59}));
}

TEST(FtpDates, Leap_days_are_converted) {
  EXPECT_EQ(ToDateAndTime(Time(125'962'991'990'000'000)), (DateAndTime{2000, 2, 29, 11, 59, 59}));
}

}  // namespace
}  // namespace tarvik::test
