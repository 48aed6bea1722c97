#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/control_ids.h"
#include "app/form1.h"
#include "tests/recorded/fake_code_page.h"
#include "tests/recorded/fake_pump.h"
#include "tests/recorded/fake_text_order.h"
#include "tests/recorded/fake_wall_clock.h"
#include "tests/recorded/recorded_boxes.h"
#include "tests/recorded/recorded_cnc_library.h"
#include "tests/recorded/recorded_files.h"
#include "tests/recorded/recorded_icmp.h"
#include "tests/recorded/recorded_ip_helper.h"
#include "tests/recorded/recorded_k7_api.h"
#include "tests/recorded/recorded_modules.h"
#include "tests/recorded/recorded_os_version.h"
#include "tests/recorded/recorded_processes.h"
#include "tests/recorded/recorded_profile_strings.h"
#include "tests/recorded/recorded_settings.h"
#include "tests/recorded/recorded_svc_kit.h"
#include "tests/recorded/recorded_wininet.h"
#include "tests/recorded/recorded_winsock.h"
#include "ui/memory/memory_form.h"

namespace tarvik::test {

/// The family's configuration library in memory; it writes down in which order it is called.
class RecordedConfiguration final : public ConfigurationLibrary {
 public:
  bool Available() override { return available; }
  int32_t Initialize() override { return Call("Initialize", 0); }
  int32_t GetLanguage() override { return Call("GetLanguage", language); }
  int32_t Terminate() override { return Call("Terminate", 0); }
  int32_t GetCommonDataFolder2(char* buffer, int32_t length) override {
    const int32_t result = Call("GetCommonDataFolder2", folderResult);
    askedLength = length;
    std::fill_n(buffer, length, '#');
    folder.copy(buffer, static_cast<size_t>(length));
    if (terminated) buffer[folder.size()] = '\0';
    return result;
  }

  bool available = true;
  int32_t language = 1033;
  std::string folder = "C:\\Data";
  bool terminated = true;
  int32_t folderResult = 0;
  std::string lacking;  ///< the call that the library does not have
  int32_t askedLength = 0;
  std::vector<std::string> calls;

 private:
  int32_t Call(const char* name, int32_t result) {
    if (lacking == name) throw RuntimeError(L"The library lacks a call.");
    calls.emplace_back(name);
    return result;
  }
};

/// Decodes by putting "plain " in front; refuses what begins with "!".
class RecordedTxCodec final : public TxCodec {
 public:
  int32_t TxDecd(TxCodecRecord& record) override {
    if (missing) throw RuntimeError(L"txcodec.dll cannot be loaded.");
    input.assign(record.input, sizeof record.input);
    std::fill_n(record.output, sizeof record.output, ' ');
    output.copy(record.output, sizeof record.output);
    return result;
  }

  bool missing = false;
  int32_t result = 0;
  std::string output = "4711";
  std::string input;
};

/// The whole program without a window.
class Form1Test : public testing::Test {
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
    profile.values["C:\\Data\\Language\\Tarvik.exe_" + key + ".ini|" + key + "|" + std::to_string(id)] = text;
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
      if (onEvents) onEvents();
      pump.stop = flags.stopRequested;
    };
    form1 = std::make_unique<Form1>(
        Form1Ground{form,           boxes,
                    pump,           flags,
                    configuration,  txCodec,
                    winsock,        icmp,
                    ipHelper,       wininet,
                    osVersion,      files,
                    processes,      codePage,
                    textOrder,      profile,
                    settings,       clipboard,
                    kernel,         versions,
                    registry,       k7Api,
                    svcKit,         cncLibrary,
                    wallClock,      [this](const wchar_t* windowClass) { return NewForm(windowClass); },
                    L"C:\\Program", L"C:\\Windows",
                    commandLine,    windowsLanguage,
                    familyEdition});
  }

  static constexpr wchar_t kServicesFile[] = L"C:\\Windows\\System32\\Drivers\\Etc\\Services";

  ui::MemoryTextBox& Box(int id) { return form.Get<ui::MemoryTextBox>(id); }
  ui::MemoryButton& Button(int id) { return form.Get<ui::MemoryButton>(id); }
  ui::MemoryComboBox& Address() { return form.Get<ui::MemoryComboBox>(ID_cmbIPAddr); }
  ui::MemoryTabStrip& Tabs() { return form.Get<ui::MemoryTabStrip>(ID_tabMode); }
  ui::MemoryListBox& List() { return form.Get<ui::MemoryListBox>(ID_lstResult); }
  void Click(int id) { Button(id).onClick(); }
  bool Listed(const std::wstring& line) {
    return std::count(List().lines.begin(), List().lines.end(), line) > 0;
  }

  std::unique_ptr<ui::Form> NewForm(const wchar_t* windowClass) {
    if (refuseNewForms) throw RuntimeError(L"The window cannot be created.");
    newForms.emplace_back(windowClass);
    auto made = std::make_unique<ui::MemoryForm>();
    lastForm = made.get();
    return made;
  }

  ui::MemoryForm form;
  RecordedBoxes boxes;
  FakePump pump;
  RunFlags flags;
  RecordedConfiguration configuration;
  RecordedTxCodec txCodec;
  RecordedWinsock winsock;
  RecordedIcmp icmp;
  RecordedIpHelper ipHelper;
  RecordedWininet wininet;
  RecordedOsVersion osVersion;
  RecordedFiles files;
  RecordedProcesses processes;
  FakeCodePage codePage;
  FakeTextOrder textOrder;
  RecordedProfileStrings profile;
  RecordedSettings settings;
  RecordedClipboard clipboard;
  RecordedKernel kernel;
  RecordedVersions versions;
  RecordedRegistry registry;
  RecordedK7Api k7Api;
  RecordedSvcKit svcKit;
  std::vector<std::wstring> newForms;  ///< classes of the further windows, in their order
  bool refuseNewForms = false;
  ui::MemoryForm* lastForm = nullptr;  ///< the latest of them
  RecordedCncLibrary cncLibrary;
  FakeWallClock wallClock;
  int32_t windowsLanguage = 1033;
  std::function<void()> onEvents;  ///< what the user does while a test pauses
  std::unique_ptr<Form1> form1;
};

}  // namespace tarvik::test
