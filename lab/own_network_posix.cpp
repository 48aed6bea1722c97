#include <sched.h>

#include <cerrno>
#include <cstring>

#include "lab/own_network.h"
#include "lab/process.h"

namespace tarvik::lab {

std::optional<std::string> MoveToPrivateNetwork() {
  if (unshare(CLONE_NEWNET) != 0)
    return std::string("no network of its own can be made: ") + std::strerror(errno);
  const Finished up = Run({"ip", "link", "set", "lo", "up"});
  if (up.exitCode != 0) return "its own network has no loopback: " + up.output;
  return std::nullopt;
}

}  // namespace tarvik::lab
