#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "app/configuration_library.h"
#include "app/run_flags.h"
#include "app/secret_decoder.h"
#include "cnclib/cnc_library.h"
#include "ftp/wininet.h"
#include "k7/k7_api.h"
#include "k7/svc_kit.h"
#include "net/icmp.h"
#include "net/ip_helper.h"
#include "net/winsock.h"
#include "platform/clipboard.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "platform/kernel_calls.h"
#include "platform/processes.h"
#include "platform/settings_store.h"
#include "platform/system.h"
#include "platform/version_library.h"
#include "report/pump.h"
#include "ui/form.h"

namespace tarvik {

/// Everything the main window depends on, supplied by main or by a test. The referenced objects must outlive
/// the window.
struct Dependencies {
  // The window itself and how it waits
  ui::Form& form;
  /// Creates a hidden secondary window of the window class `windowClass`, which is the form's name. Throws
  /// RuntimeError when the window cannot be created.
  std::function<std::unique_ptr<ui::Form>(const wchar_t* windowClass)> newForm;
  report::Pump& pump;  ///< its StopRequested reports `flags.stopRequested`
  RunFlags& flags;

  // Windows
  System& system;
  Files& files;
  Processes& processes;
  CodePage& codePage;
  SettingsStore& settings;
  Clipboard& clipboard;
  KernelCalls& kernel;
  VersionLibrary& version;
  Winsock& winsock;
  IcmpLibrary& icmp;
  IpHelper& ipHelper;
  Wininet& wininet;

  // Closed libraries, any of which may be missing on this PC
  ConfigurationLibrary& configuration;
  TxCodec& txCodec;
  CncLibrary& cncLibrary;
  K7Api& k7Api;
  SvcKit& svcKit;

  // The process
  std::wstring programFolder;  ///< without a trailing backslash
  std::wstring windowsFolder;  ///< the environment variable WinDir; empty if unset or too long
  std::wstring commandLine;    ///< without the program's name
  int32_t windowsLanguage;     ///< locale id from GetUserDefaultUILanguage
  bool familyEdition;          ///< false = general edition
  /// Returns the explanations, in UTF-8. Called when they are first needed.
  std::string_view (*explanationText)();
};

}  // namespace tarvik
