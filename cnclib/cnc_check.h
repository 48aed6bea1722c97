#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "cnclib/cnc_connection.h"
#include "cnclib/cnc_library.h"
#include "platform/code_page.h"
#include "report/check_context.h"

namespace tarvik {

/// Connects to the controller, checks that it has the option for this library and shows its system
/// information. `accessCode`, if the user gave one, is sent when the controller asks for it. The first step
/// that fails adds its line and ends the test. A missing library passes and an empty address fails, both at
/// once and without a line. `nxlibOptions` receives the option word that the library last returned. Calls
/// `setBusy(true)` before the first blocking call and `setBusy(false)` at the end. True = passed.
bool RunLibraryTest(const report::CheckContext& context, CncLibrary& library, CodePage& codePage,
                    const std::function<void(bool busy)>& setBusy, const CncTarget& target,
                    const std::optional<std::wstring>& accessCode, bool nxlibMissing, uint32_t& nxlibOptions);

/// The letter of the model's generation, which is the high byte of a system information's `addinfo`. The
/// whole value in brackets when the generation has no letter; empty when there is no generation. Always
/// returns true.
bool GetModelFromSysInfo(int16_t nAddinfo, std::wstring& sModel);

/// Adds the names of the options in the word to the list; the program knows seven.
///
/// Dormant: no caller lists the options today; RunLibraryTest checks only the one that it needs. Kept for a
/// page that shows them.
void DisplayNexal1Options(report::ResultList& results, const Texts& texts, bool nxlibMissing,
                          uint32_t nxlibOptions);

}  // namespace tarvik
