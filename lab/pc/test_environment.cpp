#include "lab/pc/test_environment.h"

#include <filesystem>
#include <fstream>

namespace tarvik::lab {

namespace fs = std::filesystem;

std::optional<std::string> WindowsUnsupportedReason() {
  for (const char* name : {"TARVIK_EXE", "TARVIK_DRIVER", "TARVIK_BENCH"}) {
    const std::string path = EnvironmentValue(name);
    if (path.empty()) return std::string(name) + " is not set";
    if (!fs::exists(path)) return path + " does not exist";
  }
  for (const char* tool : {"wine", "wineserver", "Xvfb"}) {
    if (Run({"sh", "-c", "command -v \"$1\"", "sh", tool}).exitCode != 0) {
      return std::string(tool) + " is not installed";
    }
  }
  return std::nullopt;
}

std::string ProgramPath() { return EnvironmentValue("TARVIK_EXE"); }

std::string GeneralProgramPath() {
  return fs::path(ProgramPath()).parent_path().parent_path() / "x86-general" / "Tarvik.exe";
}

std::string OldSystemFolder() { return fs::path(ProgramPath()).parent_path() / "old-system"; }

std::vector<std::string> LinesOfFile(const std::string& path) {
  std::vector<std::string> lines;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

ProgramCopy::ProgramCopy(LanguageFiles files) : directory_(PcForTests().cacheFolder) {
  const fs::path program = ProgramPath();
  fs::copy_file(program, Path());
  if (files == LanguageFiles::Beside) {
    fs::copy(program.parent_path() / "Language", Folder() + "/Language", fs::copy_options::recursive);
  }
}

WindowsPc::Options PcForTests() {
  WindowsPc::Options options;
  options.onOneCore = true;
  options.themed = false;
  options.driver = EnvironmentValue("TARVIK_DRIVER");
  options.cacheFolder = CacheFolder(fs::temp_directory_path());
  options.programPath = EnvironmentValue("TARVIK_BENCH");
  return options;
}

}  // namespace tarvik::lab
