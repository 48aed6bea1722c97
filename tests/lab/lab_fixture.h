#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lab/laboratory.h"
#include "lab/main_window.h"
#include "lab/test_ground.h"

namespace tarvik::lab {

/// The shipped program on the PC of a laboratory network, which every test finds as it was laid. A suite that
/// wants another PC has Options() of its own.
template <typename Suite>
class LabTest : public testing::Test {
 protected:
  static WindowsPc::Options Options() { return PcForTests(); }
  /// Before the first program starts on it.
  static void PreparePc(WindowsPc&) {}

  static void SetUpTestSuite() {
    unsupportedReason_ = WindowsUnsupportedReason();
    if (!unsupportedReason_) unsupportedReason_ = Laboratory::UnsupportedReason();
    if (unsupportedReason_) return;
    WindowsPc::Options options = Suite::Options();
    net_ = std::make_unique<Laboratory>(options.cacheFolder);
    options.networkNamespace = net_->Namespace(Host::Pc);
    pc_ = std::make_unique<WindowsPc>(options);
    Suite::PreparePc(*pc_);
  }
  static void TearDownTestSuite() {
    pc_.reset();
    net_.reset();
  }

  void SetUp() override {
    if (unsupportedReason_) GTEST_SKIP() << *unsupportedReason_;
    net_->Reset();
  }
  void TearDown() override { program_.reset(); }

  static const Laboratory& Net() { return *net_; }
  static WindowsPc& Pc() { return *pc_; }

  ProgramUnderTest& Program() { return *program_; }

  /// Starts a program and leaves what it shows to the caller.
  void StartOnly(const std::string& commandLine, const std::string& program = ProgramPath()) {
    program_.reset();
    program_ = std::make_unique<ProgramUnderTest>(*pc_, program, commandLine);
  }

  /// Starts the program, which must show no message box, and returns its main window.
  WindowUnderTest Start(const std::string& commandLine = {}) {
    StartOnly(commandLine);
    return WaitForMainWindow(*program_);
  }

  /// Starts the program with the target on its command line and returns the lines of the run that it makes
  /// at once, with every measured time as "time=Nms". Message boxes are an error without `onBox`.
  std::vector<std::string> RunLadder(const std::string& target, int pings = 1,
                                     const std::function<void(const BoxUnderTest&)>& onBox = {}) {
    return RunLadder({}, target, pings, onBox);
  }
  /// The same with further options before the target.
  std::vector<std::string> RunLadder(const std::string& options, const std::string& target, int pings = 1,
                                     const std::function<void(const BoxUnderTest&)>& onBox = {}) {
    ProgramUnderTest program(*pc_, ProgramPath(),
                             options + " -PING_N " + std::to_string(pings) + " " + target);
    Listener listener;
    listener.onBox = onBox;
    const WindowUnderTest window = WaitForMainWindow(program, listener);
    return WithoutTimes(FollowRun(program, window, std::chrono::seconds(60), listener));
  }

 private:
  static inline std::optional<std::string> unsupportedReason_;
  static inline std::unique_ptr<Laboratory> net_;
  static inline std::unique_ptr<WindowsPc> pc_;
  std::unique_ptr<ProgramUnderTest> program_;
};

}  // namespace tarvik::lab
