#pragma once

#include <map>
#include <string>

namespace tarvik::lab {

/// The generated files of docs/ by name, made from the folder of the sources. Throws GuideError or
/// ScenarioError.
std::map<std::string, std::string> GuidePages(const std::string& sources);

}  // namespace tarvik::lab
