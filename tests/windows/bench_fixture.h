#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "lab/host/own_network.h"
#include "lab/pc/driver_protocol.h"
#include "lab/pc/test_environment.h"
#include "lab/pc/wine_prefix.h"

namespace tarvik::lab {

/// Calls the bench's libraries through bench_caller.exe. One Wine prefix per suite; the program is started
/// for each test.
class BenchTest : public testing::Test {
 protected:
  using Fields = std::vector<std::string>;

  static void SetUpTestSuite() { SetUpSuiteIn({}); }
  /// `networkNamespace`: for the programs; empty = this process'.
  static void SetUpSuiteIn(const std::string& networkNamespace) {
    namespace_ = networkNamespace;
    unsupportedReason_ = WindowsUnsupportedReason();
    if (!unsupportedReason_) prefix_ = std::make_unique<WinePrefix>(Cache(), WindowsLanguage::English, 96);
  }
  static void TearDownTestSuite() { prefix_.reset(); }

  void SetUp() override {
    if (unsupportedReason_) GTEST_SKIP() << *unsupportedReason_;
    StartCaller(Bench() + "/bench_caller.exe");
    Set("TARVIK_BENCH_CALLS", WindowsPath(folder_->Path() + "/calls"));
  }
  void TearDown() override {
    if (caller_) {
      caller_->CloseInput();
      caller_->Wait(std::chrono::seconds(10));
    }
    caller_.reset();
    folder_.reset();
  }

  static std::string Cache() { return PcForTests().cacheFolder; }
  static std::string Bench() { return EnvironmentValue("TARVIK_BENCH"); }
  static WinePrefix& Prefix() { return *prefix_; }

  std::string Folder() const { return folder_->Path(); }
  static const std::optional<std::string>& UnsupportedReason() { return unsupportedReason_; }

  static std::unique_ptr<Process> StartInWindows(Fields command) {
    Process::Options options;
    options.environment = prefix_->Variables();
    options.environment["DISPLAY"] = std::nullopt;
    // Keeps Wine's server running, or says that it already does. Otherwise it ends soon after the last
    // program, and one that starts just then finds its connection reset.
    lab::Run(InNamespace(namespace_, {"wineserver", "-p"}), options);
    const std::string wine = WineFor(command.front());
    command.front() = WindowsPath(command.front());
    command.insert(command.begin(), wine);
    return std::make_unique<Process>(InNamespace(namespace_, command), options);
  }

  /// Returns the fields of the answer; the first is the result of the call. Throws LabError.
  Fields Call(const Fields& command) {
    caller_->Write(JoinFields(command) + "\n");
    Fields answer = SplitFields(caller_->ReadLine(std::chrono::seconds(120)));
    const bool done = answer.front() == "ok";
    answer.erase(answer.begin());
    if (!done) throw LabError(command.front() + ": " + answer.at(0));
    return answer;
  }

  void StartCaller(const std::string& program) {
    folder_.emplace(Cache());
    caller_ = StartInWindows({program});
  }

  void Set(const std::string& variable, const std::string& value) { Call({"set", variable, value}); }

  /// The calls so far, as recorded by the stand-in libraries.
  Fields Calls() const { return LinesOfFile(folder_->Path() + "/calls"); }

 private:
  static inline std::optional<std::string> unsupportedReason_;
  static inline std::string namespace_;
  static inline std::unique_ptr<WinePrefix> prefix_;
  std::optional<TempDirectory> folder_;
  std::unique_ptr<Process> caller_;
};

}  // namespace tarvik::lab
