#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvik::lab {

// The window driver reads one command per line and answers with one line. A line holds UTF-8 fields separated
// by tabs; the first field of an answer is "ok" or "error".

/// The fields as one line, without a line break. Tabs, line breaks and backslashes in a field are written as
/// \t, \r, \n and \\.
std::string JoinFields(const std::vector<std::string>& fields);

/// The reverse of JoinFields. A backslash before any other character is an ordinary character.
std::vector<std::string> SplitFields(std::string_view line);

}  // namespace tarvik::lab
