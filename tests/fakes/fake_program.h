#pragma once

#include <vector>

#include "app/control_ids.h"
#include "app/run_flags.h"
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

/// All that the whole program stands on, recorded, and the controls of its main window.
struct FakeProgram {
  ui::MemoryTextBox& Box(int id) { return form.Get<ui::MemoryTextBox>(id); }
  ui::MemoryButton& Button(int id) { return form.Get<ui::MemoryButton>(id); }
  ui::MemoryLabel& Label(int id) { return form.Get<ui::MemoryLabel>(id); }
  ui::MemoryComboBox& Address() { return form.Get<ui::MemoryComboBox>(ID_cmbIPAddr); }
  ui::MemoryTabStrip& Tabs() { return form.Get<ui::MemoryTabStrip>(ID_tabMode); }
  ui::MemoryListBox& List() { return form.Get<ui::MemoryListBox>(ID_lstResult); }
  void Click(int id) { Button(id).Click(); }

  static constexpr wchar_t kServicesFile[] = L"C:\\Windows\\System32\\Drivers\\Etc\\Services";

  FakeBoxes boxes;  ///< of every window
  ui::MemoryScreen screen{boxes};
  ui::MemoryForm form{screen};
  FakePump pump;
  RunFlags flags;
  FakeConfiguration configuration;
  FakeTxCodec txCodec;
  FakeWinsock winsock;
  FakeIcmp icmp;
  FakeIpHelper ipHelper;
  FakeWininet wininet;
  FakeSystem system;
  FakeFiles files;
  FakeProcesses processes;
  FakeCodePage codePage;
  FakeSettings settings;
  FakeClipboard clipboard;
  FakeKernel kernel;
  FakeVersions versions;
  FakeK7Api k7Api;
  FakeSvcKit svcKit;
  FakeCncLibrary cncLibrary;
};

}  // namespace tarvik::test
