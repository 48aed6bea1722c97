#include "bench/k7_server.h"

#include <optional>

#include "bench/scenario_text.h"

namespace tarvik::bench {
namespace {

constexpr int32_t kMaxServiceDelayMs = 600000;

K7Verdict VerdictOf(const ScenarioLine& line, const std::string& word) {
  if (word == "live") return K7Verdict::Live;
  if (word == "dead") return K7Verdict::Dead;
  if (word == "unknown") return K7Verdict::Unknown;
  line.Fail("expected \"live\", \"dead\" or \"unknown\", not \"" + word + "\"");
}

const std::string& OneWord(const ScenarioLine& line) {
  line.Expect(1, 1);
  return line.Word(0);
}

void ReadUnit(K7Scenario& scenario, const ScenarioLine& line) {
  line.Expect(2, 2);
  const bool reboots = line.Word(1) == "reboots";
  scenario.units[line.Word(0)] = {reboots ? K7Verdict::Live : VerdictOf(line, line.Word(1)), reboots};
}

void ReadStop(K7Scenario& scenario, const ScenarioLine& line) {
  const std::string& word = OneWord(line);
  if (word != "ignored" && word != "refused") {
    line.Fail("expected \"ignored\" or \"refused\", not \"" + word + "\"");
  }
  scenario.stop = word == "ignored" ? K7Scenario::Stop::Ignored : K7Scenario::Stop::Refused;
}

void ReadLine(K7Scenario& scenario, const ScenarioLine& line) {
  const std::string& name = line.Name();
  if (name == "unit") {
    ReadUnit(scenario, line);
  } else if (name == "others") {
    scenario.others = VerdictOf(line, OneWord(line));
  } else if (name == "port") {
    OneWord(line);
    scenario.port = static_cast<uint16_t>(line.Number(0, 0, UINT16_MAX));
  } else if (name == "silent") {
    line.Expect(0, 0);
    scenario.silent = true;
  } else if (name == "start_takes") {
    scenario.neverStarts = OneWord(line) == "forever";
    if (!scenario.neverStarts) scenario.startPendingMs = line.Number(0, 0, kMaxServiceDelayMs);
  } else if (name == "stop_takes") {
    OneWord(line);
    scenario.stopPendingMs = line.Number(0, 0, kMaxServiceDelayMs);
  } else if (name == "stop") {
    ReadStop(scenario, line);
  } else {
    line.Fail("unknown keyword");
  }
}

}  // namespace

K7Scenario ReadK7Scenario(std::string_view text) {
  K7Scenario scenario;
  for (const ScenarioLine& line : ReadScenarioLines(text)) ReadLine(scenario, line);
  return scenario;
}

std::string K7Server::Answer(std::string_view datagram) {
  const std::optional<K7Request> request = ParseK7Request(datagram);
  if (!request || scenario_.silent) return {};
  K7Reply reply;
  reply.number = request->number;
  if (request->kind == K7Request::Kind::Hello) return K7Datagram(reply);
  const auto found = scenario_.units.find(request->address);
  if (found == scenario_.units.end()) {
    reply.verdict = scenario_.others;
    reply.stateA = 1;
  } else {
    int32_t& restarts = restarts_[request->address];
    if (restarts == 0 || (found->second.reboots && restarts < INT32_MAX)) ++restarts;
    reply.verdict = found->second.verdict;
    reply.stateA = restarts;
  }
  // Unsigned: incrementing the caller's number must not overflow.
  reply.stateB = static_cast<int32_t>(static_cast<uint32_t>(request->stateB) + 1);
  reply.extra = request->stateA != 0 && request->stateA != reply.stateA ? 1 : 0;
  return K7Datagram(reply);
}

void ServeK7(K7Server& server, const Socket& socket, int64_t milliseconds) {
  std::vector<PollEntry> polled = {{&socket, false}};
  WaitForAny(polled, milliseconds);
  if (!polled[0].ready) return;
  Endpoint from;
  Transfer state = Transfer::Done;
  const std::optional<std::string> datagram = socket.ReceiveDatagram(from, state);
  if (!datagram) return;
  const std::string answer = server.Answer(*datagram);
  if (!answer.empty()) socket.SendDatagram(answer, from);
}

}  // namespace tarvik::bench
