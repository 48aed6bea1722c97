#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tarvik::lab {

/// Moves this process, and every program that it starts from now on, into a new network namespace that has
/// only loopback. Call before any thread is created. Returns why that failed; nothing on success.
std::optional<std::string> MoveToPrivateNetwork();

/// The command line that runs `command` in the named network namespace (`ip netns exec`). An empty name means
/// this process' own namespace.
std::vector<std::string> InNamespace(const std::string& networkNamespace, std::vector<std::string> command);

}  // namespace tarvik::lab
