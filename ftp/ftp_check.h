#pragma once

#include <functional>
#include <string>

#include "app/result_list.h"
#include "ftp/wininet.h"
#include "platform/code_page.h"
#include "platform/text_order.h"
#include "ui/pump.h"

namespace tarvik {

/// What the FTP test takes.
struct FtpTestTools {
  ResultList& results;
  ui::Pump& pump;
  Wininet& wininet;
  CodePage& codePage;
  TextOrder& order;
  std::function<void(bool busy)> setBusy;  ///< keeps the user out, under an hourglass, while true
};

/// Logs in to the FTP server of the host, shows its replies and a listing of its current directory, and
/// disconnects. True when it could log in; false at once when the host is empty.
bool TestFtp(const FtpTestTools& tools, const std::wstring& host, const std::wstring& user,
             const std::wstring& password);

}  // namespace tarvik
