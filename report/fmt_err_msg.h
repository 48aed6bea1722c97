#pragma once

#include <cstdint>
#include <string>

#include "platform/code_page.h"
#include "platform/kernel_calls.h"
#include "report/message_boxes.h"

namespace tarvik {

/// Describes Windows and network error codes in one line of text.
class FmtErrMsg {
 public:
  FmtErrMsg(KernelCalls& kernel, CodePage& codePage, report::MessageBoxes& boxes)
      : kernel_(kernel), codePage_(codePage), boxes_(boxes) {}

  /// "ERROR: <code> - <the system's text>". For a code without a text, shows a message box and leaves the
  /// text empty.
  std::wstring Decode(int32_t lCode);

  /// The same for the latest error of a platform call. Dormant: every caller has the code that it reports.
  std::wstring mGetLastError() { return Decode(static_cast<int32_t>(kernel_.GetLastError())); }

 private:
  KernelCalls& kernel_;
  CodePage& codePage_;
  report::MessageBoxes& boxes_;
};

}  // namespace tarvik
