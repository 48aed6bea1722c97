#include "lab/helpers/bench_caller/command_loop_win32.h"

#include <iostream>
#include <stdexcept>

#include "lab/pc/driver_protocol.h"

namespace tarvik::lab {
namespace {

Fields Answer(const std::map<std::string, Command>& commands, Fields fields) {
  try {
    const auto found = commands.find(fields.front());
    if (found == commands.end()) throw std::runtime_error("no such command");
    fields.erase(fields.begin());
    Fields answer = found->second(fields);
    answer.insert(answer.begin(), "ok");
    return answer;
  } catch (const std::exception& error) {
    return {"error", error.what()};
  }
}

}  // namespace

void AnswerCommands(const std::map<std::string, Command>& commands) {
  for (std::string line; std::getline(std::cin, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::cout << JoinFields(Answer(commands, SplitFields(line))) << std::endl;
  }
}

}  // namespace tarvik::lab
