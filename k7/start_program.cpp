#include "k7/start_program.h"

namespace tarvik {

void StartProgram(Processes& processes, report::MessageBoxes& boxes, const std::wstring& commandLine,
                  const std::wstring& program) {
  if (processes.Shell(commandLine, StartWindow::NormalFocused, program) == 0)
    boxes.Show(L"Error in Shell(" + commandLine + L")");
}

}  // namespace tarvik
