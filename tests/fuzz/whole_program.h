#pragma once

#include <cstdlib>

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {

/// The whole program without a window, outside of any test.
class WholeProgram final : public Form1Test {
 public:
  using Form1Test::Address;
  using Form1Test::AddString;
  using Form1Test::Box;
  using Form1Test::Button;
  using Form1Test::List;
  using Form1Test::Start;
  using Form1Test::Tabs;

  using Form1Test::boxes;
  using Form1Test::clipboard;
  using Form1Test::cncLibrary;
  using Form1Test::configuration;
  using Form1Test::files;
  using Form1Test::flags;
  using Form1Test::form;
  using Form1Test::form1;
  using Form1Test::icmp;
  using Form1Test::ipHelper;
  using Form1Test::k7Api;
  using Form1Test::kernel;
  using Form1Test::kServicesFile;
  using Form1Test::lastForm;
  using Form1Test::newForms;
  using Form1Test::onEvents;
  using Form1Test::processes;
  using Form1Test::pump;
  using Form1Test::screen;
  using Form1Test::settings;
  using Form1Test::svcKit;
  using Form1Test::system;
  using Form1Test::txCodec;
  using Form1Test::windowsLanguage;
  using Form1Test::wininet;
  using Form1Test::winsock;

  /// The user stops whatever still runs, and closes the window, unless the session has ended with the program
  /// at rest. Nothing is left behind.
  void End() {
    onEvents = nullptr;
    if (!form.unloaded) Close();
    Demand(screen.Forms().size() == 1);
    Demand(winsock.startups == winsock.cleanups);
    Demand(icmp.closed.size() == (icmp.createResult == 0 ? 0U : 1U));
  }

 private:
  void TestBody() override {}
  static void Demand(bool rule) {
    if (!rule) std::abort();
  }
  void Close() {
    Demand(!flags.busy && !flags.stopRequested);
    Demand(form.Enabled() && form.CurrentPointer() == ui::Pointer::Default);
    Demand(Button(ID_cmdPing).Caption() != L"&Stop");
    Demand(cncLibrary.AllGivenBack());
    // Tests may stand inside each other, and the recorded library knows but one handle.
    Demand(k7Api.Count("K7_AllocHandle") == k7Api.Count("K7_FreeHandle"));
    Demand(wininet.open.empty() && wininet.misuses == 0);
    Demand(winsock.openSockets.empty() && processes.openHandles.empty());
    Demand(form.Close() && form.unloaded);
  }
};

}  // namespace tarvik::test
