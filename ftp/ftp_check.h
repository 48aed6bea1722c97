#pragma once

#include <functional>
#include <string>

#include "ftp/wininet.h"
#include "platform/code_page.h"
#include "platform/system.h"
#include "report/check_context.h"

namespace tarvik {

/// Logs in to the FTP server on `host`, adds its replies and a listing of its current directory to the result
/// list, and disconnects. Calls `setBusy(true)` before the first blocking call and `setBusy(false)` at the
/// end. True when the login succeeded. Returns false at once when the host is empty, and before the login
/// when a stop is requested.
bool TestFtp(const report::CheckContext& context, Wininet& wininet, CodePage& codePage, System& system,
             const std::function<void(bool busy)>& setBusy, const std::wstring& host,
             const std::wstring& user, const std::wstring& password);

}  // namespace tarvik
