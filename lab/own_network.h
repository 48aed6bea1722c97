#pragma once

#include <optional>
#include <string>

namespace tarvik::lab {

/// Moves this process, and every program that it starts from now on, into a network with nothing in it but
/// loopback. Why that cannot be done here; nothing when it is done. To be called before any thread is made.
std::optional<std::string> MoveToPrivateNetwork();

}  // namespace tarvik::lab
