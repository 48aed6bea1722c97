#pragma once

#include <string>
#include <vector>

#include "lab/host/own_network.h"
#include "tests/network/on_cables.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {

using Lines = std::vector<std::string>;

inline Lines Joined(const std::vector<Lines>& parts) {
  Lines lines;
  for (const Lines& part : parts) lines.insert(lines.end(), part.begin(), part.end());
  return lines;
}

/// The shipped program on the PC of a laboratory network. A suite that needs another PC defines its own
/// Options().
template <typename Suite>
class LabTest : public OnCables<WindowsTest<Suite>> {
 protected:
  static constexpr milliseconds kRunTimeOut = kUnblocked;

  /// Starts the program with a target on its command line and returns the lines of the run that it starts by
  /// itself, without their times. A message box fails the test unless `listener` accepts it.
  Lines RunAtStart(const std::string& commandLine, const Listener& listener = {},
                   const std::string& program = ProgramPath()) {
    this->StartOnly(commandLine, program);
    const WindowUnderTest window = WaitForMainWindow(this->Program(), listener);
    return WithoutTimes(FollowRun(this->Program(), window, kRunTimeOut, listener));
  }

  /// Drops the packets that match the nftables expression when they arrive at the host.
  static void Drop(Host host, const std::string& packets) {
    LabTest::Net().SetFilter(host, "table ip silent {\nchain in {\ntype filter hook input priority 0;\n" +
                                       packets + " drop\n}\n}");
  }

  /// Lets the PC give up connecting after seconds, as Windows does; Linux tries for two minutes.
  static void GiveUpConnectingSoon() {
    RunOrThrow(InNamespace(LabTest::Net().Namespace(Host::Pc),
                           {"sh", "-c", "echo 2 >/proc/sys/net/ipv4/tcp_syn_retries"}));
  }
};

}  // namespace tarvik::lab
