#include "tests/failures/strike_every_call.h"

namespace tarvik::test {
namespace {

/// The rungs of a ladder have every pair of failures in tests of their own.
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
    routine.silences = {
        {"InternetGetLastResponseInfoA", "a reply that cannot be had reads as an empty one"},
        {"MultiByteToWideChar", "nor does one appear that is no text"},
        {"FtpFindFirstFileA", "a directory that cannot be listed reads as an empty one"},
        {"InternetFindNextFileA", "a listing ends where the server ends it, whatever its reason"}};
    return routine;
  }
};

TEST_F(FtpFailures, The_FTP_test_survives_every_failure) {
  StrikeEveryCall(Click("FTP test", ID_cmdFtpConnect));
}

TEST_F(FtpFailures, The_FTP_pages_ladder_survives_every_failure) {
  Routine routine = Click("All tests of the FTP page", ID_cmdAllFtpTest);
  routine.pairs = Pairs::OfEachKind;
  StrikeEveryCall(routine);
}

TEST_F(FtpFailures, The_whole_ladder_survives_every_failure) {
  Routine routine = Click("Whole ladder", ID_cmdAllTest);
  routine.start = [](FailingProgram& program) { program.Start(L"-LANGID 1 -X 8"); };
  routine.pairs = Pairs::OfEachKind;
  StrikeEveryCall(routine);
}

}  // namespace
}  // namespace tarvik::test
