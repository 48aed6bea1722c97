#include "k7/services_file_adding.h"
#include "k7/svc_utl.h"
#include "tests/failures/fail_every_call.h"

namespace tarvik::test {
namespace {

class K7Failures : public FailureTest {
 protected:
  /// A command of the K7 Svc page while the service is in this state.
  static Routine Command(const char* name, int32_t state, std::function<void(FailingProgram&)> command) {
    Routine routine{name};
    routine.prepare = [state](FailingProgram& program) {
      program.boxes.answerYes = true;
      program.svcKit.Settle(state);
      program.svcKit.slowness = 2;
      program.Label(ID_lblK7ServerStatus).SetCaption(L"---");
    };
    routine.run = std::move(command);
    return routine;
  }

  /// A method of the service utility; a line of the list shows its success.
  static Routine Method(const char* name, int32_t state, const std::function<bool(SvcUtl&)>& method) {
    return Command(name, state, [method](FailingProgram& program) {
      SvcUtl utility(program.failingSvcKit, FileUtil(program.failingKernel, program.failingVersions),
                     program.boxes, program.pump, program.failingCodePage);
      utility.pDispErrMsgBox(true);
      try {
        if (utility.mInitialize(1) && method(utility)) program.List().lines.emplace_back(L"done");
      } catch (const RuntimeError& error) {
        static_cast<report::MessageBoxes&>(program.boxes).Show(error.Text(), report::BoxIcon::Critical);
      }
      utility.mTerminate();
    });
  }
};

TEST_F(K7Failures, The_API_test_survives_every_failure) {
  Routine routine{"K7 API test"};
  routine.prepare = [](FailingProgram& program) {
    program.Address().SetText(L"192.168.1.100");
    program.Box(ID_txtK7ApiTestCount).SetText(L"2");
    program.failingK7Api.cleanups = 0;
    program.k7Api.calls.clear();
  };
  routine.run = [](FailingProgram& program) { program.Click(ID_cmdK7Api); };
  routine.check = [](FailingProgram& program) -> std::string {
    // A button whose caption cannot be set ends the test before its first call.
    const bool begun = !program.plan.HasFailed("SetWindowText") || !program.k7Api.calls.empty();
    const int expected = begun ? 1 : 0;
    return program.failingK7Api.cleanups == expected ? "" : "K7_WSACleanup was not called exactly once";
  };
  FailEveryCall(routine);
}

TEST_F(K7Failures, The_state_of_the_service_survives_every_failure) {
  Routine routine = Command("K7 service, state", SvcUtl::pSvcCondRunning,
                            [](FailingProgram& program) { program.Label(ID_lblK7ServerStatus).Click(); });
  for (const int way : {2, 4, 5, 6})
    routine.silences.push_back(
        {"QSetup_GetServiceStatus", "a state without a name leaves the label unchanged", way});
  FailEveryCall(routine);
}

TEST_F(K7Failures, The_start_of_the_service_survives_every_failure) {
  FailEveryCall(Command("K7 service, start", SvcUtl::pSvcCondStopped,
                        [](FailingProgram& program) { program.Click(ID_cmdStartStopK7Server_1); }));
}

TEST_F(K7Failures, The_stop_of_the_service_survives_every_failure) {
  FailEveryCall(Command("K7 service, stop", SvcUtl::pSvcCondRunning,
                        [](FailingProgram& program) { program.Click(ID_cmdStartStopK7Server_0); }));
}

TEST_F(K7Failures, The_debug_launch_survives_every_failure) {
  FailEveryCall(Command("K7 debug launch", SvcUtl::pSvcCondStopped,
                        [](FailingProgram& program) { program.Click(ID_cmdK7ServerDebug); }));
}

TEST_F(K7Failures, The_setup_of_a_service_survives_every_failure) {
  FailEveryCall(Method("K7 service, setup", SvcUtl::pSvcCondStopped, [](SvcUtl& utility) -> bool {
    return utility.mSetupService(L"K7Server", L"K7 Server", L"C:\\K7Server.exe",
                                 SvcUtl::pSvcStartTypeAutoStart);
  }));
}

TEST_F(K7Failures, The_removal_of_a_service_survives_every_failure) {
  FailEveryCall(Method("K7 service, removal", SvcUtl::pSvcCondRunning,
                       [](SvcUtl& utility) -> bool { return utility.mRemoveService(L"K7Server"); }));
}

TEST_F(K7Failures, The_check_of_the_services_file_survives_every_failure) {
  Routine routine{"Services file, check"};
  routine.prepare = [](FailingProgram& program) {
    program.Tabs().BringToFront(kPingPage);
    program.Label(ID_lblK7UdpPortNo).SetCaption(L"---");
  };
  routine.run = [](FailingProgram& program) { program.Tabs().BringToFront(kK7SvcPage); };
  for (const int way : {2, 3})
    routine.silences.push_back({"Read of a file", "without the entry no port is shown", way});
  routine.silences.push_back({"WideCharToMultiByte", "without the name's bytes the entry is not found"});
  FailEveryCall(routine);
}

TEST_F(K7Failures, Adding_to_the_services_file_survives_every_failure) {
  static const std::string kBefore = "http 80/tcp\r\nlast 90/udp";
  Routine routine{"Services file, adding"};
  routine.prepare = [](FailingProgram& program) {
    program.files.contents = {{FailingProgram::kServicesFile, kBefore}};
    program.files.attributes = {{FailingProgram::kServicesFile, 0x21}};
  };
  routine.run = [](FailingProgram& program) {
    ServiceEntry entries[] = {{L"NORVAX_K7_SERVER", 0, L"udp", false, false},
                              {L"http", 0, L"tcp", false, false},
                              {L"other", 95, L"tcp", false, false}};
    FmtErrMsg errors(program.failingKernel, program.failingCodePage, program.boxes);
    ServicesFileAdder adder(program.failingFiles, program.failingCodePage, errors, program.boxes,
                            FailingProgram::kServicesFile);
    if (adder.Add(entries, {2024, 2, 3, 4, 5})) program.List().lines.emplace_back(L"done");
  };
  routine.check = [](FailingProgram& program) -> std::string {
    if (!program.files.contents[FailingProgram::kServicesFile].starts_with(kBefore))
      return "the file has lost earlier contents";
    if (program.files.attributes[FailingProgram::kServicesFile] != 0x21 &&
        !program.plan.HasFailed("SetAttributes"))
      return "the file's attributes are not restored";
    return "";
  };
  FailEveryCall(routine);
}

TEST_F(K7Failures, The_editor_for_the_services_file_survives_every_failure) {
  Routine routine{"Services file, editor"};
  routine.run = [](FailingProgram& program) {
    program.Label(ID_lblK7UdpPortNo).PressMouse(ui::kLeftButton, ui::kCtrlHeld | ui::kAltHeld);
  };
  FailEveryCall(routine);
}

}  // namespace
}  // namespace tarvik::test
