#include "ftp/ftp_check.h"

#include "ftp/directory_listing.h"
#include "ftp/ftp_client.h"
#include "platform/scope_guard.h"

namespace tarvik {

bool TestFtp(const report::CheckContext& context, Wininet& wininet, CodePage& codePage, System& system,
             const std::function<void(bool busy)>& setBusy, const std::wstring& host,
             const std::wstring& user, const std::wstring& password) {
  report::FtpFacts& facts = context.recorder.run.facts.ftp;
  facts = {};
  facts.progress = report::Progress::Ended;
  facts.addressMissing = host.empty();
  if (facts.addressMissing) return false;
  facts.hasUser = !user.empty();
  facts.progress = report::Progress::Running;
  context.recorder.Changed();
  clsFtpClient mclsFTP(wininet, codePage);
  DirectoryListing listing(context.results, system);
  mclsFTP.onBeginEnumFiles = [&listing](int32_t) { listing.BeginEnumFiles(); };
  mclsFTP.onEnumFile = [&listing](const FtpFile& file) { listing.EnumFile(file); };
  mclsFTP.onEndEnumFile = [&](bool enumerated) {
    facts.enumerated = enumerated;
    facts.entries = listing.Entries();
    listing.EndEnumFile();
  };

  context.results.AddToList(L"");
  context.results.AddToList(L"FTP Connect test...");
  context.pump.LetEventsRun();
  // setBusy disables the window, so this is the last chance to ask for a stop.
  if (context.pump.StopRequested()) {
    facts.progress = report::Progress::Stopped;
    return false;
  }

  setBusy(true);
  const ScopeGuard endBusy([&] {
    // Discards the clicks of the meantime, which would otherwise start the next test.
    context.pump.LetEventsRun();
    setBusy(false);
  });
  const uint64_t begin = context.recorder.Milliseconds();
  const bool connected = mclsFTP.Connect(host, user, password);
  facts.connectMs = static_cast<uint32_t>(context.recorder.Milliseconds() - begin);
  facts.connectError = mclsFTP.ConnectError();
  const std::wstring reply = mclsFTP.Response();
  facts.loggedIn = connected;
  facts.loginReply = reply;
  if (connected || !reply.empty())
    context.results.AddLinesToList(reply);
  else
    context.results.AddToList(L"Cannot connect ...");
  context.pump.LetEventsRun();
  if (!connected) {
    facts.progress = report::Progress::Ended;
    return false;
  }

  mclsFTP.CurrentDir();
  facts.directoryReply = mclsFTP.Response();
  context.results.AddLinesToList(facts.directoryReply);
  const uint64_t listBegin = context.recorder.Milliseconds();
  mclsFTP.EnumFile();
  facts.listMs = static_cast<uint32_t>(context.recorder.Milliseconds() - listBegin);
  context.pump.LetEventsRun();
  mclsFTP.DisConnect();
  facts.endReply = mclsFTP.Response();
  context.results.AddLinesToList(facts.endReply);
  facts.progress = report::Progress::Ended;
  return true;
}

}  // namespace tarvik
