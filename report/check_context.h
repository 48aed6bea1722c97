#pragma once

#include "report/message_boxes.h"
#include "report/pump.h"
#include "report/result_list.h"
#include "report/run_recorder.h"
#include "resources/messages.h"

namespace tarvik::report {

/// What every check works with besides its libraries. All of it outlives the check.
struct CheckContext {
  ResultList& results;
  MessageBoxes& boxes;
  const Texts& texts;
  Pump& pump;
  RunRecorder& recorder;  ///< receives what the check sees, besides its lines
};

}  // namespace tarvik::report
