#pragma once

#include <cstdlib>

#include "tests/unit/app/form1_fixture.h"

namespace tarvik::test {

/// The whole program without real windows, for use outside of GoogleTest.
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

  /// Closes the program, which must be at rest, unless the end of the session has closed it. Checks that
  /// everything was released.
  void End() {
    onEvents = nullptr;
    if (!form.unloaded) Close();
    Require(screen.Forms().size() == 1);
    Require(winsock.startups == winsock.cleanups);
    Require(icmp.closed.size() == (icmp.createResult == 0 ? 0U : 1U));
  }

 private:
  void TestBody() override {}
  static void Require(bool rule) {
    if (!rule) std::abort();
  }
  void Close() {
    Require(!flags.busy && !flags.stopRequested);
    Require(form.Enabled() && form.CurrentPointer() == ui::Pointer::Default);
    Require(Button(ID_cmdPing).Caption() != L"&Stop");
    Require(cncLibrary.AllGivenBack());
    // Counted, because nested tests get the same handle from the fake library.
    Require(k7Api.Count("K7_AllocHandle") == k7Api.Count("K7_FreeHandle"));
    Require(wininet.open.empty() && wininet.misuses == 0);
    Require(winsock.openSockets.empty() && processes.openHandles.empty());
    Require(form.Close() && form.unloaded);
  }
};

}  // namespace tarvik::test
