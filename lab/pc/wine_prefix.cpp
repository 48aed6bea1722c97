// Creating a prefix takes about 17 seconds and 1.3 GB, so all prefixes are hard-linked copies of one master
// per language. Files that Wine writes in place must be real copies, or the master changes too. Two folders
// to which nothing writes hold half of all files. Prefixes share them, because even links take time.

#include "lab/pc/wine_prefix.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "lab/host/process_states.h"

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::seconds kFirstStart(180);

/// Killed programs end at once; on a loaded machine it takes longer.
constexpr std::chrono::seconds kKilling(20);

std::string Locale(WindowsLanguage language) {
  return language == WindowsLanguage::Japanese ? "ja_JP.UTF-8" : "en_US.UTF-8";
}

Environment VariablesFor(const std::string& folder, WindowsLanguage language) {
  return {{"WINEPREFIX", folder},
          {"WINEDEBUG", "-all"},
          // Without the first two Wine offers to install Mono and Gecko and waits for an answer. The third
          // looks for programs to add to this machine's menus at every start.
          {"WINEDLLOVERRIDES", "mscoree,mshtml,winemenubuilder.exe="},
          {"WINEARCH", std::nullopt},
          {"WINEPATH", std::nullopt},
          {"LC_ALL", Locale(language)},
          {"LANG", Locale(language)},
          {"LANGUAGE", std::nullopt},
          {"FONTCONFIG_FILE", TARVIK_FONTS},
          // Keeps the user's own documents out of the prefix.
          {"HOME", folder}};
}

void AppendRegistryValue(const std::string& file, const std::string& key, const std::string& name,
                         const std::string& value) {
  std::string escaped;
  for (const char character : key) {
    escaped += character;
    if (character == '\\') escaped += '\\';
  }
  // A key may appear several times in the file; Wine merges its values.
  std::ofstream stream(file, std::ios::app);
  stream << "\n[" << escaped << "]\n\"" << name << "\"=" << value << "\n";
  if (!stream.flush()) throw LabError("Cannot write " + file);
}

void RunInPrefix(const Environment& variables, const std::vector<std::string>& arguments) {
  Process::Options options;
  options.environment = variables;
  Process process(arguments, options);
  const std::optional<int> code = process.Wait(kFirstStart);
  if (code == 0) return;
  throw LabError("Creating a Wine prefix: " + arguments.at(0) + " " + arguments.at(1) +
                 (code ? " failed with " + std::to_string(*code) : " does not end"));
}

/// In this file of the prefix Debian's Wine keeps the name of its server's directory in /tmp.
constexpr char kServerDirectoryFile[] = "/wineserver";

void RemoveServerDirectory(const std::string& prefix) {
  std::string name;
  std::ifstream(prefix + kServerDirectoryFile) >> name;
  std::error_code ignored;
  if (name.starts_with("wine-")) fs::remove_all(fs::path("/tmp") / name, ignored);
}

void KillProgramsIn(const std::string& prefix) {
  const auto ended = [variable = "WINEPREFIX=" + prefix] {
    std::vector<std::string> kill = ProcessesWith(variable);
    if (kill.empty()) return true;
    kill.insert(kill.begin(), {"sh", "-c", "kill -9 \"$@\"", "sh"});
    Run(kill);  // fails when one has ended meanwhile
    return false;
  };
  if (!WaitUntil(kKilling, ended)) throw LabError("The programs in " + prefix + " cannot be killed");
}

/// Kills every process with this prefix in its environment. Faster than EndPrograms, which takes 0.75 s, most
/// of it until Windows' own services have ended. Prints errors.
void EndProgramsOf(const std::string& prefix) {
  try {
    KillProgramsIn(prefix);
    RemoveServerDirectory(prefix);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
}

constexpr std::array<const char*, 2> kSharedFolders = {"syswow64", "winsxs"};

fs::path WindowsFolder(const std::string& prefix) { return prefix + "/drive_c/windows"; }

/// The write time of the shared folders. It changes when a file directly in them is added, removed or
/// renamed.
const fs::file_time_type kUntouched = std::chrono::file_clock::from_sys(std::chrono::sys_seconds{});

/// A master: a prefix, and the folders that all its copies share.
struct Master {
  explicit Master(const std::string& folder) : prefix(folder + "/prefix"), shared(folder + "/shared") {}

  std::string prefix;
  fs::path shared;
};

void Create(const Master& master, WindowsLanguage language) {
  fs::create_directories(master.prefix);
  Environment variables = VariablesFor(master.prefix, language);
  // Without a display no dialog can wait for an answer.
  variables["DISPLAY"] = std::nullopt;
  RunInPrefix(variables, {"wineboot", "-i"});
  // A program that starts while the server ends finds its connection reset.
  RunInPrefix(variables, {"wineserver", "-w"});
  // With time zones, every program would compare all of them with this machine's when it starts. Wine works
  // without.
  RunInPrefix(variables, {"wine", "reg", "delete",
                          "HKLM\\Software\\Microsoft\\Windows NT\\CurrentVersion\\Time Zones", "/f"});
  RunInPrefix(variables, {"wineserver", "-w"});
  // These two services would start with every PC, for a fifth of the processor time of its start. Nothing
  // here plugs devices in or reads the event log.
  constexpr char kDisabled[] = "dword:00000004";
  for (const char* const service : {"PlugPlay", "Eventlog"})
    AppendRegistryValue(master.prefix + "/system.reg",
                        std::string("System\\CurrentControlSet\\Services\\") + service, "Start", kDisabled);
  AppendRegistryValue(master.prefix + "/user.reg", "Software\\Wine\\WineDbg", "ShowCrashDialog",
                      "dword:00000000");
  fs::create_directory(master.shared);
  for (const char* const folder : kSharedFolders) {
    fs::rename(WindowsFolder(master.prefix) / folder, master.shared / folder);
    fs::last_write_time(master.shared / folder, kUntouched);
  }
}

/// The language's master, created when missing.
Master MasterPrefix(const std::string& cacheFolder, WindowsLanguage language) {
  fs::create_directories(cacheFolder);
  std::string name = cacheFolder + "/master-" + Locale(language);
  const FileLock lock(name + ".lock");
  if (fs::exists(name)) return Master(name);
  const Master unfinished(name + ".new");
  EndProgramsOf(unfinished.prefix);  // when a creation was interrupted
  fs::remove_all(name + ".new");
  try {
    Create(unfinished, language);
  } catch (...) {
    EndProgramsOf(unfinished.prefix);
    throw;
  }
  fs::rename(name + ".new", name);
  return Master(name);
}

void ShareFolders(const Master& master, const std::string& prefix) {
  for (const char* const folder : kSharedFolders) {
    const fs::path shared = master.shared / folder;
    if (fs::last_write_time(shared) != kUntouched)
      throw LabError("A program has changed " + shared.string() + ", or Wine was updated. Delete " +
                     master.shared.parent_path().string());
    fs::create_directory_symlink(shared, WindowsFolder(prefix) / folder);
  }
}

void Copy(const Master& master, const std::string& to) {
  RunOrThrow({"cp", "-al", master.prefix, to});
  ShareFolders(master, to);
  // A copied name would be shared with other prefixes. Wine then identifies their servers by the prefix'
  // inode number, which the file system soon gives to a new prefix.
  fs::remove(to + kServerDirectoryFile);
  for (const char* name : {"system.reg", "user.reg", "userdef.reg", ".update-timestamp",
                           "drive_c/windows/win.ini", "drive_c/windows/system.ini"}) {
    const fs::path file = fs::path(to) / name;
    if (!fs::exists(file)) continue;
    fs::remove(file);
    fs::copy_file(fs::path(master.prefix) / name, file);
  }
  // The user's desktop and document folders are links to the home folder of the prefix' creation, which has
  // another name now. Without a desktop no save dialog works.
  for (const auto& user : fs::directory_iterator(fs::path(to) / "drive_c/users")) {
    for (const auto& folder : fs::directory_iterator(user)) {
      if (!folder.is_symlink()) continue;
      fs::remove(folder);
      fs::create_directory(folder);
    }
  }
}

/// Whether the file is a 64-bit program for Windows.
bool Is64Bit(const std::string& program) {
  constexpr std::streamoff kHeaderOffset = 0x3C;
  constexpr uint32_t kSignature = 0x4550;  // "PE"
  constexpr uint16_t kMachine64 = 0x8664;
  std::ifstream file(program, std::ios::binary);
  const auto read = [&file](auto& number) { file.read(reinterpret_cast<char*>(&number), sizeof number); };
  uint32_t header = 0;
  uint32_t signature = 0;
  uint16_t machine = 0;
  file.seekg(kHeaderOffset);
  read(header);
  file.seekg(header);
  read(signature);
  read(machine);
  return file && signature == kSignature && machine == kMachine64;
}

}  // namespace

WinePrefix::WinePrefix(const std::string& cacheFolder, WindowsLanguage language, int dpi)
    : directory_(fs::absolute(cacheFolder)), folder_(directory_.Path() + "/prefix"), language_(language) {
  Copy(MasterPrefix(fs::absolute(cacheFolder), language), folder_);
  std::array<char, 32> value{};
  std::snprintf(value.data(), value.size(), "dword:%08x", static_cast<unsigned>(dpi));
  SetRegistryValue(Hive::User, "Control Panel\\Desktop", "LogPixels", value.data());
}

WinePrefix::~WinePrefix() { EndProgramsOf(folder_); }

Environment WinePrefix::Variables() const { return VariablesFor(folder_, language_); }

void WinePrefix::SetRegistryValue(Hive hive, const std::string& key, const std::string& name,
                                  const std::string& value) {
  AppendRegistryValue(folder_ + (hive == Hive::User ? "/user.reg" : "/system.reg"), key, name, value);
}

void WinePrefix::ReplaceProgram(const std::string& name, const std::string& file) {
  for (const char* const system : {"system32", "syswow64"}) {
    const fs::path folder = WindowsFolder(folder_) / system;
    if (fs::is_symlink(folder)) {
      // Programs may be running, so the folder is not missing for longer than necessary.
      const std::string copy = folder.string() + ".new";
      RunOrThrow({"cp", "-al", fs::read_symlink(folder), copy});
      fs::remove(folder);
      fs::rename(copy, folder);
    }
    fs::remove(folder / name);  // a hard link to the master's
    fs::copy_file(file, folder / name);
  }
}

void WinePrefix::EndPrograms() {
  Process::Options options;
  options.environment = Variables();
  // Fails when no server was running.
  Run({"wineserver", "-k"}, options, {}, std::chrono::seconds(60));
}

void CreateMasterPrefixes(const std::string& cacheFolder) {
  for (const WindowsLanguage language : {WindowsLanguage::English, WindowsLanguage::Japanese})
    MasterPrefix(fs::absolute(cacheFolder), language);
}

std::string WindowsPath(const std::string& path) {
  std::string windows = fs::absolute(path).lexically_normal().string();
  const std::string driveC = "/drive_c";
  const size_t found = windows.find(driveC + "/");
  windows = found == std::string::npos ? "Z:" + windows : "C:" + windows.substr(found + driveC.size());
  for (char& character : windows) {
    if (character == '/') character = '\\';
  }
  return windows;
}

std::string WineFor(const std::string& program) {
  constexpr char kWine64[] = "/usr/lib/wine/wine64";
  return fs::exists(kWine64) && Is64Bit(program) ? kWine64 : "wine";
}

}  // namespace tarvik::lab
