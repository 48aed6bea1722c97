#pragma once

#include <string>

namespace tarvik::lab {

/// For the message of a time-out: what the processes with this environment variable ("NAME=value") wait for.
/// One line for each thread: process, name of the thread, function of the kernel in which it waits.
std::string StatesOfProcessesWith(const std::string& variable);

}  // namespace tarvik::lab
