#pragma once

#include <string>
#include <vector>

namespace tarvik::lab {

/// The ids of the processes with this environment variable ("NAME=value").
std::vector<std::string> ProcessesWith(const std::string& variable);

/// For the message of a time-out: what the processes with this environment variable wait for.
/// One line for each thread: process, name of the thread, function of the kernel in which it waits.
std::string StatesOfProcessesWith(const std::string& variable);

}  // namespace tarvik::lab
