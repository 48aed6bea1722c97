#pragma once

#include <cstddef>
#include <span>

#include "report/finding_texts.h"

// The table of texts, in two parts. In each, a sentence is "what: todo." (in Japanese "what。todo。"). A
// rung's whole text is its name, the detail and the thing to do. The tests check that no sentence is too
// long, even with the longest facts.

namespace tarvik::report {

/// The first finding of the second part.
inline constexpr Finding kFirstServiceFinding = Finding::CncLibraryMissing;

std::span<const FindingRow> PingRows();
std::span<const FindingRow> ServiceRows();

/// True when the rows are those of consecutive findings.
constexpr bool AreInOrder(std::span<const FindingRow> rows, Finding first) {
  for (size_t i = 0; i < rows.size(); ++i)
    if (rows[i].finding != static_cast<Finding>(static_cast<size_t>(first) + i)) return false;
  return true;
}

}  // namespace tarvik::report
