#include "bench/controller.h"

#include <algorithm>

namespace tarvik::bench {
namespace {

// The error detail of invalid PMC requests: a code, and the number of the wrong argument.
constexpr int16_t kNoSuchAddress = 1;
constexpr int16_t kNoSuchDataType = 2;
constexpr int16_t kRangeWrong = 3;
constexpr int16_t kTooLong = 4;
constexpr int16_t kAddressArgument = 1;
constexpr int16_t kDataTypeArgument = 2;
constexpr int16_t kRangeArgument = 3;

bool Overlaps(const PmcRange& range, const Request& request) {
  return range.area == request.areaType && range.first <= request.last && range.last >= request.first;
}

/// The result code that replaces the normal answer, if any. `count`: requests of this kind so far, including
/// this one.
std::optional<int16_t> ForcedResult(const CallRule& rule, int32_t count) {
  if (rule.onlyFirst != 0 && count > rule.onlyFirst) return std::nullopt;
  if (rule.everyNth != 0 && count % rule.everyNth != 0) return std::nullopt;
  return rule.result;
}

}  // namespace

Controller::Controller(ControllerScenario scenario) : scenario_(std::move(scenario)) {
  for (size_t area = 0; area < kPmcAreaCount; ++area) {
    memory_[area].resize(static_cast<size_t>(scenario_.areaSizes[area]));
  }
  for (const PmcBytes& piece : scenario_.memory) {
    std::vector<uint8_t>& area = memory_[static_cast<size_t>(piece.area)];
    const size_t first = std::min(static_cast<size_t>(piece.first), area.size());
    const size_t count = std::min(piece.bytes.size(), area.size() - first);
    std::copy_n(piece.bytes.begin(), count, area.begin() + static_cast<std::ptrdiff_t>(first));
  }
}

ControllerAction Controller::Answer(ControllerSession& session, std::string_view payload, int64_t now) {
  const std::optional<Request> request = ParseRequest(payload);
  if (!request || (!session.connected && request->call != Call::Connect)) return {0, {}, true};
  const CallRule& rule = scenario_.RuleOf(request->call);
  int32_t& count = requests_[static_cast<size_t>(request->call)];
  if (count < INT32_MAX) ++count;
  switch (rule.answer) {
    case CallRule::Answer::Silent:
      return {};
    case CallRule::Answer::Dropped:
      return {rule.delayMs, {}, true};
    case CallRule::Answer::Rubbish:
      return {rule.delayMs, "This is no answer.", false};
    case CallRule::Answer::Normal:
      break;
  }
  const std::optional<int16_t> forced = ForcedResult(rule, count);
  const Reply reply = forced && *forced != 0 ? Reply{*forced, {}} : Handle(session, *request, now);
  return {rule.delayMs, ReplyMessage(reply), false};
}

Reply Controller::Handle(ControllerSession& session, const Request& request, int64_t now) {
  switch (request.call) {
    case Call::Connect:
      session.connected = scenario_.accessCode.empty() || request.accessCode == scenario_.accessCode;
      return {session.connected ? int16_t{0} : kResultAccessCode, {}};
    case Call::Options:
      return {0, OptionsBody(scenario_.options)};
    case Call::SystemInfo:
      return {0, SystemInformationBody(scenario_.information)};
    case Call::PmcRead:
      return ReadPmc(session, request, now);
    case Call::PmcDetail:
      break;
  }
  return {0, DetailBody(session.detail)};
}

std::optional<DetailError> Controller::PmcFaultOf(const Request& request) const {
  if (request.areaType < 0 || static_cast<size_t>(request.areaType) >= kPmcAreaCount) {
    return DetailError{kNoSuchAddress, kAddressArgument};
  }
  if (request.dataType != 0) return DetailError{kNoSuchDataType, kDataTypeArgument};
  const size_t size = memory_[static_cast<size_t>(request.areaType)].size();
  if (request.first < 0 || request.last < request.first || static_cast<size_t>(request.last) >= size) {
    return DetailError{kRangeWrong, kRangeArgument};
  }
  if (request.last - request.first >= static_cast<int>(kMaxPmcBytes)) {
    return DetailError{kTooLong, kRangeArgument};
  }
  for (const PmcFault& fault : scenario_.faults) {
    if (Overlaps(fault.range, request)) return fault.detail;
  }
  return std::nullopt;
}

Reply Controller::ReadPmc(ControllerSession& session, const Request& request, int64_t now) {
  if (const std::optional<DetailError> fault = PmcFaultOf(request)) {
    session.detail = *fault;
    return {kResultPmc, {}};
  }
  const std::vector<uint8_t>& area = memory_[static_cast<size_t>(request.areaType)];
  std::string bytes(area.begin() + request.first, area.begin() + request.last + 1);
  for (const PmcCounter& counter : scenario_.counters) {
    if (!Overlaps(counter.range, request)) continue;
    const int64_t steps = counter.periodMs == 0 ? reads_ : now / counter.periodMs;
    const int32_t last = std::min<int32_t>(counter.range.last, request.last);
    for (int32_t i = std::max<int32_t>(counter.range.first, request.first); i <= last; ++i) {
      char& byte = bytes[static_cast<size_t>(i - request.first)];
      byte = static_cast<char>((static_cast<uint8_t>(byte) + steps) & 0xFF);
    }
  }
  if (reads_ < INT32_MAX) ++reads_;
  return {0, std::move(bytes)};
}

}  // namespace tarvik::bench
