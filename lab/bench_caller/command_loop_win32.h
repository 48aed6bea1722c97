#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tarvik::lab {

using Fields = std::vector<std::string>;
using Command = std::function<Fields(const Fields&)>;

/// Carries out one command a line of the input and answers each with one line, in the window driver's way of
/// writing fields. Returns at the end of the input.
void AnswerCommands(const std::map<std::string, Command>& commands);

}  // namespace tarvik::lab
