// Carries out the lines below "In the laboratory:". scenario_reader.cpp has the list of verbs.

#include "lab/faults/scenario_setup.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

#include "lab/faults/scenario_words.h"
#include "lab/network/controller.h"
#include "lab/network/ftp_server.h"
#include "lab/network/k7_server.h"

namespace tarvik::lab {
namespace {

constexpr size_t kMaxFiles = 20'000;
constexpr char kFromHighPort[] = "data from a high port";

Host HostOf(const Change& change) {
  if (change.host == "pc") return Host::Pc;
  if (change.host == "gateway") return Host::Gateway;
  return change.host == "near" ? Host::Near : Host::Far;
}

std::string Joined(const std::vector<std::string>& words, const char* separator) {
  std::string text;
  for (const std::string& word : words) text.append(text.empty() ? "" : separator).append(word);
  return text;
}

size_t NumberOf(const std::string& word) {
  size_t number = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
  if (error != std::errc() || end != word.data() + word.size())
    throw LabError("\"" + word + "\" is not a number");
  return number;
}

/// `line`: "directory NAME", "file NAME BYTES" or "files COUNT".
void AddToServer(const FtpServer& server, const std::string& line) {
  const std::vector<std::string> words = WordsOf(line);
  if (words.size() == 2 && words[0] == "directory") {
    server.AddDirectory(words[1]);
  } else if (words.size() == 3 && words[0] == "file") {
    server.AddFile(words[1], NumberOf(words[2]));
  } else if (words.size() == 2 && words[0] == "files" && NumberOf(words[1]) <= kMaxFiles) {
    // Names of equal length sort like their numbers.
    for (size_t i = 1; i <= NumberOf(words[1]); ++i) server.AddFile("file" + std::to_string(10'000 + i));
  } else {
    throw LabError("an FTP server takes \"directory NAME\", \"file NAME BYTES\" or \"files COUNT\", not \"" +
                   line + "\"");
  }
}

}  // namespace

class ScenarioSetup::Servers {
 public:
  std::vector<std::unique_ptr<Controller>> controllers;
  std::vector<std::unique_ptr<FtpServer>> files;
  std::vector<std::unique_ptr<FaultyFtpServer>> faultyFiles;
  std::optional<K7ServerProgram> k7Program;
  std::optional<K7ServerService> k7Service;
  std::optional<ServicesFile> services;
};

ScenarioSetup::ScenarioSetup(const ScenarioContext& context, const Scenario& scenario)
    : context_(context), servers_(std::make_unique<Servers>()) {
  for (const Change& change : scenario.changes) {
    try {
      ChangeNetwork(change);
      StartServer(change);
    } catch (const LabError& error) {
      throw ScenarioError(scenario.name + ".scenario:" + std::to_string(change.line) + ": " + error.what());
    }
  }
  try {
    SetNames(scenario);
    SetFilters(scenario);
  } catch (const LabError& error) {
    throw ScenarioError(scenario.name + ".scenario: " + error.what());
  }
}

ScenarioSetup::~ScenarioSetup() = default;

void ScenarioSetup::ChangeNetwork(const Change& change) {
  const Laboratory& net = context_.net;
  const Host host = HostOf(change);
  if (change.verb == "cable out") {
    net.PullCable(host);
  } else if (change.verb == "address") {
    const bool none = change.words == std::vector<std::string>{"none"};
    net.SetAddresses(host, none ? std::vector<std::string>{} : change.words);
    // Changing the addresses has removed the default route.
    net.SetDefaultRoute(host, Laboratory::InitialGateway(host));
  } else if (change.verb == "gateway") {
    net.SetDefaultRoute(host, change.words[0] == "none" ? "" : change.words[0]);
  } else if (change.verb == "second card") {
    net.AddCardToPc(change.words[0]);
  } else if (change.verb == "route") {
    std::vector<std::string> arguments = {"route", "add"};
    arguments.insert(arguments.end(), change.words.begin(), change.words.end());
    net.Ip(host, arguments);
  } else if (change.verb == "forwards") {
    net.SetForwarding(host, true);
  } else if (change.verb == "line speed") {
    net.SetLineSpeed(host, change.words[0], NumberOf(change.words[1]));
  }
}

void ScenarioSetup::StartServer(const Change& change) {
  const Host host = HostOf(change);
  const auto& [pc, net, program, generalProgram, bench, cache] = context_;
  const std::string text = Joined(change.lines, "\n") + "\n";
  if (change.verb == "controller") {
    servers_->controllers.push_back(std::make_unique<Controller>(net, host, text));
  } else if (change.verb == "ftp server") {
    const bool known = change.words[0] == "vsftpd" || change.words[0] == "pyftpdlib";
    if (!known) throw LabError("an FTP server is \"vsftpd\" or \"pyftpdlib\"");
    const auto product =
        change.words[0] == "vsftpd" ? FtpServer::Product::Vsftpd : FtpServer::Product::Pyftpdlib;
    const bool highPort = std::count(change.lines.begin(), change.lines.end(), kFromHighPort) != 0;
    servers_->files.push_back(std::make_unique<FtpServer>(
        net, host, product, cache, highPort ? FtpServer::DataPort::High : FtpServer::DataPort::Twenty));
    for (const std::string& line : change.lines)
      if (line != kFromHighPort) AddToServer(*servers_->files.back(), line);
  } else if (change.verb == "faulty ftp server") {
    servers_->faultyFiles.push_back(std::make_unique<FaultyFtpServer>(net, host, Joined(change.words, " ")));
  } else if (change.verb == "k7 server") {
    servers_->k7Program.emplace(pc, net, bench, cache, text);
  } else if (change.verb == "k7 service") {
    const bool runs = change.words[0] == "running";
    if (!runs && change.words[0] != "stopped") throw LabError("a K7 service is \"running\" or \"stopped\"");
    servers_->k7Service.emplace(pc, net, bench, cache, text,
                                runs ? K7ServerService::State::Running : K7ServerService::State::Stopped);
  } else if (change.verb == "services file") {
    servers_->services.emplace(pc, change.lines);
  }
}

void ScenarioSetup::SetNames(const Scenario& scenario) const {
  std::vector<std::pair<std::string, std::string>> names;
  for (const Change& change : scenario.changes)
    if (change.verb == "name") names.emplace_back(change.words[0], change.words[1]);
  if (!names.empty()) context_.net.SetHostNames(Host::Pc, names);
}

void ScenarioSetup::SetFilters(const Scenario& scenario) const {
  // A chain is named after its netfilter hook.
  std::map<Host, std::map<std::string, std::string>> chains;
  for (const Change& change : scenario.changes) {
    if (change.verb != "filter") continue;
    const std::vector<std::string> rule(change.words.begin() + 1, change.words.end());
    chains[HostOf(change)][change.words[0]].append(Joined(rule, " ")).append("\n");
  }
  for (const auto& [host, rules] : chains) {
    std::string ruleset;
    for (const auto& [chain, text] : rules) {
      const bool arp = chain == "arp";
      const std::string hook = arp ? "input" : chain;
      ruleset.append("table ").append(arp ? "arp" : "ip").append(" scenario_").append(chain);
      ruleset.append(" {\nchain rules {\ntype filter hook ").append(hook).append(" priority 0;\n");
      ruleset.append(text).append("}\n}\n");
    }
    context_.net.SetFilter(host, ruleset);
  }
}

}  // namespace tarvik::lab
