#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/result_list.h"
#include "cnclib/cnc_connection.h"
#include "cnclib/cnc_library.h"
#include "platform/code_page.h"
#include "resources/messages.h"
#include "ui/form.h"
#include "ui/message_boxes.h"
#include "ui/pump.h"

namespace tarvik {

/// What the library test takes.
struct LibraryTestTools {
  ResultList& results;
  ui::MessageBoxes& boxes;
  const Texts& texts;
  ui::Pump& pump;
  ui::Form& form;  ///< shows the hourglass
  CncLibrary& library;
  CodePage& codePage;
};

/// Connects to the controller, with `accessCode` when the user gave one and the controller asks, checks that
/// the controller has the library's option and shows what it says of itself. Every step that fails ends the
/// test with its line. A missing library or an empty address ends it at once without a line; the former
/// counts as passed. `nxlibOptions` gets the option word as the library last returned it. True = passed.
bool RunLibraryTest(const LibraryTestTools& tools, const CncTarget& target,
                    const std::optional<std::wstring>& accessCode, bool nxlibMissing, uint32_t& nxlibOptions);

/// The letter of the model's generation behind a system information's `addinfo`, the whole value in brackets
/// when there is no such letter, or nothing when there is no generation. Always true.
bool GetModelFromSysInfo(int16_t nAddinfo, std::wstring& sModel);

/// Lists the names of the options in the word, of which the program knows seven.
void DisplayNexal1Options(ResultList& results, const Texts& texts, bool nxlibMissing, uint32_t nxlibOptions);

}  // namespace tarvik
