#pragma once

#include <algorithm>
#include <filesystem>

#include "lab/network/controller.h"
#include "tests/network/lab_fixture.h"

namespace tarvik::lab {

/// The shipped program with the bench's CNC library on a network with the bench's controllers.
template <typename Suite>
class CncTest : public LabTest<Suite> {
 public:
  static WindowsPc::Options Options() { return OptionsWith({}); }

 protected:
  static constexpr char kTestLine[] = "Get System Information test....";
  /// A library call may block for its time-out, and Wine's internet library for half a minute.
  static constexpr std::chrono::seconds kTestTimeOut{240};

  /// A PC whose libraries record each call and find these variables in their environment.
  static WindowsPc::Options OptionsWith(Environment variables) {
    WindowsPc::Options options = PcForTests();
    records_ = std::make_unique<TempDirectory>(options.cacheFolder);
    options.environment = std::move(variables);
    options.environment["TARVIK_BENCH_CALLS"] = WindowsPath(CallsPath());
    return options;
  }
  static void TearDownTestSuite() {
    LabTest<Suite>::TearDownTestSuite();
    records_.reset();
  }

  void SetUp() override {
    LabTest<Suite>::SetUp();
    if (!this->IsSkipped()) ForgetCalls();
  }

  static Controller Serve(const std::string& scenario, Host host = Host::Near) {
    return Controller(LabTest<Suite>::Net(), host, scenario);
  }

  /// The library calls recorded so far.
  static Lines Calls() { return LinesOfFile(CallsPath()); }
  static void ForgetCalls() { std::filesystem::remove(CallsPath()); }
  static bool HasCall(const std::string& beginning) {
    const Lines calls = Calls();
    return std::any_of(calls.begin(), calls.end(),
                       [&beginning](const std::string& call) { return call.starts_with(beginning); });
  }

  /// The program at rest, with the page of the library test in front.
  WindowUnderTest StartOnPage(const std::string& commandLine = {}) {
    const WindowUnderTest window = this->Start(commandLine);
    window.SelectTab(ID_tabMode, 1);
    window.SetText(ID_cmbIPAddr, kNearAddress);
    window.SetText(ID_txtNxlibTimeOut, "5");
    window.SetText(ID_txtPingReqCount, "1");
    return window;
  }

  /// Clicks the button, follows the run and returns the whole list without times. Message boxes are answered
  /// with OK and kept in `boxes_`.
  Lines ClickAndFollow(const WindowUnderTest& window, int button) {
    return AtEnd(lab::ClickAndFollow(this->Program(), window, button, kTestTimeOut, Listening()));
  }

  /// Runs the library test and returns the lines after its title.
  Lines TestLibrary(const WindowUnderTest& window) {
    return AfterTestLine(ClickAndFollow(window, ID_cmdGetInfo));
  }
  Lines TestLibrary(const std::string& commandLine = {}) { return TestLibrary(StartOnPage(commandLine)); }

  /// Starts the program and follows the run that it starts by itself, as ClickAndFollow does.
  Lines RunAtStart(const std::string& commandLine, const std::string& program = ProgramPath()) {
    this->StartOnly(commandLine, program);
    return FollowRun(WaitForMainWindow(this->Program(), Listening()));
  }
  Lines FollowRun(const WindowUnderTest& window) {
    return AtEnd(lab::FollowRun(this->Program(), window, kTestTimeOut, Listening()));
  }

  Listener Listening() {
    Listener listener;
    listener.onBox = [this](const BoxUnderTest& box) { boxes_.push_back(box); };
    return listener;
  }

  static Lines AfterTestLine(const Lines& lines) {
    const auto last = std::find(lines.rbegin(), lines.rend(), kTestLine);
    return {last == lines.rend() ? lines.end() : last.base(), lines.end()};
  }

  std::vector<BoxUnderTest> boxes_;

 private:
  static std::string CallsPath() { return records_->Path() + "/calls"; }

  /// Checks that the run has freed every handle.
  static Lines AtEnd(const Lines& lines) {
    const Lines calls = Calls();
    if (!calls.empty()) {
      EXPECT_TRUE(calls.back().ends_with(" open=0")) << calls.back();
    }
    return WithoutTimes(lines);
  }

  static inline std::unique_ptr<TempDirectory> records_;
};

}  // namespace tarvik::lab
