#pragma once

#include "report/facts.h"
#include "report/finding.h"

namespace tarvik::report {

// What the facts of a rung that has ended mean. Pure functions; other rungs' facts may refine the finding.

Finding NameFinding(const Facts& facts);
Finding PcFinding(const Facts& facts);
Finding GatewayFinding(const Facts& facts);
Finding TargetFinding(const Facts& facts);
Finding CncFinding(const Facts& facts);
Finding K7Finding(const Facts& facts);
Finding FtpFinding(const Facts& facts);

}  // namespace tarvik::report
