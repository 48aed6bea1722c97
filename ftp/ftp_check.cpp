#include "ftp/ftp_check.h"

#include "ftp/directory_listing.h"
#include "ftp/ftp_client.h"
#include "platform/scope_guard.h"

namespace tarvik {

bool TestFtp(const report::CheckContext& context, Wininet& wininet, CodePage& codePage, System& system,
             const std::function<void(bool busy)>& setBusy, const std::wstring& host,
             const std::wstring& user, const std::wstring& password) {
  if (host.empty()) return false;
  clsFtpClient mclsFTP(wininet, codePage);
  DirectoryListing listing(context.results, system);
  mclsFTP.onBeginEnumFiles = [&listing](int32_t) { listing.BeginEnumFiles(); };
  mclsFTP.onEnumFile = [&listing](const FtpFile& file) { listing.EnumFile(file); };
  mclsFTP.onEndEnumFile = [&listing](bool) { listing.EndEnumFile(); };

  context.results.AddToList(L"");
  context.results.AddToList(L"FTP Connect test...");
  context.pump.LetEventsRun();
  // setBusy disables the window, so this is the last chance to ask for a stop.
  if (context.pump.StopRequested()) return false;

  setBusy(true);
  const ScopeGuard endBusy([&] {
    // Discards the clicks of the meantime, which would otherwise start the next test.
    context.pump.LetEventsRun();
    setBusy(false);
  });
  const bool connected = mclsFTP.Connect(host, user, password);
  const std::wstring reply = mclsFTP.Response();
  if (connected || !reply.empty())
    context.results.AddLinesToList(reply);
  else
    context.results.AddToList(L"Cannot connect ...");
  context.pump.LetEventsRun();
  if (!connected) return false;

  mclsFTP.CurrentDir();
  context.results.AddLinesToList(mclsFTP.Response());
  mclsFTP.EnumFile();
  context.pump.LetEventsRun();
  mclsFTP.DisConnect();
  context.results.AddLinesToList(mclsFTP.Response());
  return true;
}

}  // namespace tarvik
