#include "tests/failures/fail_every_call.h"

namespace tarvik::test {
namespace {

class CncFailures : public FailureTest {
 protected:
  static Routine LibraryTest(const char* name) {
    Routine routine{name};
    routine.prepare = [](FailingProgram& program) { program.Address().SetText(L"192.168.1.100"); };
    routine.run = [](FailingProgram& program) { program.Click(ID_cmdGetInfo); };
    return routine;
  }
};

TEST_F(CncFailures, The_library_test_survives_every_failure) { FailEveryCall(LibraryTest("Library test")); }

TEST_F(CncFailures, The_library_test_with_an_access_code_survives_every_failure) {
  Routine routine = LibraryTest("Library test with access code");
  routine.start = [](FailingProgram& program) {
    program.cncLibrary.openResult = 7;
    program.Start();
    program.form.Get<ui::MemoryCheckBox>(ID_chkAccessCode).SetChecked(true);
    program.Box(ID_txtAccessCode).SetText(L"123");
  };
  FailEveryCall(routine);
}

TEST_F(CncFailures, The_PMC_read_test_survives_every_failure) {
  Routine routine{"PMC read test"};
  routine.start = [](FailingProgram& program) {
    program.Start();
    program.Address().SetText(L"192.168.1.100");
    program.form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Click();
    auto& window = *program.OtherWindow();
    window.Get<ui::MemoryTextBox>(ID_txtCount).SetText(L"3");
    window.Get<ui::MemoryTextBox>(ID_txtPmcLen).SetText(L"2");
    window.Get<ui::MemoryTextBox>(ID_txtSleep).SetText(L"300");
    program.cncLibrary.onRead = [&program] {
      program.cncLibrary.readResult = program.cncLibrary.reads == 2 ? CncLibrary::kPmcError : int16_t{0};
    };
  };
  routine.prepare = [](FailingProgram& program) {
    program.cncLibrary.reads = 0;
    auto& window = *program.OtherWindow();
    for (const int id : {ID_lstData, ID_pmc_lstResult}) window.Get<ui::MemoryListBox>(id).lines.clear();
    window.Get<ui::MemoryLabel>(ID_lblCount).SetCaption(L"");
  };
  routine.run = [](FailingProgram& program) {
    program.OtherWindow()->Get<ui::MemoryButton>(ID_cmdRead).Click();
  };
  FailEveryCall(routine);
}

TEST_F(CncFailures, The_PMC_window_survives_every_failure) {
  Routine routine{"PMC window"};
  routine.run = [](FailingProgram& program) {
    program.form.Get<ui::MemoryMenuItem>(ID_mnuPMC).Click();
    if (ui::MemoryForm* const window = program.OtherWindow()) window->Close();
  };
  FailEveryCall(routine);
}

}  // namespace
}  // namespace tarvik::test
