#include "tests/packaging/packages.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "lab/pc/test_environment.h"
#include "resources/version.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

/// Most of it for packing, on a loaded machine.
constexpr std::chrono::minutes kToolTimeOut(5);

std::string CacheFolderForTests() { return PcForTests().cacheFolder; }

}  // namespace

std::optional<std::string> PackagingUnsupportedReason() {
  for (const char* const edition : {"x86", "x86-general", "x64"}) {
    const std::string program = SourcePath("out/") + edition + "/Tarvik.exe";
    if (!fs::exists(program)) return program + " does not exist";
  }
  for (const char* tool : {"makensis", "cmark-gfm", "zip", "unzip", "osslsigncode", "openssl"}) {
    if (Run({"sh", "-c", "command -v \"$1\"", "sh", tool}).exitCode != 0)
      return std::string(tool) + " is not installed";
  }
  return WindowsUnsupportedReason();
}

std::string SourcePath(const std::string& name) { return std::string(TARVIK_SOURCE_FOLDER "/") + name; }

std::string BytesOfFile(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

Certificate::Certificate() : directory_(CacheFolderForTests()) {
  std::ofstream(In("password")) << Password() << "\n";
  RunOrThrow({"openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=Test",
              "-addext", "extendedKeyUsage=codeSigning", "-keyout", In("key.pem"), "-out",
              In("certificate.pem")});
  RunOrThrow({"openssl", "pkcs12", "-export", "-inkey", In("key.pem"), "-in", In("certificate.pem"),
              "-passout", "file:" + In("password"), "-out", In("certificate.pfx")});
}

Environment Certificate::Variables() const {
  return {{"TARVIK_CERTIFICATE", In("certificate.pfx")},
          {"TARVIK_CERTIFICATE_PASSWORD_FILE", In("password")},
          {"TARVIK_TIMESTAMP_SERVER", std::nullopt}};
}

std::string Certificate::Verify(const std::string& program) const {
  const Finished verified = Run({"osslsigncode", "verify", "-CAfile", In("certificate.pem"), "-in", program});
  if (verified.exitCode != 0) throw LabError(program + ": " + verified.output);
  return verified.output;
}

Packages::Packages(const Environment& environment) : directory_(CacheFolderForTests()) {
  Process::Options options;
  // Whatever is set for whoever runs the tests.
  options.environment = {{"TARVIK_CERTIFICATE", std::nullopt}, {"SOURCE_DATE_EPOCH", std::nullopt}};
  for (const auto& [name, value] : environment) options.environment[name] = value;
  const Finished made = Run({SourcePath("packaging/make-packages"), Folder()}, options, {}, kToolTimeOut);
  if (made.exitCode != 0) throw LabError("make-packages: " + made.output);
  output_ = made.output;
}

std::string Packages::Setup() const { return Folder() + "/Tarvik-" TARVIK_VERSION_TEXT "-setup.exe"; }

std::string Packages::Portable() const { return Folder() + "/Tarvik-" TARVIK_VERSION_TEXT "-portable.zip"; }

std::string Packages::Unpack() const {
  const std::string folder = directory_.Path() + "/unpacked";
  RunOrThrow({"unzip", "-q", "-o", Portable(), "-d", folder});
  return folder;
}

}  // namespace tarvik::lab
