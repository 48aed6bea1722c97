// Everything that the program can show has an explanation, and every explanation is short and in both
// languages.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <string>
#include <utility>

#include "k7/k7_error_text.h"
#include "net/ping_host.h"
#include "net/winsock_error_text.h"
#include "platform/text.h"
#include "report/answer.h"
#include "report/finding_names.h"
#include "resources/resource.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_system.h"
#include "tests/unit/resources/program_explanations.h"

namespace tarvik::test {
namespace {

using report::Finding;

constexpr size_t kMaxEmbeddedBytes = 110 * 1024;

class ExplanationTextsTest : public testing::Test {
 protected:
  std::wstring PatternOfLine(const std::wstring& line) const {
    return ProgramExplanations().OfLine(line, texts).pattern;
  }
  std::wstring PatternOfBox(const std::wstring& text) const {
    return ProgramExplanations().OfBox(text, texts).pattern;
  }

  FakeFiles files;
  FakeSystem system;
  FakeCodePage codePage;
  Resource resource{files, system, codePage};
  LanguageMode mode = kBuiltInEnglish;
  Texts texts{mode, resource};
};

TEST_F(ExplanationTextsTest, The_files_can_be_read_without_a_problem) {
  report::Explanations explanations;
  ASSERT_GE(ExplanationFiles().size(), 1U);
  for (const auto& file : ExplanationFiles()) {
    const size_t before = explanations.Problems().size();
    explanations.Add(BytesOf(file));
    for (size_t i = before; i < explanations.Problems().size(); ++i)
      ADD_FAILURE() << file.filename() << ", " << NarrowAscii(explanations.Problems()[i]);
  }
}

TEST_F(ExplanationTextsTest, Every_entry_is_short_complete_and_in_both_languages) {
  for (const report::Explanation& entry : ProgramExplanations().All())
    for (const std::wstring& problem : WordProblems(entry)) ADD_FAILURE() << NarrowAscii(problem);
}

TEST_F(ExplanationTextsTest, The_texts_stay_small_enough_for_the_program) {
  size_t bytes = 0;
  for (const auto& file : ExplanationFiles()) bytes += BytesOf(file).size();
  EXPECT_LE(bytes, kMaxEmbeddedBytes);
}

TEST_F(ExplanationTextsTest, Every_shared_text_is_used) {
  std::string all;
  for (const auto& file : ExplanationFiles()) all += BytesOf(file);
  const std::regex definition("\n(@[a-z0-9-]+): ");
  for (std::sregex_iterator at(all.begin(), all.end(), definition); at != std::sregex_iterator(); ++at)
    EXPECT_NE(all.find(": " + (*at)[1].str() + "\n"), std::string::npos) << (*at)[1];
}

TEST_F(ExplanationTextsTest, The_entries_are_in_the_order_of_the_ladder) {
  report::Rung latest = report::Rung::Name;
  for (const report::Explanation& entry : ProgramExplanations().All()) {
    if (!entry.rung) continue;
    EXPECT_GE(*entry.rung, latest) << NarrowAscii(entry.title.english);
    latest = *entry.rung;
  }
  EXPECT_EQ(latest, report::Rung::Ftp);
}

TEST_F(ExplanationTextsTest, Every_finding_has_an_explanation) {
  for (int i = 0; i < report::kFindingCount; ++i) {
    const auto finding = static_cast<Finding>(i);
    EXPECT_NE(ProgramExplanations().Of(finding).explanation, nullptr) << report::NameOf(finding);
  }
}

TEST_F(ExplanationTextsTest, The_findings_have_the_names_of_the_enumeration) {
  const std::string header = BytesOf(TARVIK_SOURCE_FOLDER "/report/finding.h");
  const std::string body = header.substr(header.find("enum class Finding {"));
  const std::regex name("\n  ([A-Z][A-Za-z0-9]*),");
  int count = 0;
  for (std::sregex_iterator at(body.begin(), body.end(), name); at != std::sregex_iterator(); ++at, ++count)
    EXPECT_EQ(report::NameOf(static_cast<Finding>(count)), (*at)[1].str());
  EXPECT_EQ(count, report::kFindingCount);
}

/// Captions, and parts of a sentence that never appear alone.
bool IsCaption(int32_t id) {
  return id <= 32 || id == 134 || id == 135 || id == 156 || (id >= 137 && id <= 146);
}

TEST_F(ExplanationTextsTest, The_messages_and_lines_of_the_start_up_have_an_explanation) {
  EXPECT_EQ(PatternOfBox(L"GetCommonDataFolder2 Error"), L"GetCommonDataFolder2 Error");
  EXPECT_EQ(
      PatternOfBox(L"Loading language data is failed\r\nResource:Initialize\r\nNo such file (C:\\x.ini)"),
      L"Loading language data is failed");
  for (const wchar_t* const line : {L"szDescription:WinSock 2.0", L"szSystemStatus:Running",
                                    L"iMaxSockets:32767", L"iMaxUdpDg:65467", L"lpVendorInfo:0"}) {
    const std::wstring pattern = PatternOfLine(line);
    EXPECT_EQ(pattern, std::wstring(line).substr(0, std::wstring(line).find(L':')) + L":*");
  }
  EXPECT_EQ(PatternOfLine(L"ICMPCreateFile Error"), L"ICMPCreateFile Error");
}

TEST_F(ExplanationTextsTest, Of_the_library_numbers_only_7_is_explained_and_all_others_lead_to_its_manual) {
  const auto refersToManual = [](const report::Explanation& entry) {
    return std::any_of(entry.steps.begin(), entry.steps.end(), [](const report::BothLanguages& step) {
      return step.english == L"Look up the error number in the manual of the CNC library.";
    });
  };
  for (int32_t number = -300; number <= 300; ++number) {
    if (number == 0 || number == 7) continue;
    const auto found = ProgramExplanations().OfLine(L"Allocate Handle error=" + Decimal(number), texts);
    EXPECT_EQ(found.pattern, L"Allocate Handle error=*") << number;
    EXPECT_TRUE(refersToManual(*found.explanation)) << number;
  }
  for (const Finding finding :
       {Finding::CncFailedAtOnce, Finding::CncTimedOut, Finding::CncFailedLater, Finding::CncPortOpen,
        Finding::CncPortOpenTimeOut, Finding::CncThenFailed, Finding::CncThenTimedOut})
    EXPECT_TRUE(refersToManual(*ProgramExplanations().Of(finding).explanation)) << report::NameOf(finding);
}

TEST_F(ExplanationTextsTest, Every_message_that_is_not_a_caption_has_an_explanation) {
  for (int i = 0; i < static_cast<int>(Message::Count); ++i) {
    const auto message = static_cast<Message>(i);
    if (IsCaption(RowOf(message).id)) continue;
    EXPECT_NE(ProgramExplanations().Of(message).explanation, nullptr) << RowOf(message).id;
  }
}

TEST_F(ExplanationTextsTest, Every_message_with_a_number_after_it_is_explained_with_and_without_it) {
  for (const Message message : {Message::OptionCheckError, Message::SystemInfoError, Message::PmcLengthError})
    for (const wchar_t* const ending : {L"", L"-7"}) {
      const auto found = ProgramExplanations().OfLine(RowOf(message).english + std::wstring(ending), texts);
      EXPECT_EQ(found.message, message);
    }
}

TEST_F(ExplanationTextsTest, Every_status_of_a_ping_has_an_explanation) {
  int statuses = 0;
  for (uint32_t status = 11001; status <= 11050; ++status) {
    const std::wstring text = EvaluatePingResponse(status);
    if (text == L"Unknown Response") continue;
    ++statuses;
    EXPECT_TRUE(PatternOfLine(L"0001 Reply From 10.0.0.1: " + text).ends_with(text)) << status;
    EXPECT_EQ(PatternOfLine(L"ICMP_Error:" + Decimal(status)), L"ICMP_Error:" + Decimal(status));
  }
  EXPECT_EQ(statuses, 20);
  EXPECT_EQ(PatternOfLine(L"0001 Reply From 10.0.0.1: Unknown Response"),
            L"* Reply From *: Unknown Response");
  EXPECT_EQ(PatternOfLine(L"ICMP_Error:12345"), L"ICMP_Error:*");
}

TEST_F(ExplanationTextsTest, Every_socket_error_has_an_explanation) {
  int errors = 0;
  for (int32_t code = 10000; code < 11100; ++code) {
    const std::wstring text = WinsockErrorText(code);
    if (text.starts_with(L"(")) continue;
    ++errors;
    EXPECT_EQ(PatternOfBox(text), text) << code;
    EXPECT_EQ(PatternOfBox(L"Windows Sockets error " + Decimal(code)),
              L"Windows Sockets error " + Decimal(code));
  }
  EXPECT_GT(errors, 40);
  EXPECT_EQ(PatternOfBox(L"(10999)"), L"(*)");
}

TEST_F(ExplanationTextsTest, Every_K7_error_has_an_explanation) {
  int errors = 0;
  for (const int64_t code :
       {0x00000000LL, 0x1009F000LL, 0x1009F001LL, 0x1009F002LL, 0x1009F003LL, 0x1009F004LL, 0x1009F005LL,
        0x1009F100LL, 0x1009F101LL, 0x1009F102LL, 0x1009F103LL, 0x1009F104LL, 0x1009F105LL})
    for (const LanguageMode language : {kBuiltInEnglish, kBuiltInJapanese}) {
      const std::wstring text = K7ErrorText(static_cast<int32_t>(code), language);
      ASSERT_FALSE(text.empty());
      ++errors;
      EXPECT_EQ(PatternOfBox(L"Failed to K7_ConnectServer:" + text + L":SystemError=0:hdl=1 [127.0.0.1]"),
                L"Failed to K7_*:" + text + L":*");
    }
  EXPECT_EQ(errors, 26);
  EXPECT_EQ(PatternOfBox(L"Failed to K7_CheckReboot::SystemError=0:hdl=1"), L"Failed to K7_*");
}

TEST_F(ExplanationTextsTest, Every_reply_of_an_FTP_server_has_an_explanation) {
  for (const wchar_t* const code :
       {L"421", L"425", L"426", L"430", L"450", L"452", L"500", L"530", L"550", L"552", L"120", L"150",
        L"220", L"226", L"230", L"331", L"350", L"499", L"599"}) {
    const std::wstring pattern = PatternOfLine(code + std::wstring(L" text of the server"));
    EXPECT_TRUE(!pattern.empty() && std::wstring(code).starts_with(pattern)) << NarrowAscii(code);
  }
}

TEST_F(ExplanationTextsTest, The_same_subject_has_the_same_explanation_whether_line_or_finding) {
  const auto same = [&](Finding finding, const std::wstring& line) {
    const report::Explanation* const entry = ProgramExplanations().Of(finding).explanation;
    EXPECT_TRUE(entry == ProgramExplanations().OfLine(line, texts).explanation ||
                entry == ProgramExplanations().OfBox(line, texts).explanation)
        << NarrowAscii(line);
  };
  same(Finding::TargetSilent, L"ICMP_Error:11010");
  same(Finding::TargetSilent, L"Please check Target's address, cable and power");
  same(Finding::TargetSilent, L"通信先のIPｱﾄﾞﾚｽ/電源/ｹｰﾌﾞﾙを確認してください");
  same(Finding::GatewayNone, L"Default Gateway is required but not specified");
  same(Finding::TargetGood, L"0001 Reply From 192.168.1.100: bytes=32 time=1ms TTL=64");
  same(Finding::NameUnknown, L"gethostbyname(cnc-7)=11001");
  same(Finding::CncCodeWrong, L"Allocate Handle error=7");
  same(Finding::CncGood, L"CNC Type\t31iB");
  same(Finding::K7Good, L"00001 Live=True");
  same(Finding::K7ServerSilent,
       L"Failed to K7_ConnectServer:Cannot connect to K7 Server:SystemError=274D:hdl=1 [127.0.0.1]");
  same(Finding::NoAddress, L"");
  same(Finding::FtpFull, L"421 Too many users, try again later.");
}

TEST_F(ExplanationTextsTest, A_failure_of_the_run_is_explained_by_the_finding_of_its_rung) {
  const report::Explanations& all = ProgramExplanations();
  report::Answer answer;
  const auto explains = [&](const std::wstring& line, Finding finding) {
    return all.ForRun(all.OfLine(line, texts), answer).explanation == all.Of(finding).explanation;
  };
  const std::wstring check = L"Please check Target's address, cable and power";
  EXPECT_TRUE(explains(check, Finding::TargetSilent));

  answer.rungs[static_cast<size_t>(report::Rung::Target)] = {
      Finding::TargetSilentBeyond, report::RungState::Failed, {}};
  EXPECT_TRUE(explains(check, Finding::TargetSilentBeyond));
  EXPECT_EQ(all.ForRun(all.OfLine(check, texts), answer).message, Message::CheckTarget);
  EXPECT_TRUE(explains(L"0001 Reply From 10.0.0.1: bytes=32 time=1ms TTL=64", Finding::TargetGood));
  EXPECT_FALSE(explains(L"PING test...", Finding::TargetSilentBeyond));

  answer.rungs[static_cast<size_t>(report::Rung::Target)] = {};
  answer.rungs[static_cast<size_t>(report::Rung::Gateway)] = {
      Finding::GatewaySilent, report::RungState::Failed, {}};
  EXPECT_TRUE(explains(L"ICMP_Error:11010", Finding::GatewaySilent));
}

TEST_F(ExplanationTextsTest, Lines_and_boxes_that_are_put_together_have_their_own_explanation) {
  const std::pair<const wchar_t*, const wchar_t*> lines[] = {
      {L"cnc-7 -> 192.168.1.100", L"* -> *"},
      {L"  SubnetMask :255.255.255.0", L"  SubnetMask :*"},
      {L"GateWay (192.168.1.1) PING test ....", L"GateWay (*) PING test ...."},
      {L"Target (192.168.2.100) PING test...", L"Target (*) PING test..."},
      {L"Allocate Handle error=-102", L"Allocate Handle error=*"},
      {L"Max Axes\t32", L"Max Axes*"},
      {L"0001 ERR Ret=-16,1,2", L"* ERR Ret=*"},
      {L"0001 OK", L"* OK"},
      {L"Name                                     Size", L"Name  *Size"},
      {L"O0001.NC                                 1234", L"*"},
      {L"iMaxSockets:32767", L"iMaxSockets:*"},
  };
  for (const auto& [line, pattern] : lines) EXPECT_EQ(PatternOfLine(line), pattern) << NarrowAscii(line);

  const std::pair<const wchar_t*, const wchar_t*> boxes[] = {
      {L"\"Ping count\" is not a whole number.\r\nEnter a whole number in this range:\r\nPing count: 0 ... "
       L"9\r\n",
       L"* is not a whole number."},
      {L"Enter a whole number in this range:\r\nPing count: 0 ... 9", L"Enter a whole number in this range:"},
      {L"NxLib32.dll cannot be loaded.\r\nERROR: 126 - Not found", L"* cannot be loaded."},
      {L"K7Server の停止に失敗しました Err=0x5", L"*に失敗しました Err=0x*"},
      {L"Can't Start \"K7Server\". Err=0x5", L"Can't *\"*\". Err=0x*"},
      {L"\"K7Server\" is now running.\rCan you remove \"K7Server\" ?", L"* is now running."},
      {L"K7Server が動作中です。\rK7Server を削除して", L"* が動作中です。"},
      {L"Can't Open [C:\\x] for Read\n\rERROR: 5 - Denied", L"Can't Open [*] for *"},
      {L"Loading language data is failed\r\nResource:Initialize\r\n", L"Loading language data is failed"},
      {L"The CNC did not accept the access code.\r\nCheck the code.",
       L"The CNC did not accept the access code."},
      {L"Anything that Windows says", L"*"},
  };
  for (const auto& [box, pattern] : boxes) EXPECT_EQ(PatternOfBox(box), pattern) << NarrowAscii(box);
}

/// The first literal of each call in the product's sources that shows a text, up to the first escape.
std::set<std::string> ShownLiterals() {
  const std::regex call(R"re((?:AddToList|Show|Fail|RuntimeError)\(\s*L"([^"\\]+))re");
  std::set<std::string> literals;
  for (const char* const folder : {"about", "app", "cnclib", "ftp", "k7", "net", "platform", "report", "ui"})
    for (const auto& file :
         std::filesystem::recursive_directory_iterator(std::string(TARVIK_SOURCE_FOLDER "/") + folder)) {
      if (file.path().extension() != ".cpp" || file.path().parent_path().filename() == "memory") continue;
      const std::string source = BytesOf(file.path());
      for (std::sregex_iterator at(source.begin(), source.end(), call); at != std::sregex_iterator(); ++at)
        literals.insert((*at)[1]);
    }
  return literals;
}

TEST_F(ExplanationTextsTest, Every_text_that_the_sources_show_is_in_the_explanations) {
  // Reasons that only the about box shows.
  const std::set<std::string> notExplained = {"API GetFileVersionInfoSize ", "API GetFileVersionInfo ",
                                              "API VerQueryValue "};
  std::string all;
  for (const auto& file : ExplanationFiles()) all += BytesOf(file);
  const std::set<std::string> literals = ShownLiterals();
  EXPECT_GT(literals.size(), 40U);
  for (const std::string& literal : literals) {
    if (notExplained.contains(literal)) continue;
    EXPECT_NE(all.find(literal.substr(0, literal.find_last_not_of(' ') + 1)), std::string::npos) << literal;
  }
}

}  // namespace
}  // namespace tarvik::test
