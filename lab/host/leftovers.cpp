// Removal of what a process leaves, also after a crash or SIGKILL. A shell script does it in its own session,
// because nothing inside the dying process can.

#include "lab/host/leftovers.h"

#include <filesystem>
#include <map>
#include <memory>

#include "lab/host/process.h"

namespace tarvik::lab {
namespace {

// $1 = the parent of all temporary directories, $2 = the id of the watched process, which holds the other end
// of standard input: "cat" returns when that process ends.
constexpr char kWatcher[] = R"(
runs=$1
sweep() {
  for prefix in "$runs/tv$1"-*/prefix; do
    [ -d "$prefix" ] && WINEPREFIX=$prefix timeout 20 wineserver -k
  done
  for name in $(ip netns list | sed -n "s/^\(tv$1-[^ ]*\).*/\1/p"); do
    ip netns pids "$name" | xargs -r kill -9
    ip netns del "$name"
    rm -rf "/etc/netns/$name"
  done
  rm -rf "$runs/tv$1"-*
}
for id in $({ ls "$runs"; ip netns list; } | sed -n 's/^tv\([0-9]*\)-.*/\1/p' | sort -u); do
  [ -d "/proc/$id" ] || sweep "$id"
done
echo ready
trap '' HUP INT TERM
cat
sweep "$2"
)";

std::string RunsFolder(const std::string& cacheFolder) { return cacheFolder + "/runs"; }

Process::Options OutlivingOptions() {
  Process::Options options;
  options.outlivesOwner = true;
  return options;
}

class Watcher {
 public:
  explicit Watcher(const std::string& runs)
      : process_({"sh", "-c", kWatcher, "sh", runs, std::to_string(OwnProcessId())}, OutlivingOptions()) {
    process_.ReadLine(std::chrono::seconds(120));
  }
  Watcher(const Watcher&) = delete;
  Watcher& operator=(const Watcher&) = delete;
  ~Watcher() {
    process_.CloseInput();
    process_.Wait(std::chrono::seconds(60));
  }

 private:
  Process process_;
};

}  // namespace

std::string CacheFolder(const std::string& outputFolder) {
  const std::string named = EnvironmentValue("TARVIK_CACHE");
  return std::filesystem::absolute(named.empty() ? outputFolder + "/cache" : named);
}

void RemoveLeftoversWhenThisProcessEnds(const std::string& cacheFolder) {
  static std::map<std::string, std::unique_ptr<Watcher>> watchers;
  std::unique_ptr<Watcher>& watcher = watchers[cacheFolder];
  if (watcher) return;
  std::filesystem::create_directories(RunsFolder(cacheFolder));
  watcher = std::make_unique<Watcher>(RunsFolder(cacheFolder));
}

std::string UniqueName() {
  static int count = 0;
  return "tv" + std::to_string(OwnProcessId()) + "-" + std::to_string(++count);
}

TempDirectory::TempDirectory(const std::string& cacheFolder) {
  RemoveLeftoversWhenThisProcessEnds(cacheFolder);
  path_ = RunsFolder(cacheFolder) + "/" + UniqueName();
  std::filesystem::create_directory(path_);
}

TempDirectory::~TempDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace tarvik::lab
