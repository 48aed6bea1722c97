#pragma once

#include <vector>

#include "app/control_ids.h"
#include "app/run_flags.h"
#include "tests/recorded/fake_code_page.h"
#include "tests/recorded/fake_pump.h"
#include "tests/recorded/fake_text_order.h"
#include "tests/recorded/fake_wall_clock.h"
#include "tests/recorded/recorded_boxes.h"
#include "tests/recorded/recorded_closed_libraries.h"
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

/// All that the whole program stands on, recorded, and the controls of its main window.
struct RecordedProgram {
  ui::MemoryTextBox& Box(int id) { return form.Get<ui::MemoryTextBox>(id); }
  ui::MemoryButton& Button(int id) { return form.Get<ui::MemoryButton>(id); }
  ui::MemoryLabel& Label(int id) { return form.Get<ui::MemoryLabel>(id); }
  ui::MemoryComboBox& Address() { return form.Get<ui::MemoryComboBox>(ID_cmbIPAddr); }
  ui::MemoryTabStrip& Tabs() { return form.Get<ui::MemoryTabStrip>(ID_tabMode); }
  ui::MemoryListBox& List() { return form.Get<ui::MemoryListBox>(ID_lstResult); }
  void Click(int id) { Button(id).onClick(); }

  static constexpr wchar_t kServicesFile[] = L"C:\\Windows\\System32\\Drivers\\Etc\\Services";

  RecordedBoxes boxes;  ///< of every window
  ui::MemoryScreen screen{boxes};
  ui::MemoryForm form{screen};
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
  RecordedCncLibrary cncLibrary;
  FakeWallClock wallClock;
};

}  // namespace tarvik::test
