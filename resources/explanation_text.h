#pragma once

#include <string_view>

namespace tarvik {

/// The explanations inside the program file, in UTF-8 (FindResource, LoadResource): the files of
/// resources/explanations, one after another, without their comments. Valid until the program ends; empty if
/// the resource is missing.
std::string_view ExplanationText();

}  // namespace tarvik
