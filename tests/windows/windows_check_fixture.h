#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {

/// A variant of the product with one planted fault, and what the check must say about it.
struct PlantedFault {
  const char* name;
  const char* section;                       ///< the only section that runs
  const char* failedIds;                     ///< the only items that fail, separated by spaces
  void (*plant)(const std::string& folder);  ///< `folder`: with a copy of the family edition
};

/// Replaces bytes of the copy's program file; a shorter text is padded with spaces. Throws LabError when the
/// file does not contain `from` exactly once.
inline void ReplaceBytes(const std::string& folder, const std::string& from, std::string to) {
  const std::string path = folder + "/Tarvik.exe";
  std::ifstream input(path, std::ios::binary);
  std::string bytes(std::istreambuf_iterator<char>(input), {});
  input.close();
  to.resize(from.size(), ' ');
  const size_t place = bytes.find(from);
  if (place == std::string::npos || bytes.find(from, place + 1) != std::string::npos)
    throw LabError("The product does not contain these bytes once: " + from);
  bytes.replace(place, from.size(), to);
  std::ofstream(path, std::ios::binary) << bytes;
}

/// Makes the copy load the saboteur, which plants the fault of this name (lab/windows_check/saboteur).
inline void Sabotage(const std::string& folder, const std::string& fault) {
  const std::filesystem::path built = std::filesystem::path(ProgramPath()).parent_path() / "saboteur";
  std::filesystem::copy_file(built / "Saboteur.dll", folder + "/Saboteur.dll");
  std::ofstream(folder + "/Saboteur.txt") << fault;
  ReplaceBytes(folder, "ADVAPI32.dll", "Saboteur.dll");
}

/// Runs the Windows check unattended. One PC for the suite.
template <typename Suite>
class WindowsCheckTest : public WindowsTest<Suite> {
 public:
  static WindowsPc::Options Options() {
    WindowsPc::Options options = PcForTests();
    // A real PC does not have the bench on its path either.
    options.programPath.clear();
    // Otherwise Wine would load its own library in the place of the planted one.
    options.environment["WINEDLLOVERRIDES"] = "mscoree,mshtml,winemenubuilder.exe=;icmp=n,b";
    return options;
  }

 protected:
  using Verdicts = std::map<std::string, std::string>;

  void SetUp() override {
    WindowsTest<Suite>::SetUp();
    if (this->IsSkipped()) return;
    if (std::filesystem::path(ProgramPath()).parent_path().filename() != "x86")
      GTEST_SKIP() << "the Windows check carries the 32-bit product";
    folder_.emplace(PcForTests().cacheFolder);
  }

  static std::string SourceFolder() {
    return std::filesystem::path(ProgramPath()).parent_path().parent_path().parent_path();
  }
  static std::string CheckProgram() {
    return std::filesystem::path(ProgramPath()).parent_path().parent_path() / "WindowsCheck" /
           "WindowsCheck.exe";
  }
  std::string InFolder(const std::string& name) const { return folder_->Path() + "/" + name; }

  /// Runs the sections (all when empty) and returns the report. `product`: a folder that replaces the family
  /// edition; empty = none.
  std::string Check(const std::string& sections = {}, const std::string& product = {}) {
    // On a busy machine; alone the whole check takes about two minutes.
    constexpr std::chrono::seconds kTimeOut(600);
    const std::string productPath = product.empty() ? std::string() : WindowsPath(product);
    ProgramUnderTest check(
        this->Pc(), CheckProgram(),
        "/unattended \"" + WindowsPath(folder_->Path()) + "\" \"" + productPath + "\" " + sections);
    EXPECT_EQ(check.WaitForEnd(kTimeOut), 0u);
    return ReportIn(InFolder("WindowsCheck.html"));
  }

  static std::string ReportIn(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// The verdict of each item, read from the JSON at the end of the report.
  static Verdicts VerdictsIn(const std::string& report) {
    static const std::regex item("\\{\"id\":\"([^\"]*)\",\"verdict\":\"([a-z]*)\"");
    Verdicts verdicts;
    for (std::sregex_iterator next(report.begin(), report.end(), item), end; next != end; ++next)
      verdicts[(*next)[1]] = (*next)[2];
    return verdicts;
  }

  static std::set<std::string> FailedIn(const std::string& report) {
    std::set<std::string> failed;
    for (const auto& [id, verdict] : VerdictsIn(report))
      if (verdict == "fail") failed.insert(id);
    return failed;
  }

  /// A copy of the family edition with the fault.
  std::string Spoiled(const PlantedFault& fault) const {
    const std::string product = InFolder("product");
    std::filesystem::create_directory(product);
    std::filesystem::copy_file(ProgramPath(), product + "/Tarvik.exe");
    fault.plant(product);
    return product;
  }

  /// The folders that checks have left in the PC's temporary folder.
  std::set<std::string> Leftovers() const {
    std::set<std::string> found;
    const std::string drive = this->Pc().Prefix().Folder() + "/drive_c";
    for (const auto& entry : std::filesystem::recursive_directory_iterator(drive + "/users"))
      if (entry.path().filename().string().starts_with("WindowsCheck-")) found.insert(entry.path().string());
    return found;
  }

 private:
  std::optional<TempDirectory> folder_;
};

}  // namespace tarvik::lab
