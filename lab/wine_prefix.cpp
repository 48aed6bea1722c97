#include "lab/wine_prefix.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::seconds kFirstStart(180);

std::string Locale(WindowsLanguage language) {
  return language == WindowsLanguage::Japanese ? "ja_JP.UTF-8" : "en_US.UTF-8";
}

Environment VariablesFor(const std::string& folder, WindowsLanguage language) {
  return {{"WINEPREFIX", folder},
          {"WINEDEBUG", "-all"},
          // Their installers would wait for an answer that nobody gives.
          {"WINEDLLOVERRIDES", "mscoree,mshtml="},
          {"WINEARCH", std::nullopt},
          {"WINEPATH", std::nullopt},
          {"LC_ALL", Locale(language)},
          {"LANG", Locale(language)},
          {"LANGUAGE", std::nullopt},
          // The user's own documents stay out of the prefix.
          {"HOME", folder}};
}

void AppendRegistryValue(const std::string& file, const std::string& key, const std::string& name,
                         const std::string& value) {
  std::string escaped;
  for (const char character : key) {
    escaped += character;
    if (character == '\\') escaped += '\\';
  }
  // A key that stands in the file already gets the value added.
  std::ofstream stream(file, std::ios::app);
  stream << "\n[" << escaped << "]\n\"" << name << "\"=" << value << "\n";
  if (!stream.flush()) throw LabError("Cannot write " + file);
}

void RunInPrefix(const Environment& variables, const std::vector<std::string>& arguments) {
  Process::Options options;
  options.environment = variables;
  Process process(arguments, options);
  const std::optional<int> code = process.Wait(kFirstStart);
  if (code != 0) throw LabError(arguments[0] + " could not prepare a prefix");
}

/// The prefix of which all others of that language are copies.
std::string Master(const std::string& cacheFolder, WindowsLanguage language) {
  fs::create_directories(cacheFolder);
  std::string name = cacheFolder + "/prefix-" + Locale(language);
  const FileLock lock(name + ".lock");
  if (fs::exists(name)) return name;
  const std::string unfinished = name + ".new";
  fs::remove_all(unfinished);
  fs::create_directory(unfinished);
  Environment variables = VariablesFor(unfinished, language);
  // No screen is needed, and without one nothing can ask.
  variables["DISPLAY"] = std::nullopt;
  RunInPrefix(variables, {"wineboot", "-i"});
  RunInPrefix(variables, {"wineserver", "-w"});
  AppendRegistryValue(unfinished + "/user.reg", "Software\\Wine\\WineDbg", "ShowCrashDialog",
                      "dword:00000000");
  fs::rename(unfinished, name);
  return name;
}

/// The file in which Debian's Wine keeps the name of its servers' folder in /tmp.
constexpr char kServersName[] = "/wineserver";

void Copy(const std::string& from, const std::string& to) {
  RunOrThrow({"cp", "-al", from, to});
  // In a folder that prefixes share, Wine tells their servers apart by the number that the file system has
  // given the prefix, and a new prefix soon has the number of one that has gone.
  fs::remove(to + kServersName);
  // These are written to in place, which would change the master too.
  for (const char* name : {"system.reg", "user.reg", "userdef.reg", ".update-timestamp",
                           "drive_c/windows/win.ini", "drive_c/windows/system.ini"}) {
    const fs::path file = fs::path(to) / name;
    if (!fs::exists(file)) continue;
    fs::remove(file);
    fs::copy_file(fs::path(from) / name, file);
  }
}

void RemoveServersFolder(const std::string& prefix) {
  std::string name;
  std::ifstream(prefix + kServersName) >> name;
  std::error_code ignored;
  if (name.starts_with("wine-")) fs::remove_all(fs::path("/tmp") / name, ignored);
}

}  // namespace

WinePrefix::WinePrefix(const std::string& cacheFolder, WindowsLanguage language, int dpi)
    : work_(fs::absolute(cacheFolder)), folder_(work_.Path() + "/prefix"), language_(language) {
  Copy(Master(fs::absolute(cacheFolder), language), folder_);
  std::array<char, 32> value{};
  std::snprintf(value.data(), value.size(), "dword:%08x", static_cast<unsigned>(dpi));
  SetRegistryValue(Hive::User, "Control Panel\\Desktop", "LogPixels", value.data());
}

WinePrefix::~WinePrefix() {
  try {
    EndPrograms();
    RemoveServersFolder(folder_);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
}

Environment WinePrefix::Variables() const { return VariablesFor(folder_, language_); }

void WinePrefix::SetRegistryValue(Hive hive, const std::string& key, const std::string& name,
                                  const std::string& value) {
  AppendRegistryValue(folder_ + (hive == Hive::User ? "/user.reg" : "/system.reg"), key, name, value);
}

void WinePrefix::EndPrograms() {
  Process::Options options;
  options.environment = Variables();
  // Its result only says whether there was a server to end.
  Run({"wineserver", "-k"}, options, {}, std::chrono::seconds(60));
}

std::string WindowsPath(const std::string& path) {
  std::string windows = "Z:" + fs::absolute(path).lexically_normal().string();
  for (char& character : windows) {
    if (character == '/') character = '\\';
  }
  return windows;
}

}  // namespace tarvik::lab
