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

/// Connects to the controller, with `accessCode` when the user gave one and the controller asks, checks that
/// the controller has the library's option and shows what it says of itself. Every step that fails ends the
/// test with its line. A missing library or an empty address ends it at once without a line; the former
/// counts as passed. `nxlibOptions` gets the option word as the library last returned it.
/// `setBusy(true)` is called before the first call that blocks, and `setBusy(false)` at the end. True =
/// passed.
bool RunLibraryTest(const report::CheckContext& context, CncLibrary& library, CodePage& codePage,
                    const std::function<void(bool busy)>& setBusy, const CncTarget& target,
                    const std::optional<std::wstring>& accessCode, bool nxlibMissing, uint32_t& nxlibOptions);

/// The letter of the model's generation behind a system information's `addinfo`, the whole value in brackets
/// when there is no such letter, or nothing when there is no generation. Always true.
bool GetModelFromSysInfo(int16_t nAddinfo, std::wstring& sModel);

/// Lists the names of the options in the word, of which the program knows seven.
///
/// Dormant: no caller lists the options today; RunLibraryTest checks only the one that it needs. Kept for a
/// page that shows them.
void DisplayNexal1Options(report::ResultList& results, const Texts& texts, bool nxlibMissing,
                          uint32_t nxlibOptions);

}  // namespace tarvik
