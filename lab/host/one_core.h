#pragma once

#include <memory>
#include <string>

#include "lab/host/process.h"

namespace tarvik::lab {

/// Keeps the calling thread, and the programs that it starts, on one core until destruction
/// (sched_setaffinity). Wine's programs constantly ask its server; with all of them on one core, that costs a
/// switch of processes instead of waking the other core. Destroy it on the same thread, the newest first.
class OneCore {
 public:
  /// Takes the core that is taken least often at the moment. `folder` has the lock files that count; only
  /// processes that use the same folder know of each other. Throws LabError.
  explicit OneCore(const std::string& folder);
  OneCore(const OneCore&) = delete;
  OneCore& operator=(const OneCore&) = delete;
  ~OneCore();

 private:
  struct Cores;

  std::unique_ptr<Cores> before_;
  std::unique_ptr<FileLock> taken_;
};

}  // namespace tarvik::lab
