#include "tests/failures/fail_every_call.h"

namespace tarvik::test {
namespace {

/// Ladders inject only kinds of pairs that no earlier test has injected. Others cover all pairs of each rung.
class FtpFailures : public FailureTest {
 protected:
  static void PrepareServer(FailingProgram& program) {
    program.Address().SetText(L"192.168.1.100");
    program.Box(ID_txtPingReqCount).SetText(L"1");
    program.Box(ID_txtK7ApiTestCount).SetText(L"1");
    program.Box(ID_txtFtpUsername).SetText(L"anna");
    program.Box(ID_txtFtpPasswd).SetText(L"secret");
    program.wininet.replies = {"230 logged in", "257 \"/\"", "226 done"};
    program.wininet.entries = {FakeWininet::Directory("."), FakeWininet::Directory("b"),
                               FakeWininet::File("A.txt", 7)};
    program.wininet.failing.clear();
  }

  static Routine Click(const char* name, int button) {
    Routine routine{name};
    routine.prepare = PrepareServer;
    routine.run = [button](FailingProgram& program) { program.Click(button); };
    routine.silences = {{"InternetGetLastResponseInfoA", "a reply that cannot be read counts as empty"},
                        {"MultiByteToWideChar", "a reply that cannot be converted counts as empty"},
                        {"FtpFindFirstFileA", "a directory that cannot be listed looks empty"},
                        {"InternetFindNextFileA", "a listing that the server cuts off looks complete"}};
    return routine;
  }
};

TEST_F(FtpFailures, The_FTP_test_survives_every_failure) {
  FailEveryCall(Click("FTP test", ID_cmdFtpConnect));
}

TEST_F(FtpFailures, The_FTP_pages_ladder_survives_every_failure) {
  Routine routine = Click("All tests of the FTP page", ID_cmdAllFtpTest);
  routine.pairs = Pairs::OfEachKind;
  FailEveryCall(routine);
}

TEST_F(FtpFailures, The_whole_ladder_survives_every_failure) {
  Routine routine = Click("Whole ladder", ID_cmdAllTest);
  routine.start = [](FailingProgram& program) { program.Start(L"-LANGID 1 -X 8"); };
  routine.pairs = Pairs::OfEachKind;
  FailEveryCall(routine);
}

}  // namespace
}  // namespace tarvik::test
