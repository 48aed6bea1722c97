#pragma once

#include <string>

#include "lab/windows_check/kit_win32.h"

namespace tarvik::check {

/// The bench's simulated controller on this PC, so that a run needs no network. Ends with its object.
class PracticeController {
 public:
  /// `scenario`: its text; see bench/README.md. Throws CheckError when the program cannot be started.
  PracticeController(const Kit& kit, int port, const std::string& scenario);
  PracticeController(const PracticeController&) = delete;
  PracticeController& operator=(const PracticeController&) = delete;
  ~PracticeController();

 private:
  HANDLE process_ = nullptr;
};

}  // namespace tarvik::check
