#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/form1.h"
#include "tests/fakes/fake_program.h"

namespace tarvik::test {

/// The whole program on fake libraries and in-memory controls.
class Form1Test : public testing::Test, protected FakeProgram {
 protected:
  Form1Test() {
    files.contents[L"C:\\Data\\Language\\Tarvik.exe_1033.ini"] = "";
    AddString(1033, 10, "&Ping");
    AddString(1033, 27, "&Stop");
    winsock.data.iMaxUdpDg = 65467;
    winsock.AddInterface("192.168.1.10", "255.255.255.0");
    icmp.AddHost("192.168.1.100");
    kernel.paths["SvcKit.DLL"] = "C:\\System\\SvcKit.dll";
    files.contents[kServicesFile] = "";
    for (const char* const module : {"NxLib32.dll", "NxLibe1.dll", "k7api.dll", "SvcKit.dll", "Wininet.dll"})
      kernel.paths[module] = std::string("C:\\System\\") + module;
  }

  void AddString(int language, int id, const std::string& text) {
    const std::string key = std::to_string(language);
    system.profile["C:\\Data\\Language\\Tarvik.exe_" + key + ".ini|" + key + "|" + std::to_string(id)] = text;
  }

  /// Creates the main window and runs its start-up.
  void Start(const std::wstring& commandLine = L"", bool familyEdition = true) {
    Construct(commandLine, familyEdition);
    form1->Form_Load();
  }

  /// Creates the main window without running its start-up.
  void Construct(const std::wstring& commandLine = L"", bool familyEdition = true) {
    pump.onEvents = [this] {
      pump.stop = flags.stopRequested;
      form.PassTime(static_cast<int>(pump.now - std::exchange(formTime_, pump.now)));
      DeliverQueued();
      if (onEvents) onEvents();
      pump.stop = flags.stopRequested;
    };
    form1 = std::make_unique<Form1>(MakeDependencies(
        [this](const wchar_t* windowClass) { return NewForm(windowClass); }, commandLine, familyEdition));
  }

  bool Listed(const std::wstring& line) {
    return std::count(List().lines.begin(), List().lines.end(), line) > 0;
  }

  std::unique_ptr<ui::Form> NewForm(const wchar_t* windowClass) {
    if (failNewForms) throw RuntimeError(L"The window could not be created.");
    newForms.emplace_back(windowClass);
    auto created = std::make_unique<ui::MemoryForm>(screen);
    lastForm = created.get();
    const auto token = std::make_shared<int>();
    // The form owns the function, and with it the token, until it is destroyed.
    lastForm->beforeText = [token](const ui::Element&) {};
    std::erase_if(formTokens_, [](const auto& each) { return each.expired(); });
    formTokens_.push_back(token);
    return created;
  }

  /// The number of secondary windows not yet destroyed, closed ones included.
  long Existing() const {
    return std::count_if(formTokens_.begin(), formTokens_.end(),
                         [](const auto& token) { return !token.expired(); });
  }

  /// Queues what the user does while a library blocks the program, until events run again.
  void WhileBlocked(std::function<void()> clicks) { queued_ = std::move(clicks); }
  /// Handles that queue: whenever a running test lets events run, and when a test case plays the main loop.
  void DeliverQueued() {
    if (const auto clicks = std::exchange(queued_, nullptr)) clicks();
  }

  std::vector<std::wstring> newForms;  ///< window classes of the secondary windows, oldest first
  bool failNewForms = false;
  ui::MemoryForm* lastForm = nullptr;  ///< the latest secondary window; dangles once it is destroyed
  std::function<void()> onEvents;      ///< called whenever window events run
  std::unique_ptr<Form1> form1;

 private:
  std::vector<std::weak_ptr<int>> formTokens_;  ///< one for each secondary window
  std::function<void()> queued_;
  uint64_t formTime_ = 0;  ///< the pump's clock when the window's timers last ran
};

}  // namespace tarvik::test
