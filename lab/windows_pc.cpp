#include "lab/windows_pc.h"

#include "lab/driver_protocol.h"

namespace tarvik::lab {
namespace {

Desktop ScreenFor(const WindowsPc::Options& options) {
  if (options.onUsersScreen) {
    if (std::optional<Desktop> screen = Desktop::OfTheUser()) return std::move(*screen);
  }
  return Desktop::Unseen();
}

}  // namespace

WindowsPc::WindowsPc(const Options& options)
    : options_(options),
      desktop_(ScreenFor(options)),
      prefix_(std::make_unique<WinePrefix>(options.cacheFolder, options.language, options.dpi)) {}

WindowsPc::~WindowsPc() {
  // The driver ends with its input, and the programs it started with it.
  driver_.reset();
}

void WindowsPc::Restart() {
  driver_.reset();
  prefix_->EndPrograms();
}

void WindowsPc::StartDriver() {
  Process::Options options;
  options.environment = prefix_->Variables();
  options.environment["DISPLAY"] = desktop_.Display();
  // HOME is the prefix there, so a screen's key file has to be named.
  if (EnvironmentValue("XAUTHORITY").empty()) {
    options.environment["XAUTHORITY"] = EnvironmentValue("HOME") + "/.Xauthority";
  }
  if (!options_.programPath.empty()) options.environment["WINEPATH"] = WindowsPath(options_.programPath);
  for (const auto& [name, value] : options_.environment) options.environment[name] = value;
  std::vector<std::string> arguments;
  if (!options_.networkNamespace.empty()) arguments = {"ip", "netns", "exec", options_.networkNamespace};
  arguments.insert(arguments.end(), {"wine", WindowsPath(options_.driver)});
  driver_ = std::make_unique<Process>(arguments, options);
  unanswered_ = 0;
}

std::vector<std::string> WindowsPc::Ask(const std::vector<std::string>& command, milliseconds timeOut) {
  if (!driver_) {
    StartDriver();
    // The first start of a Windows takes its time on a machine under load.
    timeOut += std::chrono::seconds(120);
  }
  driver_->Write(JoinFields(command) + "\n");
  // What was asked before and not answered in time is answered first.
  std::vector<std::string> answer;
  for (++unanswered_; unanswered_ > 0; --unanswered_) answer = SplitFields(driver_->ReadLine(timeOut));
  const std::string status = answer.front();
  answer.erase(answer.begin());
  if (status == "ok") return answer;
  if (status == "error" && !answer.empty()) throw LabError(command.front() + ": " + answer.front());
  // It is not the driver that speaks but the Windows that could not run it; the next question finds another.
  driver_.reset();
  throw LabError(command.front() + ": " + status);
}

std::optional<std::string> WindowsPc::ClipboardText() {
  const std::vector<std::string> answer = Ask({"clipboard_get"});
  if (answer.at(0) != "1") return std::nullopt;
  return answer.at(1);
}

void WindowsPc::SetClipboardText(const std::string& text) { Ask({"clipboard_set", text}); }

std::optional<std::string> WindowsPc::RegistryText(const std::string& key, const std::string& name) {
  const std::vector<std::string> answer = Ask({"registry_get", key, name});
  if (answer.at(0) != "1") return std::nullopt;
  return answer.at(1);
}

void WindowsPc::SetRegistryText(const std::string& key, const std::string& name, const std::string& text) {
  Ask({"registry_set", key, name, text});
}

void WindowsPc::DeleteRegistryKey(const std::string& key) { Ask({"registry_delete", key}); }

}  // namespace tarvik::lab
