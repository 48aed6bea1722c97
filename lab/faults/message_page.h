#pragma once

#include <string>

#include "lab/faults/guide_texts.h"

namespace tarvik::lab {

/// The program's texts by number, both languages side by side, in Markdown.
std::string MessagePage(const GuideTexts& texts);

}  // namespace tarvik::lab
