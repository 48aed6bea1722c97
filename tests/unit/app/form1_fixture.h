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

/// The whole program without a window.
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

  /// Starts the program with this command line.
  void Start(const std::wstring& commandLine = L"", bool familyEdition = true) {
    Construct(commandLine, familyEdition);
    form1->Form_Load();
  }

  /// The main window before its start-up.
  void Construct(const std::wstring& commandLine = L"", bool familyEdition = true) {
    pump.onEvents = [this] {
      pump.stop = flags.stopRequested;
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
    if (refuseNewForms) throw RuntimeError(L"The window cannot be created.");
    newForms.emplace_back(windowClass);
    auto made = std::make_unique<ui::MemoryForm>(screen);
    lastForm = made.get();
    const auto life = std::make_shared<int>();
    // The form keeps the function, and with it the token, until its own end.
    lastForm->beforeText = [life](const ui::Element&) {};
    std::erase_if(lives_, [](const auto& each) { return each.expired(); });
    lives_.push_back(life);
    return made;
  }

  /// How many of the secondary windows still exist, shown or not.
  long Existing() const {
    return std::count_if(lives_.begin(), lives_.end(), [](const auto& life) { return !life.expired(); });
  }

  /// What the user does while a library blocks the program: it waits in the queue.
  void WhileBlocked(std::function<void()> clicks) { queued_ = std::move(clicks); }
  /// Events run: a pause of a test, or the main loop after it.
  void DeliverQueued() {
    if (const auto clicks = std::exchange(queued_, nullptr)) clicks();
  }

  std::vector<std::wstring> newForms;  ///< classes of the further windows, in their order
  bool refuseNewForms = false;
  ui::MemoryForm* lastForm = nullptr;  ///< the latest of them
  std::function<void()> onEvents;      ///< what the user does while a test pauses
  std::unique_ptr<Form1> form1;

 private:
  std::vector<std::weak_ptr<int>> lives_;
  std::function<void()> queued_;
};

}  // namespace tarvik::test
