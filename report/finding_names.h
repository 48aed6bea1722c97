#pragma once

#include <optional>
#include <string_view>

#include "report/finding.h"

namespace tarvik::report {

/// The finding's name as finding.h writes it. The explanations refer to findings by these names.
std::string_view NameOf(Finding finding);

/// The finding of that name; nothing if no finding has it.
std::optional<Finding> FindingNamed(std::wstring_view name);

}  // namespace tarvik::report
