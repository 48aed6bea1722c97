#include <sched.h>

#include <cerrno>
#include <cstring>

#include "lab/host/own_network.h"
#include "lab/host/process.h"

namespace tarvik::lab {

std::optional<std::string> MoveToPrivateNetwork() {
  if (unshare(CLONE_NEWNET) != 0)
    return std::string("cannot create a network namespace: ") + std::strerror(errno);
  const Finished up = Run({"ip", "link", "set", "lo", "up"});
  if (up.exitCode != 0) return "cannot bring up loopback in the new network namespace: " + up.output;
  return std::nullopt;
}

std::vector<std::string> InNamespace(const std::string& networkNamespace, std::vector<std::string> command) {
  if (!networkNamespace.empty()) command.insert(command.begin(), {"ip", "netns", "exec", networkNamespace});
  return command;
}

}  // namespace tarvik::lab
