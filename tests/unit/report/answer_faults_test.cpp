// The answer for the facts of each fault in lab/scenarios.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>

#include "platform/text.h"
#include "tests/unit/report/run_builder.h"

namespace tarvik::report::test {
namespace {

struct Fault {
  const char* scenario;
  std::wstring sentence;
  std::string marks;  ///< name, PC, gateway, target, CNC library, K7, FTP
  RunBuilder run;
};

using B = RunBuilder;

constexpr uint32_t kCannotConnect = 0x1009F101;
constexpr uint32_t kServerUnknown = 0x1009F005;
constexpr uint32_t kUnitNotRecognized = 0x1009F004;

/// A ping in vain with a library test planned after it.
RunBuilder Silent(RunBuilder run) { return run.TargetPinged({B::Lost()}).Plan({Rung::CncLibrary}); }

/// The same where the neighbour table answers, too.
RunBuilder Silent(RunBuilder run, Neighbour neighbour) {
  run = Silent(run);
  run.facts().target.neighbour = neighbour;
  return run;
}

RunBuilder Unplugged(RunBuilder run) {
  run.facts().gateway.neighbour = Neighbour::Absent;
  return run;
}

/// A connection that failed, and what the second look at the port saw.
RunBuilder Connect(int16_t result, uint32_t callMs, PortAnswer port, int32_t number = 8193) {
  RunBuilder run = B().NearAnswers().Cnc(CncCall::Connect, result, callMs);
  run.facts().cnc.portAnswer = port;
  run.facts().cnc.port = number;
  return run;
}

RunBuilder Far() { return B().Address(L"192.168.2.100").Pc(false).GatewayPinged(B::From(L"192.168.1.1")); }
/// The gateway check fails before anything is sent.
RunBuilder NoGateway(RunBuilder run) { return run.Plan({Rung::CncLibrary}); }

std::vector<Fault> NetworkFaults() {
  const std::wstring target = L"192.168.1.100";
  const std::wstring nobody = L"Nobody has this address: check it, then cable, power.";
  const std::wstring seen = L"A device was seen, but no ping: test page NEXAL2.";
  const std::wstring noGateway = L"Nobody has the gateway's address: check it, then power.";
  const std::wstring closed = L"TCP port 8193 is closed: check port, other programs.";
  return {
      {"network_address_of_the_controller_wrong", nobody, "oo-x---", Silent(OnSubnet(), Neighbour::Absent)},
      {"network_address_of_the_pc_is_the_controllers", L"This is the PC's own address: give the PC another.",
       "o!-ox--",
       B().Address(target).Pc(true, target).TargetPinged({B::From(target)}).Cnc(CncCall::Connect, -102, 1)},
      {"network_address_of_the_pc_on_another_subnet", L"Gateway silent: check PC address 10.0.0.10, cable.",
       "oox----",
       B().Address(target)
           .Pc(false, L"10.0.0.10", L"255.255.255.0", L"10.0.0.1")
           .GatewayPinged(B::Lost(), L"10.0.0.1")},
      {"network_address_taken_twice", closed, "oo-ox--", Connect(-102, 1, PortAnswer::Refused)},
      {"network_answers_late", seen, "oo-x---", Silent(OnSubnet(), Neighbour::Present)},
      {"network_cable_out_at_the_controller", nobody, "oo-x---", Silent(OnSubnet(), Neighbour::Absent)},
      {"network_cable_out_at_the_controller_behind_the_gateway",
       L"Gateway good, target silent: check its power, gateway.", "ooox---", Silent(Far())},
      {"network_cable_out_at_the_pc", nobody, "oo-x---", Silent(OnSubnet(), Neighbour::Absent)},
      {"network_echo_filtered", L"NEXAL2 good, ping was silent: ping again.", "oo-!o--",
       Silent(OnSubnet()).CncAnswers().Only(Rung::CncLibrary)},
      {"network_firewall_says_host_unreachable", L"A router cannot reach the target: check cable, firewall.",
       "ooo!x--", Far().TargetPinged({B::Refused(11003, L"192.168.1.1")}).Cnc(CncCall::Connect, -102, 1)},
      {"network_firewall_says_port_unreachable", L"Target rejects ping: allow it there, or go on.", "oo-!o--",
       OnSubnet().TargetPinged({B::Refused(11005, target)}).CncAnswers()},
      {"network_gateway_address_wrong", noGateway, "oox----",
       Unplugged(B().Address(L"192.168.2.100").Pc(false).GatewayPinged(B::Lost(), L"192.168.1.2"))},
      {"network_gateway_dead", noGateway, "oox----",
       Unplugged(B().Address(L"192.168.2.100").Pc(false).GatewayPinged(B::Lost()))},
      {"network_gateway_elsewhere", L"Gateway 192.168.9.1 not in PC's subnet: correct it.", "oox----",
       NoGateway(B().Address(L"192.168.2.100")
                     .Pc(false, L"192.168.1.10", L"255.255.255.0", L"192.168.9.1")
                     .Gateway(GatewayResult::NoneUsable))},
      {"network_mask_of_the_controller_too_narrow", seen, "oo-x---", Silent(OnSubnet(), Neighbour::Present)},
      {"network_mask_of_the_pc_too_narrow", L"PC's mask 255.255.255.240 looks too narrow: compare it.",
       "o!x----",
       NoGateway(B().Address(target)
                     .Pc(false, L"192.168.1.10", L"255.255.255.240", L"0.0.0.0")
                     .Gateway(GatewayResult::NoneConfigured))},
      {"network_mask_of_the_pc_too_narrow_with_a_gateway",
       L"PC's mask 255.255.255.240 looks too narrow: compare it.", "o!ooo--",
       B().Address(target)
           .Pc(false, L"192.168.1.10", L"255.255.255.240")
           .GatewayPinged(B::From(L"192.168.1.1"))
           .TargetPinged({B::From(target)})
           .CncAnswers()},
      {"network_mask_of_the_pc_too_wide", L"Target silent: check power, cable, the PC's mask.", "oo-x---",
       Silent(B().Address(L"192.168.2.100").Pc(true, L"192.168.1.10", L"255.255.0.0"))},
      {"network_no_gateway", L"PC has no gateway: set one, or correct the address.", "oox----",
       NoGateway(B().Address(L"192.168.2.100")
                     .Pc(false, L"192.168.1.10", L"255.255.255.0", L"0.0.0.0")
                     .Gateway(GatewayResult::NoneConfigured))},
      {"network_no_way_back", L"Gateway good, target silent: check its power, gateway.", "ooox---",
       Silent(Far())},
      {"network_packets_lost", L"2 of 4 echoes lost: check cable and plugs.", "oo-!o--",
       OnSubnet().TargetPinged({B::From(target), B::Lost(), B::From(target), B::Lost()}).CncAnswers()},
      {"network_pc_without_an_address", L"PC has no address: set address and mask in Windows.", "ox-----",
       B().Address(target).PcWithoutMask()},
      {"network_router_knows_no_way", L"A router has no way there: check the address, then routes.",
       "ooo!x--", Far().TargetPinged({B::Refused(11002, L"192.168.1.1")}).Cnc(CncCall::Connect, -102, 1)},
      {"network_second_card_in_the_same_subnet", L"Two PC addresses on this subnet: switch off one card.",
       "o!-x---", Silent(B().Address(target).Pc(true).Pc(true, L"192.168.1.11"))},
      {"network_second_card_without_a_gateway", L"No card has a gateway: set it on the right card.",
       "oox----",
       NoGateway(B().Address(L"192.168.3.100")
                     .Pc(false)
                     .Pc(false, L"10.0.0.1")
                     .Gateway(GatewayResult::NoneConfigured))},
      {"network_ttl_used_up", L"Packets go in a circle: have the routers' routes corrected.", "ooo!x--",
       Far().TargetPinged({B::Refused(11013, L"192.168.2.1")}).Cnc(CncCall::Connect, -102, 1)},
  };
}

std::vector<Fault> NameFaults() {
  RunBuilder rejected = Silent(B().Address(L"192.168.1.099").Pc(true));
  rejected.facts().target.echoes.addressRejected = true;
  return {
      {"name_address_misspelt", L"Not a valid address: correct the numbers.", "x------",
       B().Name(L"192.168.1.1000", L"")},
      {"name_address_with_leading_zero", L"Zeros in the address: type 12, not 012.", "!o-!x--",
       B().Address(L"192.168.1.012")
           .Pc(true)
           .TargetPinged({B::From(L"192.168.1.10")})
           .Cnc(CncCall::Connect, -102, 1)},
      {"name_address_zero_padded (read as octal)", L"Zeros in the address: type 20, not 020.", "!o-x---",
       Silent(B().Address(L"192.168.1.020").Pc(true))},
      {"name_address_zero_padded (not octal)", L"Zeros in the address: type 99, not 099.", "xo-x---",
       rejected},
      {"name_of_another_address", L"Silent. Name gave 192.168.1.110: check that address.", "oo-x---",
       Silent(B().Name(L"cnc-1", L"192.168.1.110").Pc(true))},
      {"name_on_another_subnet", L"Name gave 192.168.2.100, no gateway: check the name.", "oox----",
       NoGateway(B().Name(L"cnc-1", L"192.168.2.100")
                     .Pc(false, L"192.168.1.10", L"255.255.255.0", L"0.0.0.0")
                     .Gateway(GatewayResult::NoneConfigured))},
      {"name_unknown", L"Name unknown: type the address instead.", "x------", B().Name(L"cnc-9", L"")},
      {"name_with_several_addresses", L"Silent. Name gave 192.168.1.110: check that address.", "oo-x---",
       Silent(B().Name(L"cnc-2", L"192.168.1.110").Pc(true))},
  };
}

std::vector<Fault> LibraryFaults() {
  RunBuilder codeMissing = B().NearAnswers().Cnc(CncCall::None, 0, 0);
  codeMissing.facts().cnc.codeMissing = true;
  RunBuilder codeWrong = B().NearAnswers().Cnc(CncCall::ConnectWithCode, 7, 1);
  codeWrong.facts().cnc.codeGiven = true;
  RunBuilder optionMissing = B().NearAnswers().Cnc(CncCall::Options, 0, 1);
  optionMissing.facts().cnc.optionMissing = true;
  const std::wstring closed = L"TCP port 8193 is closed: check port, other programs.";
  return {
      {"library_access_code_missing", L"Access code missing: type it on page NEXAL2.", "oo-ox--",
       codeMissing},
      {"library_access_code_needed", L"Access code needed: tick and type it on page NEXAL2.", "oo-ox--",
       B().NearAnswers().Cnc(CncCall::ConnectWithCode, 7, 1)},
      {"library_access_code_wrong", L"Access code wrong: type it again on page NEXAL2.", "oo-ox--",
       codeWrong},
      {"library_controller_busy (while busy)", L"NEXAL2 connected, then error -1: run the test again.",
       "oo-ox--", B().NearAnswers().Cnc(CncCall::SystemInfo, -1, 1)},
      {"library_no_more_connections", closed, "oo-ox--", Connect(-102, 1, PortAnswer::Refused)},
      {"library_option_check_fails", L"NEXAL2 connected, then error -7: run the test again.", "oo-ox--",
       B().NearAnswers().Cnc(CncCall::Options, -7, 1)},
      {"library_option_missing", L"CNC lacks an option: order Extended drivers and libraries.", "oo-ox--",
       optionMissing},
      {"library_port_closed", closed, "oo-ox--", Connect(-102, 1, PortAnswer::Refused)},
      {"library_port_filtered", L"TCP port 8193 silent: open it in the firewalls.", "oo-ox--",
       Connect(-103, 2001, PortAnswer::Silent)},
      {"library_port_filtered_on_the_pc", closed, "oo-ox--", Connect(-102, 1, PortAnswer::Refused)},
      {"library_port_of_another_service", L"Port 21 open, NEXAL2 fails: correct the TCP port.", "oo-ox--",
       Connect(-105, 1, PortAnswer::Open, 21)},
      {"library_port_wrong", L"TCP port 8194 is closed: check port, other programs.", "oo-ox--",
       Connect(-102, 1, PortAnswer::Refused, 8194)},
      {"library_restart_after_connecting", L"NEXAL2 connected, then error -104: run the test again.",
       "oo-ox--", B().NearAnswers().Cnc(CncCall::Options, -104, 1)},
      {"library_restart_in_the_middle", L"NEXAL2 connected, then error -104: run the test again.", "oo-ox--",
       B().NearAnswers().Cnc(CncCall::SystemInfo, -104, 1)},
      {"library_rubbish", L"Port 8193 open, NEXAL2 fails: compare port, other programs.", "oo-ox--",
       Connect(-105, 1, PortAnswer::Open)},
      {"library_time_out_on_connecting", L"Port open, no answer in 2 s: set a longer time-out.", "oo-ox--",
       Connect(-103, 2001, PortAnswer::Open)},
      {"library_time_out_too_short", L"NEXAL2 connected, then silent: set a longer time-out.", "oo-ox--",
       B().NearAnswers().Cnc(CncCall::SystemInfo, -103, 2001)},
  };
}

std::vector<Fault> K7Faults() {
  const auto failed = [](uint32_t error, const std::wstring& server) {
    return B().NearAnswers().K7Failed(K7Call::ConnectServer, error, server).Plan({Rung::Ftp});
  };
  const std::wstring silent = L"K7 server does not answer: check its service on page K7 Svc.";
  return {
      {"k7_port_not_registered", L"", "-------", B()},
      {"k7_port_registered_for_tcp", L"", "-------", B()},
      {"k7_server_hangs", silent, "oo-o-x-", failed(kCannotConnect, L"127.0.0.1")},
      {"k7_server_listens_on_another_port", silent, "oo-o-x-", failed(kCannotConnect, L"127.0.0.1")},
      {"k7_service_not_there", silent, "oo-o-x-", failed(kCannotConnect, L"127.0.0.1")},
      {"k7_service_stopped", silent, "oo-o-x-", failed(kCannotConnect, L"127.0.0.1")},
      {"k7_server_host_unknown", L"K7 server's name unknown: correct -K7SERVER_HOST.", "oo-o-x-",
       failed(kServerUnknown, L"k7-host")},
      {"k7_unit_not_live", L"K7 finds the CNC not live: check the CNC's UDP setting.", "oo-oo!-",
       B().NearAnswers().CncAnswers().K7Live(0, 1)},
      {"k7_unit_not_recognized", L"K7 server does not know this CNC: add it there.", "oo-o-x-",
       B().NearAnswers().K7Failed(K7Call::CheckReboot, kUnitNotRecognized)},
  };
}

std::vector<Fault> FtpFaults() {
  const auto near = [] { return B().NearAnswers(); };
  const auto port = [&near](PortAnswer answer, uint32_t connectMs) {
    RunBuilder run = near().FtpRefused(L"", connectMs);
    run.facts().ftp.portAnswer = answer;
    return run;
  };
  const auto blocked = [&near] {
    RunBuilder run = near().FtpListed(0, L"200 PORT command successful.");
    run.facts().ftp.listMs = 30'000;
    return run;
  };
  const std::wstring allow = L"FTP logged in, no listing: allow Tarvik in the firewall.";
  return {
      {"ftp_cut_before_the_listing", L"FTP cut off before the listing: run the test again.", "oo-o--!",
       near().FtpListed(0, L"200 ok")},
      {"ftp_cut_in_the_middle", L"FTP listing cut short: run the test again.", "oo-o--!",
       near().FtpListed(1, L"The connection was reset.")},
      {"ftp_data_connection_dropped", allow, "oo-o--!", blocked()},
      {"ftp_data_connection_from_another_port", allow, "oo-o--!", blocked()},
      {"ftp_empty_directory", L"FTP good, but the directory is empty: check the user.", "oo-o--!",
       near().FtpListed(0, L"226 Directory send OK.")},
      {"ftp_filtered", L"FTP port 21 silent: open it in the firewalls.", "oo-o--x",
       port(PortAnswer::Silent, 60'000)},
      {"ftp_greeting_only", L"FTP greeted, then hung up: run the test again.", "oo-o--x",
       near().FtpRefused(L"220 ready")},
      {"ftp_huge_directory", L"FTP good, 990 entries listed.", "oo-o--o",
       near().FtpListed(990, L"226 Directory send OK.").Only(Rung::Ftp)},
      {"ftp_listing_refused", L"FTP logged in, listing refused: check the user's rights.", "oo-o--!",
       near().FtpListed(0, L"550 Permission denied.")},
      {"ftp_no_data_connection", allow, "oo-o--!",
       near().FtpListed(0, L"425 Failed to establish connection.")},
      {"ftp_no_such_user", L"FTP login refused: check user name and password.", "oo-o--x",
       near().FtpRefused(L"530 Login incorrect.")},
      {"ftp_refused", L"FTP port 21 is closed: switch on FTP in the CNC.", "oo-o--x",
       port(PortAnswer::Refused, 3000)},
      {"ftp_too_many_users", L"FTP server busy (421): close other programs.", "oo-o--x",
       near().FtpRefused(L"421 Too many users, try again later.")},
      {"ftp_wrong_password", L"FTP login refused: check user name and password.", "oo-o--x",
       near().FtpRefused(L"530 Login incorrect.")},
  };
}

/// The sentence in the scenario's file, which the laboratory checks against the real program; "none" for
/// none.
std::wstring SentenceOfFile(const std::filesystem::path& file) {
  std::ifstream stream(file);
  constexpr std::string_view kHeading = "The sentence: ";
  for (std::string line; std::getline(stream, line);)
    if (line.starts_with(kHeading)) return WidenAscii(line.substr(kHeading.size()));
  return {};
}

void ExpectAnswers(const std::vector<Fault>& faults) {
  for (Fault fault : faults) {
    SCOPED_TRACE(fault.scenario);
    if (fault.sentence.empty()) fault.run.run() = {};  // nothing is run
    const Answer answer = AnswerOf(fault.run.run(), AnswerLanguage::English);
    EXPECT_EQ(answer.sentence, fault.sentence);
    EXPECT_EQ(MarksOf(answer), fault.marks);
    EXPECT_LE(Columns(AnswerOf(fault.run.run(), AnswerLanguage::Japanese).sentence), kMaxSentenceColumns);
  }
}

TEST(AnswerFaultsTest, Every_scenario_is_here_with_the_sentence_of_its_file) {
  std::map<std::string, std::wstring> sentences;
  for (const auto& faults : {NetworkFaults(), NameFaults(), LibraryFaults(), K7Faults(), FtpFaults()})
    for (const Fault& fault : faults)
      if (std::string(fault.scenario).find(' ') == std::string::npos)
        sentences[fault.scenario] = fault.sentence.empty() ? L"none" : fault.sentence;
  for (const auto& entry : std::filesystem::directory_iterator(TARVIK_SOURCE_FOLDER "/lab/scenarios")) {
    const std::string name = entry.path().stem().string();
    // What these show at the end depends on several runs.
    if (entry.path().extension() != ".scenario" || name == "library_controller_busy" ||
        name == "name_address_zero_padded")
      continue;
    EXPECT_EQ(sentences[name], SentenceOfFile(entry.path())) << name;
  }
}

TEST(AnswerFaultsTest, Each_fault_of_the_network_has_its_sentence_and_marks) {
  ExpectAnswers(NetworkFaults());
}
TEST(AnswerFaultsTest, Each_fault_of_a_name_has_its_sentence_and_marks) { ExpectAnswers(NameFaults()); }
TEST(AnswerFaultsTest, Each_fault_of_the_library_has_its_sentence_and_marks) {
  ExpectAnswers(LibraryFaults());
}
TEST(AnswerFaultsTest, Each_fault_of_K7_has_its_sentence_and_marks) { ExpectAnswers(K7Faults()); }
TEST(AnswerFaultsTest, Each_fault_of_FTP_has_its_sentence_and_marks) { ExpectAnswers(FtpFaults()); }

}  // namespace
}  // namespace tarvik::report::test
