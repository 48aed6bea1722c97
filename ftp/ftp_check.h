#pragma once

#include <functional>
#include <string>

#include "ftp/wininet.h"
#include "platform/code_page.h"
#include "platform/system.h"
#include "report/check_context.h"

namespace tarvik {

/// Logs in to the FTP server of the host, shows its replies and a listing of its current directory, and
/// disconnects. `setBusy(true)` is called before the first call that blocks, and `setBusy(false)` at the end.
/// True when it could log in; false at once when the host is empty.
bool TestFtp(const report::CheckContext& context, Wininet& wininet, CodePage& codePage, System& system,
             const std::function<void(bool busy)>& setBusy, const std::wstring& host,
             const std::wstring& user, const std::wstring& password);

}  // namespace tarvik
