#pragma once

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>
#include <string>

#include "tests/packaging/packages.h"
#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {

namespace fs = std::filesystem;

inline constexpr char kEntry[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Tarvik";
/// A setup program unpacks and installs in a second; on a loaded machine it takes longer.
inline constexpr std::chrono::seconds kSetupTimeOut(60);

/// The signed setup program. All suites of a process share it, because it takes seconds to make.
struct SignedSetup {
  /// Made at the first call.
  static const SignedSetup& Made() {
    static const SignedSetup made;
    return made;
  }

  Certificate certificate;
  Packages packages{certificate.Variables()};
};

/// A PC on which the signed setup program is run. Each test starts without Tarvik.
template <typename Suite>
class SetupTest : public WindowsTest<Suite> {
  using Base = WindowsTest<Suite>;

 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    options.programPath.clear();
    return options;
  }
  static void SetUpTestSuite() {
    unsupportedReason_ = PackagingUnsupportedReason();
    if (unsupportedReason_) return;
    Base::SetUpTestSuite();
  }

 protected:
  void SetUp() override {
    if (unsupportedReason_) GTEST_SKIP() << *unsupportedReason_;
    Base::SetUp();
  }
  void TearDown() override {
    Base::TearDown();
    if (unsupportedReason_) return;
    for (const std::string& folder : {ForUser(), ForEverybody()}) {
      if (fs::exists(folder + "/uninstall.exe")) Uninstall(folder);
      fs::remove_all(folder);
    }
  }

  static const Certificate& Signer() { return SignedSetup::Made().certificate; }
  static std::string SetupProgram() { return SignedSetup::Made().packages.Setup(); }
  static std::string DriveC() { return Base::Pc().Prefix().Folder() + "/drive_c"; }
  static std::string UserFolder() {
    for (const auto& entry : fs::directory_iterator(DriveC() + "/users"))
      if (entry.path().filename() != "Public") return entry.path();
    throw LabError("the prefix has no user");
  }
  static std::string ForUser() { return UserFolder() + "/AppData/Local/Programs/Tarvik"; }
  static std::string ForEverybody() { return DriveC() + "/Program Files (x86)/Tarvik"; }
  static std::string UsersShortcut() {
    return UserFolder() + "/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Tarvik.lnk";
  }
  static std::string EverybodysShortcut() {
    return DriveC() + "/ProgramData/Microsoft/Windows/Start Menu/Programs/Tarvik.lnk";
  }

  /// Runs the setup program and returns its exit code.
  static uint32_t RunSetup(const std::string& arguments) {
    ProgramUnderTest setup(Base::Pc(), SetupProgram(), arguments);
    return setup.WaitForEnd(kSetupTimeOut);
  }
  /// The uninstaller continues as a copy of itself, whose plug-ins are in the folder Temp until it ends.
  static void Uninstall(const std::string& folder) {
    ProgramUnderTest uninstaller(Base::Pc(), folder + "/uninstall.exe", "/S");
    const auto ended = [&] {
      if (fs::exists(folder + "/uninstall.exe")) return false;
      const std::set<std::string> files = FilesIn(UserFolder() + "/Temp");
      return std::none_of(files.begin(), files.end(),
                          [](const std::string& file) { return file.ends_with("System.dll"); });
    };
    if (!WaitUntil(kSetupTimeOut, ended)) throw LabError("the uninstaller of " + folder + " does not end");
  }

  /// Starts the installed program, whose message about the missing configuration library is answered.
  WindowUnderTest StartInstalled(const std::string& folder, const std::string& commandLine = {}) {
    this->StartOnly(commandLine, folder + "/Tarvik.exe");
    Listener listener;
    listener.onBox = [](const BoxUnderTest&) {};
    return WaitForMainWindow(this->Program(), listener);
  }

  /// Files below the folder, with their paths. A program may remove folders meanwhile.
  static std::set<std::string> FilesIn(const std::string& folder) {
    std::set<std::string> files;
    std::string reason;
    const auto list = [&] {
      files.clear();
      if (!fs::exists(folder)) return true;
      try {
        for (const auto& entry : fs::recursive_directory_iterator(folder))
          if (!entry.is_directory()) files.insert(entry.path().lexically_relative(folder));
        return true;
      } catch (const fs::filesystem_error& error) {
        reason = error.what();
        return false;
      }
    };
    if (!WaitUntil(kSoon, list)) throw LabError("Cannot list " + folder + ": " + reason);
    return files;
  }

 private:
  static inline std::optional<std::string> unsupportedReason_;
};

}  // namespace tarvik::lab
