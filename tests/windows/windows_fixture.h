#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>

#include "app/control_ids.h"
#include "lab/pc/main_window.h"
#include "lab/pc/test_environment.h"

namespace tarvik::lab {

/// A Japanese Windows, and a configuration library that asks for Japanese.
inline WindowsPc::Options JapanesePcForTests() {
  WindowsPc::Options options = PcForTests();
  options.language = WindowsLanguage::Japanese;
  options.environment["TARVIK_BENCH_LANGUAGE"] = "1041";
  return options;
}

/// A test of the shipped program. One PC per suite; the program is started for each test. A suite that needs
/// another PC defines its own Options(). The PC's network has only loopback.
template <typename Suite>
class WindowsTest : public testing::Test {
 protected:
  static WindowsPc::Options Options() { return PcForTests(); }
  /// Called before the first program starts on the PC.
  static void PreparePc(WindowsPc&) {}

  static void SetUpTestSuite() { SetUpSuiteIn({}); }
  /// `networkNamespace`: for the PC; empty = this process'.
  static void SetUpSuiteIn(const std::string& networkNamespace) {
    unsupportedReason_ = WindowsUnsupportedReason();
    if (unsupportedReason_) return;
    WindowsPc::Options options = Suite::Options();
    options.networkNamespace = networkNamespace;
    pc_ = std::make_unique<WindowsPc>(options);
    Suite::PreparePc(*pc_);
  }
  static void TearDownTestSuite() { pc_.reset(); }

  void SetUp() override {
    if (unsupportedReason_) GTEST_SKIP() << *unsupportedReason_;
  }
  void TearDown() override { program_.reset(); }

  static WindowsPc& Pc() { return *pc_; }
  ProgramUnderTest& Program() { return *program_; }

  /// Starts the program and returns its main window. Throws LabError when a message box appears.
  WindowUnderTest Start(const std::string& commandLine = {}) {
    StartOnly(commandLine);
    return WaitForMainWindow(*program_);
  }

  void StartOnly(const std::string& commandLine = {}, const std::string& program = ProgramPath(),
                 const std::string& workingFolder = {}) {
    program_.reset();
    program_ = std::make_unique<ProgramUnderTest>(*pc_, program, commandLine, workingFolder);
  }

 private:
  static inline std::optional<std::string> unsupportedReason_;
  static inline std::unique_ptr<WindowsPc> pc_;
  std::unique_ptr<ProgramUnderTest> program_;
};

}  // namespace tarvik::lab
