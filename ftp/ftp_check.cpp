#include "ftp/ftp_check.h"

#include "ftp/directory_listing.h"
#include "ftp/ftp_client.h"

namespace tarvik {
namespace {

/// Keeps the user out during its lifetime, and discards what he has clicked meanwhile: left in the queue, it
/// would start the next test.
class Busy {
 public:
  explicit Busy(const FtpTestTools& tools) : tools_(tools) { tools_.setBusy(true); }
  ~Busy() {
    tools_.pump.LetEventsRun();
    tools_.setBusy(false);
  }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  const FtpTestTools& tools_;
};

}  // namespace

bool TestFtp(const FtpTestTools& tools, const std::wstring& host, const std::wstring& user,
             const std::wstring& password) {
  if (host.empty()) return false;
  clsFtpClient mclsFTP(tools.wininet, tools.codePage);
  DirectoryListing listing(tools.results, tools.order);
  mclsFTP.onBeginEnumFiles = [&listing](int32_t) { listing.BeginEnumFiles(); };
  mclsFTP.onEnumFile = [&listing](const FtpFile& file) { listing.EnumFile(file); };
  mclsFTP.onEndEnumFile = [&listing](bool) { listing.EndEnumFile(); };

  tools.results.AddToList(L"");
  tools.results.AddToList(L"FTP Connect test...");
  tools.pump.LetEventsRun();
  // From here on the user is kept out, so this is the last place where a stop can have been asked for.
  if (tools.pump.StopRequested()) return false;

  const Busy busy(tools);
  const bool connected = mclsFTP.Connect(host, user, password);
  const std::wstring reply = mclsFTP.Response();
  if (connected || !reply.empty())
    tools.results.AddLinesToList(reply);
  else
    tools.results.AddToList(L"Cannot connect ...");
  tools.pump.LetEventsRun();
  if (!connected) return false;

  mclsFTP.CurrentDir();
  tools.results.AddLinesToList(mclsFTP.Response());
  mclsFTP.EnumFile();
  tools.pump.LetEventsRun();
  mclsFTP.DisConnect();
  tools.results.AddLinesToList(mclsFTP.Response());
  return true;
}

}  // namespace tarvik
