#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

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

/// Everything that the main window receives from its process, or from a test. What is referred to outlives
/// the window.
struct Dependencies {
  // The window itself and how it waits
  ui::Form& form;
  /// Creates a secondary window, hidden; its class is the form's name. Throws RuntimeError when the system
  /// refuses.
  std::function<std::unique_ptr<ui::Form>(const wchar_t* windowClass)> newForm;
  report::Pump& pump;  ///< its stop request is `flags.stopRequested`
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

  // The maker's libraries, which need not be on the PC
  ConfigurationLibrary& configuration;
  TxCodec& txCodec;
  CncLibrary& cncLibrary;
  K7Api& k7Api;
  SvcKit& svcKit;

  // The process
  std::wstring programFolder;  ///< without a backslash at its end
  std::wstring windowsFolder;  ///< value of the environment variable WinDir
  std::wstring commandLine;    ///< the text after the program's name
  int32_t windowsLanguage;     ///< language of the user's Windows menus, as a locale id
  bool familyEdition;          ///< value of the product-family switch
};

}  // namespace tarvik
