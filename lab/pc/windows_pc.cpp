#include "lab/pc/windows_pc.h"

#include "lab/host/own_network.h"
#include "lab/host/process_states.h"
#include "lab/pc/driver_protocol.h"

namespace tarvik::lab {
namespace {

/// Wine's own start included, on a loaded machine.
constexpr std::chrono::seconds kDriverStartTimeOut(120);

Desktop ScreenFor(const WindowsPc::Options& options) {
  if (options.onUsersScreen) {
    if (std::optional<Desktop> screen = Desktop::OfUser()) return std::move(*screen);
  }
  return Desktop::Invisible();
}

}  // namespace

WindowsPc::WindowsPc(const Options& options)
    : options_(options),
      core_(options.onOneCore ? std::make_unique<OneCore>(options.cacheFolder) : nullptr),
      desktop_(ScreenFor(options)),
      prefix_(std::make_unique<WinePrefix>(options.cacheFolder, options.language, options.dpi)) {
  if (!options_.themed)
    prefix_->SetRegistryValue(WinePrefix::Hive::User,
                              "Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager", "ThemeActive",
                              "\"0\"");
  if (!desktop_.IsInvisible()) return;
  // On a virtual desktop, Wine places, frames and activates windows itself, as Windows does. Directly on the
  // screen it waits for a window manager; and when the screen reports late that a window has lost the focus,
  // Wine leaves no window in the foreground, and keys are lost.
  const auto set = [this](const std::string& key, const char* name, const std::string& text) {
    prefix_->SetRegistryValue(WinePrefix::Hive::User, "Software\\Wine\\Explorer" + key, name,
                              "\"" + text + "\"");
  };
  set("", "Desktop", "Default");
  set("\\Desktops", "Default", Desktop::kSize);
  // The font with the symbols of the title bar's buttons, which Debian's Wine ships but does not find.
  prefix_->SetRegistryValue(WinePrefix::Hive::System,
                            "Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts", "Marlett (TrueType)",
                            "\"Z:\\\\usr\\\\share\\\\wine\\\\fonts\\\\marlett.ttf\"");
}

void WindowsPc::Restart() {
  driver_.reset();
  prefix_->EndPrograms();
}

void WindowsPc::StartDriver() {
  Process::Options options;
  options.environment = prefix_->Variables();
  options.environment["DISPLAY"] = desktop_.Display();
  // Nobody composes accents on an invisible screen. Reading their table takes a fifth of a program's start.
  if (desktop_.IsInvisible()) options.environment["XCOMPOSEFILE"] = "/dev/null";
  // The default key file is in HOME, which is the prefix for Windows programs.
  if (EnvironmentValue("XAUTHORITY").empty()) {
    options.environment["XAUTHORITY"] = EnvironmentValue("HOME") + "/.Xauthority";
  }
  if (!options_.programPath.empty()) options.environment["WINEPATH"] = WindowsPath(options_.programPath);
  for (const auto& [name, value] : options_.environment) options.environment[name] = value;
  driver_ = std::make_unique<Process>(
      InNamespace(options_.networkNamespace, {WineFor(options_.driver), WindowsPath(options_.driver)}),
      options);
  unanswered_ = 0;
}

std::vector<std::string> WindowsPc::Ask(const std::vector<std::string>& command, milliseconds timeOut) {
  if (!driver_) {
    StartDriver();
    timeOut += kDriverStartTimeOut;
  }
  driver_->Write(JoinFields(command) + "\n");
  // Skip the late answers to commands that timed out before.
  std::vector<std::string> answer;
  for (++unanswered_; unanswered_ > 0; --unanswered_) {
    try {
      answer = SplitFields(driver_->ReadLine(timeOut));
    } catch (const LabError& error) {
      throw LabError("Command \"" + command.front() + "\": " + error.what() +
                     StatesOfProcessesWith("WINEPREFIX=" + prefix_->Folder()));
    }
  }
  const std::string status = answer.front();
  answer.erase(answer.begin());
  if (status == "ok") return answer;
  if (status == "error" && !answer.empty()) throw LabError(command.front() + ": " + answer.front());
  // The line comes from Wine, which could not run the driver. The next command starts it again.
  driver_.reset();
  throw LabError(command.front() + ": " + status);
}

std::optional<std::string> WindowsPc::ClipboardText() {
  const std::vector<std::string> answer = Ask({"clipboard_get"});
  if (answer.at(0) != "1") return std::nullopt;
  return answer.at(1);
}

void WindowsPc::SetClipboardText(const std::string& text) { Ask({"clipboard_set", text}); }

void WindowsPc::HoldClipboard(milliseconds duration) {
  Ask({"clipboard_hold", std::to_string(duration.count())});
}

void WindowsPc::ParkPointer() { Ask({"park_pointer"}); }

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
