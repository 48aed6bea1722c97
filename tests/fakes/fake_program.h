#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "app/control_ids.h"
#include "app/dependencies.h"
#include "tests/fakes/fake_boxes.h"
#include "tests/fakes/fake_closed_libraries.h"
#include "tests/fakes/fake_cnc_library.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_icmp.h"
#include "tests/fakes/fake_ip_helper.h"
#include "tests/fakes/fake_k7_api.h"
#include "tests/fakes/fake_modules.h"
#include "tests/fakes/fake_processes.h"
#include "tests/fakes/fake_pump.h"
#include "tests/fakes/fake_settings.h"
#include "tests/fakes/fake_svc_kit.h"
#include "tests/fakes/fake_system.h"
#include "tests/fakes/fake_wininet.h"
#include "tests/fakes/fake_winsock.h"
#include "ui/memory/memory_form.h"

namespace tarvik::test {

/// Fakes of everything that the main window depends on, and access to its controls.
struct FakeProgram {
  ui::MemoryTextBox& Box(int id) { return form.Get<ui::MemoryTextBox>(id); }
  ui::MemoryButton& Button(int id) { return form.Get<ui::MemoryButton>(id); }
  ui::MemoryLabel& Label(int id) { return form.Get<ui::MemoryLabel>(id); }
  ui::MemoryComboBox& Address() { return form.Get<ui::MemoryComboBox>(ID_cmbIPAddr); }
  ui::MemoryTabStrip& Tabs() { return form.Get<ui::MemoryTabStrip>(ID_tabMode); }
  ui::MemoryListBox& List() { return form.Get<ui::MemoryListBox>(ID_lstResult); }
  void Click(int id) { Button(id).Click(); }

  Dependencies MakeDependencies(std::function<std::unique_ptr<ui::Form>(const wchar_t* windowClass)> newForm,
                                const std::wstring& commandLine, bool familyEdition) {
    return {
        .form = form,
        .newForm = std::move(newForm),
        .pump = pump,
        .flags = flags,
        .system = system,
        .files = files,
        .processes = processes,
        .codePage = codePage,
        .settings = settings,
        .clipboard = clipboard,
        .kernel = kernel,
        .version = versions,
        .winsock = winsock,
        .icmp = icmp,
        .ipHelper = ipHelper,
        .wininet = wininet,
        .configuration = configuration,
        .txCodec = txCodec,
        .cncLibrary = cncLibrary,
        .k7Api = k7Api,
        .svcKit = svcKit,
        .programFolder = L"C:\\Program",
        .windowsFolder = L"C:\\Windows",
        .commandLine = commandLine,
        .windowsLanguage = windowsLanguage,
        .familyEdition = familyEdition,
        .explanationText = explanationText,
    };
  }

  static constexpr wchar_t kServicesFile[] = L"C:\\Windows\\System32\\Drivers\\Etc\\Services";

  FakeBoxes boxes;  ///< of every window
  ui::MemoryScreen screen{boxes};
  ui::MemoryForm form{screen};
  FakePump pump;
  RunFlags flags;
  FakeSystem system;
  FakeFiles files;
  FakeProcesses processes;
  FakeCodePage codePage;
  FakeSettings settings;
  FakeClipboard clipboard;
  FakeKernel kernel;
  FakeVersions versions;
  FakeWinsock winsock;
  FakeIcmp icmp;
  FakeIpHelper ipHelper;
  FakeWininet wininet;
  FakeConfiguration configuration;
  FakeTxCodec txCodec;
  FakeCncLibrary cncLibrary;
  FakeK7Api k7Api;
  FakeSvcKit svcKit;
  int32_t windowsLanguage = 1033;
  /// The program's own text is long; a test that needs it sets it.
  std::string_view (*explanationText)() = [] { return std::string_view(); };
};

}  // namespace tarvik::test
