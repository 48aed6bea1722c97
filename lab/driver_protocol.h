#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvik::lab {

// One command is one line to the window driver, one answer one line back: UTF-8 fields between tabs.
// The first field of an answer is "ok" or "error".

/// The fields as one line, without its line break. Tabs, line breaks and backslashes in a field are
/// written as \t, \r, \n and \\.
std::string JoinFields(const std::vector<std::string>& fields);

/// The fields of a line that JoinFields made. A backslash before any other character stands for itself.
std::vector<std::string> SplitFields(std::string_view line);

}  // namespace tarvik::lab
