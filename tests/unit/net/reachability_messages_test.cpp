#include <gtest/gtest.h>

#include <functional>

#include "tests/unit/net/fake_pc.h"

// Every message of the check in every language mode: from the language file, Japanese, English.

namespace tarvik::test {
namespace {

using Lines = std::vector<std::wstring>;

/// A way out of the check and the messages it adds in the three modes. Null = the message is left out.
struct Way {
  const char* name;
  std::function<void(FakePc&)> prepare;
  const wchar_t* target;
  struct Wording {
    const wchar_t* number;
    const wchar_t* japanese;
    const wchar_t* english;
  };
  std::vector<Wording> messages;
  /// Lines that are the same in every language, before the last messages: index in the list and text.
  std::vector<std::pair<size_t, const wchar_t*>> common;
};

constexpr Way::Wording kNotSameNetwork{L"(103)", L"通信相手は同じﾈｯﾄﾜｰｸ上にありません",
                                       L"Target is not exist on the same network"};
constexpr Way::Wording kStartGatewayCheck{L"(104)", L"ｹﾞｰﾄｳｪｲの設定を確認します", L"Start Gateway check..."};

// Two cards, so that no details come between the messages.
void AddTwoCards(FakePc& pc, std::vector<std::string> gateways) {
  pc.AddCard("192.168.1.10", "255.255.255.0", std::move(gateways));
  pc.AddCard("10.1.2.3", "255.0.0.0", {});
}

std::vector<Way> Ways() {
  return {
      {"CannotResolve",
       [](FakePc&) {},
       L"nobody",
       {{L"(101)", nullptr, L"Cannot resolve specified host name to IP address"}, {L"", L"", L""}},
       {}},
      {"NoConfiguration",
       [](FakePc& pc) { pc.winsock.socketOpens = false; },
       L"192.168.1.100",
       {{L"(105)", L"このPCのIPｱﾄﾞﾚｽ情報を取得できません", L"Informational acquisition Failure"}},
       {}},
      {"NoSubnetMask",
       [](FakePc& pc) { pc.AddCard("192.168.1.10", "0.0.0.0", {}); },
       L"192.168.1.100",
       {{L"(102)", L"ｻﾌﾞﾈｯﾄﾏｽｸが必要ですが設定されていません", L"Subnet mask is not specified"}},
       {}},
      {"NoGateway",
       [](FakePc& pc) { AddTwoCards(pc, {"0.0.0.0"}); },
       L"192.168.2.100",
       {kNotSameNetwork,
        kStartGatewayCheck,
        {L"(106)", L"ｹﾞｰﾄｳｪｲが必要ですが設定されていません",
         L"Default Gateway is required but not specified"}},
       {}},
      {"SubnetMismatch",
       [](FakePc& pc) { AddTwoCards(pc, {"192.168.3.1"}); },
       L"192.168.2.100",
       {kNotSameNetwork,
        kStartGatewayCheck,
        {L"(107)", L"ｻﾌﾞﾈｯﾄﾏｽｸとｹﾞｰﾄｳｪｲの設定が合っていません", L"Subnetmask Mismatch"},
        {L"(108)", L"このPCからｹﾞｰﾄｳｪｲにｱｸｾｽできません", L"Cannot access to the Gateway from this PC."}},
       {}},
      {"CannotPingGateway",
       [](FakePc& pc) { AddTwoCards(pc, {"192.168.1.1"}); },
       L"192.168.2.100",
       {kNotSameNetwork,
        kStartGatewayCheck,
        {L"(109)", L"ｹﾞｰﾄｳｪｲにPingできません", L"Cannot ping to the Gateway"},
        {L"(110)", L"ｹﾞｰﾄｳｪｲのIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください",
         L"Please check Gateway's address, cable and power"}},
       {{2, L"GateWay (192.168.1.1) PING test ...."}, {3, L"ICMP_Error:11010"}}},
      {"CannotPingTarget",
       [](FakePc& pc) { AddTwoCards(pc, {}); },
       L"192.168.1.100",
       {{L"(111)", L"通信先にPingできません", L"Cannot ping to the Target"},
        {L"(115)", L"通信先のIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください",
         L"Please check Target's address, cable and power"}},
       {{0, L"PING test..."}, {1, L"ICMP_Error:11010"}}},
  };
}

void ExpectLines(LanguageMode mode, const wchar_t* Way::Wording::*wording) {
  for (const Way& way : Ways()) {
    SCOPED_TRACE(way.name);
    FakePc pc;
    pc.mode = mode;
    way.prepare(pc);
    EXPECT_FALSE(pc.Check(way.target));
    Lines expected;
    for (const Way::Wording& message : way.messages)
      if (message.*wording != nullptr) expected.emplace_back(message.*wording);
    for (const auto& [index, line] : way.common)
      expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(index), line);
    EXPECT_EQ(pc.results.Lines(), expected);
  }
}

TEST(ReachabilityMessages, In_mode_minus_1_the_messages_are_read_from_the_language_file) {
  // Without a language file each text is its number in brackets.
  ExpectLines(-1, &Way::Wording::number);
}

TEST(ReachabilityMessages, A_language_file_supplies_its_texts) {
  FakePc pc;
  pc.mode = -1;
  pc.files.contents[L"C:\\Data\\Language\\Tarvik.exe_1033.ini"] = "";
  pc.system.profile["C:\\Data\\Language\\Tarvik.exe_1033.ini|1033|102"] = "No mask";
  ASSERT_TRUE(pc.resource.Initialize(1033, L"C:\\Data", L"Tarvik.exe"));
  EXPECT_FALSE(pc.Check(L"192.168.1.100"));
  EXPECT_EQ(pc.results.Lines(), Lines{L"No mask"});
}

TEST(ReachabilityMessages, In_mode_0_the_messages_are_Japanese) { ExpectLines(0, &Way::Wording::japanese); }

TEST(ReachabilityMessages, In_every_other_mode_the_messages_are_English) {
  ExpectLines(1, &Way::Wording::english);
  ExpectLines(2, &Way::Wording::english);
  ExpectLines(-2, &Way::Wording::english);
}

TEST(ReachabilityMessages, Progress_lines_are_the_same_in_every_mode) {
  for (const LanguageMode mode : {-1, 0, 1}) {
    FakePc pc;
    pc.mode = mode;
    pc.winsock.AddHost("cnc1", {"192.168.2.100"});
    pc.AddCard("192.168.1.10", "255.255.255.0", {"192.168.1.1"});
    pc.icmp.AddHost("192.168.1.1");
    pc.icmp.AddHost("192.168.2.100");
    EXPECT_TRUE(pc.Check(L"cnc1"));
    ASSERT_EQ(pc.results.Lines().size(), 11u);
    EXPECT_EQ(pc.results.Lines()[0], L"cnc1 -> 192.168.2.100");
    EXPECT_EQ(
        Lines(pc.results.Lines().begin() + 3, pc.results.Lines().end()),
        (Lines{L"  Local      :192.168.1.10", L"  GateWay    :192.168.1.1", L"  SubnetMask :255.255.255.0",
               L"  Target     :192.168.2.100", L"GateWay (192.168.1.1) PING test ....",
               L"0001 Reply From 192.168.1.1: bytes=32 time=1ms TTL=64",
               L"Target (192.168.2.100) PING test...",
               L"0001 Reply From 192.168.2.100: bytes=32 time=1ms TTL=64"}));
  }
}

}  // namespace
}  // namespace tarvik::test
