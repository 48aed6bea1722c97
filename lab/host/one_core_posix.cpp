#include "lab/host/one_core.h"

#include <sched.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <limits>

namespace tarvik::lab {
namespace {

/// The locks of one core. Each of its users holds one.
struct Places {
  int held = 0;
  std::unique_ptr<FileLock> free;
};

Places PlacesOf(const std::string& core) {
  Places places;
  for (int number = 0;; ++number) {
    const std::string path = core + "." + std::to_string(number);
    if (places.free != nullptr && !std::filesystem::exists(path)) return places;
    std::unique_ptr<FileLock> place = FileLock::IfFree(path);
    if (place == nullptr)
      ++places.held;
    else if (places.free == nullptr)
      places.free = std::move(place);
  }
}

[[noreturn]] void ThrowCoreError(const char* what) {
  throw LabError(std::string(what) + std::strerror(errno));
}

}  // namespace

struct OneCore::Cores {
  cpu_set_t set;
};

OneCore::OneCore(const std::string& folder) : before_(std::make_unique<Cores>()) {
  const std::string locks = folder + "/cores";
  std::error_code error;
  std::filesystem::create_directories(locks, error);
  const FileLock choosing(locks + "/choosing");
  if (sched_getaffinity(0, sizeof before_->set, &before_->set) != 0)
    ThrowCoreError("The cores are unknown: ");
  Cores chosen;
  CPU_ZERO(&chosen.set);
  int fewest = std::numeric_limits<int>::max();
  for (int core = 0; core < CPU_SETSIZE; ++core) {
    if (!CPU_ISSET(core, &before_->set)) continue;
    Places places = PlacesOf(locks + "/" + std::to_string(core));
    if (places.held >= fewest) continue;
    fewest = places.held;
    taken_ = std::move(places.free);
    CPU_ZERO(&chosen.set);
    CPU_SET(core, &chosen.set);
  }
  if (sched_setaffinity(0, sizeof chosen.set, &chosen.set) != 0) ThrowCoreError("A core cannot be taken: ");
}

OneCore::~OneCore() { sched_setaffinity(0, sizeof before_->set, &before_->set); }

}  // namespace tarvik::lab
