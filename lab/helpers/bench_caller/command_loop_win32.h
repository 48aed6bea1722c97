#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tarvik::lab {

using Fields = std::vector<std::string>;
using Command = std::function<Fields(const Fields&)>;

/// Reads one command per line from standard input and writes one answer per line, in the format of
/// lab/pc/driver_protocol.h. An exception of a command becomes an "error" answer. Returns at the end of the
/// input.
void AnswerCommands(const std::map<std::string, Command>& commands);

}  // namespace tarvik::lab
