#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "app/control_ids.h"
#include "lab/controller.h"
#include "tests/lab/lab_fixture.h"

namespace tarvik::lab {

/// The shipped program with the bench's CNC library, and the bench's controller at the other end of the
/// cable.
template <typename Suite>
class CncTest : public LabTest<Suite> {
 public:
  static WindowsPc::Options Options() { return OptionsWith({}); }

 protected:
  using Lines = std::vector<std::string>;

  static constexpr char kTestLine[] = "Get System Information test....";
  /// A call may block for its time-out, and Wine's internet library for half a minute.
  static constexpr std::chrono::seconds kLongestTest{240};

  /// A PC on which the libraries find these variables, and write down each call.
  static WindowsPc::Options OptionsWith(Environment variables) {
    WindowsPc::Options options = PcForTests();
    notes_ = std::make_unique<TempDirectory>(options.cacheFolder);
    options.environment = std::move(variables);
    options.environment["TARVIK_BENCH_CALLS"] = WindowsPath(NotesPath());
    return options;
  }
  static void TearDownTestSuite() {
    LabTest<Suite>::TearDownTestSuite();
    notes_.reset();
  }

  void SetUp() override {
    LabTest<Suite>::SetUp();
    if (!this->IsSkipped()) ForgetCalls();
  }

  static Controller Serve(const std::string& scenario, Host host = Host::Near) {
    return Controller(LabTest<Suite>::Net(), host, scenario);
  }

  /// The calls so far, as the bench's libraries wrote them down.
  static Lines Calls() {
    Lines lines;
    std::ifstream file(NotesPath());
    for (std::string line; std::getline(file, line);) lines.push_back(line);
    return lines;
  }
  static void ForgetCalls() { std::filesystem::remove(NotesPath()); }
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

  /// Clicks, and returns the lines that the list holds when the run has ended. Its message boxes are answered
  /// and kept.
  Lines ClickAndFollow(const WindowUnderTest& window, int button) {
    const Lines known = window.Lines(ID_lstResult);
    const size_t boxesBefore = boxes_.size();
    window.Click(button);
    return FollowToEnd(window,
                       [&](const Lines& lines) { return lines != known || boxes_.size() != boxesBefore; });
  }

  /// What the list holds behind the library test's first line.
  Lines TestLibrary(const WindowUnderTest& window) {
    return BehindTestLine(ClickAndFollow(window, ID_cmdGetInfo));
  }
  Lines TestLibrary(const std::string& commandLine = {}) { return TestLibrary(StartOnPage(commandLine)); }

  /// The lines of the run that the program begins by its command line, with every measured time as
  /// "time=Nms".
  Lines RunAtStart(const std::string& commandLine, const std::string& program = ProgramPath()) {
    this->StartOnly(commandLine, program);
    return FollowRunAtStart(WaitForMainWindow(this->Program(), Listening()));
  }
  Lines FollowRunAtStart(const WindowUnderTest& window) {
    return FollowToEnd(window, [](const Lines& lines) {
      return lines.empty() || !lines.front().starts_with("szDescription:");
    });
  }

  Listener Listening() {
    Listener listener;
    listener.onBox = [this](const BoxUnderTest& box) { boxes_.push_back(box); };
    return listener;
  }

  static Lines BehindTestLine(const Lines& lines) {
    const auto last = std::find(lines.rbegin(), lines.rend(), kTestLine);
    return {last == lines.rend() ? lines.end() : last.base(), lines.end()};
  }

  std::vector<BoxUnderTest> boxes_;

 private:
  static std::string NotesPath() { return notes_->Path() + "/calls"; }

  Lines FollowToEnd(const WindowUnderTest& window, const std::function<bool(const Lines&)>& hasBegun) {
    Lines lines;
    bool begun = false;
    const bool ended = WaitUntil(kLongestTest, [&] {
      try {
        if (this->Program().HasBox()) {
          boxes_.push_back(this->Program().WaitForBox());
          this->Program().Answer(boxes_.back(), BoxButton::Ok);
        }
        begun = begun || RunIsActive(window) || hasBegun(window.Lines(ID_lstResult));
        if (!begun || RunIsActive(window) || this->Program().HasBox()) return false;
        lines = window.Lines(ID_lstResult);
        return true;
      } catch (const LabError&) {
        return false;  // the window does not answer while a library blocks it
      }
    });
    if (!ended) throw LabError("The run does not end");
    ExpectAtRest(window);
    return WithoutTimes(lines);
  }

  void ExpectAtRest(const WindowUnderTest& window) {
    EXPECT_TRUE(window.Enabled(0));
    EXPECT_EQ(window.Text(ID_cmdPing), "&Ping");
    // Which shape it has again depends on what it happens to stand over.
    EXPECT_TRUE(
        WaitUntil(kSoon, [&] { return window.CurrentPointer() != WindowUnderTest::Pointer::Hourglass; }));
    const Lines calls = Calls();
    if (!calls.empty()) {
      EXPECT_TRUE(calls.back().ends_with(" open=0")) << calls.back();
    }
  }

  static inline std::unique_ptr<TempDirectory> notes_;
};

}  // namespace tarvik::lab
