// Read from /proc. A thread of Wine in "pipe_read" waits for the window server, one in "futex" for a lock.

#include "lab/host/process_states.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarvik::lab {
namespace {

namespace fs = std::filesystem;

/// Empty when the process has ended.
std::string ContentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string ThreadsOf(const fs::path& process) {
  std::string lines;
  std::error_code error;
  for (fs::directory_iterator thread(process / "task", error), end; !error && thread != end;
       thread.increment(error)) {
    std::string name = ContentOf(thread->path() / "comm");
    if (!name.empty()) name.pop_back();  // the line break
    lines += "\n  " + process.filename().string() + " " + name + ": " + ContentOf(thread->path() / "wchan");
  }
  return lines;
}

}  // namespace

std::vector<std::string> ProcessesWith(const std::string& variable) {
  std::vector<std::string> ids;
  const std::string ended = '\0' + variable + '\0';
  std::error_code error;
  for (fs::directory_iterator process("/proc", error), end; !error && process != end;
       process.increment(error)) {
    const fs::path& folder = process->path();
    const std::string id = folder.filename();
    if (id.find_first_not_of("0123456789") != std::string::npos) continue;
    if (('\0' + ContentOf(folder / "environ")).find(ended) != std::string::npos) ids.push_back(id);
  }
  return ids;
}

std::string StatesOfProcessesWith(const std::string& variable) {
  std::string states;
  for (const std::string& id : ProcessesWith(variable)) states += ThreadsOf(fs::path("/proc") / id);
  return states;
}

}  // namespace tarvik::lab
