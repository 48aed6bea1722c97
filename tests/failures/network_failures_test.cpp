#include "tests/failures/fail_every_call.h"

namespace tarvik::test {
namespace {

class NetworkFailures : public FailureTest {
 protected:
  /// A ping of the address with `count` echoes per host.
  static Routine Ping(const char* name, const std::wstring& address, const std::wstring& count) {
    Routine routine{name};
    routine.prepare = [address, count](FailingProgram& program) {
      program.Address().SetText(address);
      program.Box(ID_txtPingReqCount).SetText(count);
    };
    routine.run = [](FailingProgram& program) { program.Click(ID_cmdPing); };
    return routine;
  }
};

TEST_F(NetworkFailures, A_ping_on_the_own_subnet_survives_every_failure) {
  FailEveryCall(Ping("Ping on the own subnet", L"192.168.1.100", L"2"));
}

TEST_F(NetworkFailures, A_ping_through_a_gateway_survives_every_failure) {
  Routine routine = Ping("Ping of a name through a gateway", L"cnc", L"1");
  routine.silences = {{"WSAIoctl", "the PC's address is shown only when it is the only one"}};
  FailEveryCall(routine);
}

TEST_F(NetworkFailures, A_ping_from_a_PC_with_many_addresses_survives_every_failure) {
  Routine routine = Ping("Ping from a PC with many addresses", L"192.168.1.100", L"1");
  routine.start = [](FailingProgram& program) {
    for (int i = 0; i < 12; ++i)
      program.winsock.AddInterface("10.1." + std::to_string(i) + ".1", "255.255.255.0");
    program.winsock.refusesSmallBuffer = true;
    program.Start();
  };
  FailEveryCall(routine);
}

TEST_F(NetworkFailures, A_ping_on_Windows_NT_4_survives_every_failure) {
  Routine routine = Ping("Ping on Windows NT 4.0", L"192.168.1.100", L"1");
  routine.start = [](FailingProgram& program) {
    program.system.majorVersion = 4;
    program.processes.onStart = [&program] {
      program.files.contents[L"C:\\Program\\ipconfig.txt"] =
          "IP Address. . . : 192.168.1.10\r\r\nSubnet Mask . . : 255.255.255.0\r\r\n"
          "Default Gateway : 192.168.1.1\r\r\n";
    };
    program.Start();
  };
  routine.prepare = [set = routine.prepare](FailingProgram& program) {
    set(program);
    program.processes.polls = 0;
    program.processes.runningPolls = 1;
  };
  routine.check = [](FailingProgram& program) -> std::string {
    bool left = false;
    for (const wchar_t* const name : {L"C:\\Program\\ipconfig.txt", L"C:\\Program\\ipconfig.bat"})
      left = program.files.contents.erase(name) != 0 || left;
    // A file stays when deleting it or looking for it fails.
    return left && !program.plan.HasFailed("Delete") && !program.plan.HasFailed("Exists")
               ? "a temporary file was not deleted"
               : "";
  };
  FailEveryCall(routine);
}

}  // namespace
}  // namespace tarvik::test
