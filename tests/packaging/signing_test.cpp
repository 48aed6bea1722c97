// Signed packages. The certificate is made for the test.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "tests/packaging/packages.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

uint32_t Number32(const std::string& bytes, size_t offset) {
  uint32_t number = 0;
  for (size_t i = 4; i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes.at(offset + i));
  return number;
}

/// The bytes of a program that its signature covers, padded as a signature needs it: all except the checksum,
/// the place of the signature, and the signature.
std::string SignedPart(std::string program) {
  const size_t optionalHeader = Number32(program, 0x3C) + 24;
  const bool is64Bit = program.at(optionalHeader + 1) == 2;
  const size_t signature = optionalHeader + (is64Bit ? 144 : 128);
  if (Number32(program, signature) != 0) program.resize(Number32(program, signature));
  program.replace(signature, 8, 8, '\0');
  program.replace(optionalHeader + 64, 4, 4, '\0');
  program.resize((program.size() + 7) / 8 * 8);
  return program;
}

class SignedPackages : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    unsupportedReason_ = PackagingUnsupportedReason();
    if (unsupportedReason_) return;
    certificate_ = std::make_unique<Certificate>();
    packages_ = std::make_unique<Packages>(Recorded(certificate_->Variables()));
  }
  static void TearDownTestSuite() {
    packages_.reset();
    certificate_.reset();
    folder_.reset();
  }
  void SetUp() override {
    if (unsupportedReason_) GTEST_SKIP() << *unsupportedReason_;
  }

  static const Certificate& Signer() { return *certificate_; }
  static const Packages& Made() { return *packages_; }
  static std::string InFolder(const std::string& name) { return folder_->Path() + "/" + name; }

  /// The variables, and a PATH with a stand-in for the signing tool that records its arguments first.
  static Environment Recorded(Environment variables) {
    folder_ = std::make_unique<TempDirectory>(EnvironmentValue("TARVIK_CACHE"));
    const std::string tool = InFolder("osslsigncode");
    std::ofstream(tool) << "#!/bin/sh\necho \"$@\" >>" << InFolder("arguments")
                        << "\nPATH=${PATH#*:} exec osslsigncode \"$@\"\n";
    fs::permissions(tool, fs::perms::owner_all);
    variables["PATH"] = folder_->Path() + ":" + EnvironmentValue("PATH");
    return variables;
  }
  static Finished Sign(const std::string& file, const Environment& variables) {
    Process::Options options;
    options.environment = variables;
    return lab::Run({SourcePath("packaging/sign"), file}, options);
  }

 private:
  static inline std::optional<std::string> unsupportedReason_;
  static inline std::unique_ptr<TempDirectory> folder_;
  static inline std::unique_ptr<Certificate> certificate_;
  static inline std::unique_ptr<Packages> packages_;
};

TEST_F(SignedPackages, Have_a_valid_signature_on_every_program) {
  Signer().Verify(Made().Setup());
  int programs = 0;
  for (const auto& entry : fs::recursive_directory_iterator(Made().Unpack())) {
    if (entry.path().extension() != ".exe") continue;
    const std::string report = Signer().Verify(entry.path());
    EXPECT_NE(report.find("SHA256"), std::string::npos) << report;
    ++programs;
  }
  EXPECT_GE(programs, 3);
}

TEST_F(SignedPackages, Contain_the_bytes_of_the_unsigned_programs) {
  const std::string folder = Made().Unpack();
  for (const auto& [packed, built] : {std::pair("Tarvik.exe", "x86"),
                                      {"other/64-bit/Tarvik.exe", "x64"},
                                      {"other/general-edition/Tarvik.exe", "x86-general"}}) {
    const std::string program = BytesOfFile(folder + "/" + packed);
    const std::string unsigned_ = BytesOfFile(SourcePath("out/") + built + "/Tarvik.exe");
    EXPECT_GT(program.size(), unsigned_.size());
    EXPECT_TRUE(SignedPart(program) == SignedPart(unsigned_)) << packed;
  }
}

TEST_F(SignedPackages, Show_the_password_to_nobody) {
  const std::string arguments = BytesOfFile(InFolder("arguments"));
  // The archive's programs, the uninstaller and the setup program.
  EXPECT_GE(std::count(arguments.begin(), arguments.end(), '\n'), 5);
  EXPECT_EQ(arguments.find(Signer().Password()), std::string::npos);
  EXPECT_EQ(Made().Output().find(Signer().Password()), std::string::npos);
}

TEST_F(SignedPackages, Have_a_time_stamp_only_from_a_server_that_was_named) {
  const std::string report = Signer().Verify(Made().Setup());
  EXPECT_NE(report.find("Timestamp is not available"), std::string::npos) << report;
  // Nothing listens on this port.
  Environment variables = Signer().Variables();
  variables["TARVIK_TIMESTAMP_SERVER"] = "http://127.0.0.1:9/";
  const std::string program = InFolder("Tarvik.exe");
  fs::copy_file(SourcePath("out/x86/Tarvik.exe"), program);
  EXPECT_NE(Sign(program, variables).exitCode, 0);
  EXPECT_EQ(BytesOfFile(program), BytesOfFile(SourcePath("out/x86/Tarvik.exe")));
}

TEST_F(SignedPackages, Are_not_made_without_the_password) {
  Environment variables = Signer().Variables();
  variables["TARVIK_CERTIFICATE_PASSWORD_FILE"] = std::nullopt;
  const Finished result = Sign(Made().Setup(), variables);
  EXPECT_NE(result.exitCode, 0);
  EXPECT_NE(result.output.find("TARVIK_CERTIFICATE_PASSWORD_FILE"), std::string::npos) << result.output;
}

}  // namespace
}  // namespace tarvik::lab
