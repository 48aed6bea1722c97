#include "tests/failures/fail_every_call.h"

namespace tarvik::test {
namespace {

/// Every kind of option. No K7 API test (4) in -X: it would take too long.
constexpr wchar_t kWholeCommandLine[] =
    L"-X 11 -LOCALEID 1033 -LANGID 1 -PING_N 1 -FTP_USER anna -FTP_PASSWD code 192.168.1.100;code";

class ShellFailures : public FailureTest {
 protected:
  /// The start-up. After each failure the program must still be able to ping.
  static Routine StartUp(const char* name, const wchar_t* commandLine, bool familyEdition) {
    Routine routine{name};
    routine.start = nullptr;
    routine.captionsReport = true;
    routine.runsAgain = false;
    routine.pairs = Pairs::OfEachKind;
    routine.run = [=](FailingProgram& program) { program.Start(commandLine, familyEdition); };
    routine.check = [](FailingProgram& program) -> std::string {
      if (!program.form1) return "";
      if (!program.plan.HasFailed("WSAStartup") && program.List().horizontalExtent == 0)
        return "start-up was not completed";
      // The first and the last caption to be loaded.
      const bool captions = program.form.Caption().starts_with(L"text ") ||
                            program.Label(ID_lblResult).Caption().starts_with(L"text ");
      if (program.plan.Failed().size() == 1 && program.plan.HasFailed("SetWindowText") && !captions)
        return "one failed caption kept the others from being loaded";
      program.form1->Results().ClearList();
      program.Address().SetText(L"192.168.1.100");
      program.Box(ID_txtPingReqCount).SetText(L"1");
      program.Click(ID_cmdPing);
      const auto& lines = program.List().lines;
      return lines.size() == 2 && lines[1].starts_with(L"0001 Reply From 192.168.1.100")
                 ? ""
                 : "the program cannot ping after its start-up";
    };
    routine.silences = {
        {"Read of a setting", "an address of the history that cannot be read is left out"},
        {"TxDecd", "a secret that decodes to nothing is empty"},
        {"MultiByteToWideChar", "a secret that cannot be converted is empty"},
    };
    return routine;
  }

  /// Closing the program; `withWindows`: with the PMC window and the about box open.
  static Routine ShutDown(const char* name, bool familyEdition, bool withWindows) {
    Routine routine{name};
    routine.runsAgain = false;
    routine.start = [=](FailingProgram& program) {
      program.Start(L"-LANGID 1 -X 0", familyEdition);
      if (!withWindows) return;
      program.form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Click();
      program.form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
    };
    routine.run = [](FailingProgram& program) { program.form.Close(); };
    routine.check = [](FailingProgram& program) -> std::string {
      return program.form.unloaded ? "" : "the window does not close";
    };
    return routine;
  }
};

TEST_F(ShellFailures, The_familys_start_up_survives_every_failure) {
  FailEveryCall(StartUp("Start-up of the family's edition", kWholeCommandLine, true));
}

TEST_F(ShellFailures, The_general_start_up_survives_every_failure) {
  FailEveryCall(StartUp("Start-up of the general edition", kWholeCommandLine, false));
}

TEST_F(ShellFailures, A_start_up_without_a_command_line_survives_every_failure) {
  Routine routine = StartUp("Start-up without a command line", L"", true);
  routine.pairs = Pairs::None;
  routine.silences.resize(1);
  FailEveryCall(routine);
}

TEST_F(ShellFailures, Shut_down_survives_every_failure) {
  FailEveryCall(ShutDown("Shut-down of the family's edition", true, false));
  FailEveryCall(ShutDown("Shut-down of the general edition", false, false));
  FailEveryCall(ShutDown("Shut-down with other windows open", false, true));
}

TEST_F(ShellFailures, The_about_box_survives_every_failure) {
  Routine routine{"About box"};
  routine.run = [](FailingProgram& program) {
    program.form.Get<ui::MemoryMenuItem>(ID_mnuHelpSub).Click();
    ui::MemoryForm* const box = program.OtherWindow();
    if (box == nullptr) return;
    box->Get<ui::MemoryButton>(ID_cmdSysInfo).Click();
    box->Get<ui::MemoryButton>(ID_cmdOK).Click();
  };
  routine.silences = {{"GetVersionExA", "without a version Windows has no name in the box"},
                      {"GetFileVersionInfoSizeW", "a module without a version is shown without it"},
                      {"GetFileVersionInfoW", "a module without a version is shown without it"},
                      {"VerQueryValueW", "a module without a version is shown without it"}};
  FailEveryCall(routine);
}

TEST_F(ShellFailures, Copying_and_pasting_survive_every_failure) {
  for (const bool paste : {false, true}) {
    Routine routine{paste ? "Pasting into the list" : "Copying the list"};
    routine.start = [paste](FailingProgram& program) { program.Start(paste ? L"-X 16 -X" : L"-X 0 -X"); };
    routine.prepare = [](FailingProgram& program) {
      program.form1->Results().ClearList();
      program.form1->Results().AddBatch({L"one", L"two"});
      program.clipboard.text = L"three\r\nfour\r\n";
    };
    routine.run = [](FailingProgram& program) { program.List().DoubleClick(); };
    FailEveryCall(routine);
  }
}

TEST_F(ShellFailures, Copying_the_report_survives_every_failure) {
  Routine routine{"Copying the report"};
  routine.run = [](FailingProgram& program) {
    program.form.Get<ui::MemoryMenuItem>(ID_mnuCopyReport).Click();
  };
  // The libraries' versions are read only once.
  routine.start = [run = routine.run](FailingProgram& program) {
    program.Start(L"-X 0 -X");
    run(program);
  };
  FailEveryCall(routine);
}

TEST_F(ShellFailures, Saving_the_report_survives_every_failure_and_keeps_the_file_that_was_there) {
  static constexpr wchar_t kFile[] = L"E:\\report.html";
  Routine routine{"Saving the report"};
  routine.run = [](FailingProgram& program) {
    program.form.Get<ui::MemoryMenuItem>(ID_mnuSaveReport).Click();
  };
  routine.prepare = [](FailingProgram& program) {
    program.form.PassTime(3000);  // ends the sentence of the last run
    program.files.folders = {L"E:\\"};
    program.files.contents[kFile] = "old";
    program.form.onSavePrompt = [](const ui::SavePrompt&) { return ui::SavePlace{kFile, 0}; };
  };
  routine.start = [prepare = routine.prepare, run = routine.run](FailingProgram& program) {
    program.Start(L"-X 0 -X");
    prepare(program);
    run(program);
  };
  routine.check = [](FailingProgram& program) -> std::string {
    const std::string& saved = program.files.contents[kFile];
    const bool failed = program.plan.HasFailed("Write of a file") || program.plan.HasFailed("Replace");
    if (failed) return saved == "old" ? "" : "a failure has lost the old file";
    return saved.starts_with("<!DOCTYPE html") ? "" : "the report was not saved";
  };
  FailEveryCall(routine);
}

}  // namespace
}  // namespace tarvik::test
