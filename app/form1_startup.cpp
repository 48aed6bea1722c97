// Start-up. Callers and language files depend on the order of the steps; start_up_order_test.cpp checks it.

#include <string_view>

#include "app/address_history.h"
#include "app/form1.h"
#include "platform/fixed_buffer.h"
#include "platform/runtime_error.h"
#include "platform/scope_guard.h"
#include "platform/text.h"
#include "report/finding_texts.h"

namespace tarvik {
namespace {

constexpr wchar_t kProgramName[] = L"Tarvik.exe";
constexpr wchar_t kSeparator[] = L"-----";
constexpr int32_t kJapanese = 1041;
constexpr int32_t kEnglish = 1033;

/// Calls the configuration library's Initialize, and its Terminate on destruction.
class ConfigurationSession {
 public:
  explicit ConfigurationSession(ConfigurationLibrary& library) : library_(library) { library_.Initialize(); }
  ~ConfigurationSession() {
    try {
      library_.Terminate();
    } catch (const RuntimeError&) {
      // The library does not export Terminate, so nothing can be cleaned up.
    }
  }
  ConfigurationSession(const ConfigurationSession&) = delete;
  ConfigurationSession& operator=(const ConfigurationSession&) = delete;

 private:
  ConfigurationLibrary& library_;
};

}  // namespace

void Form1::Form_Load() {
  loading_ = true;  // the window cannot be closed during its own start-up
  const ScopeGuard loaded([this] { loading_ = false; });
  // A step that throws is reported and the rest still run. Only a failed StartSockets ends start-up.
  const auto step = [this](void (Form1::*run)()) { deps_.form.Guarded([&] { (this->*run)(); }); };
  productFamily_ = deps_.familyEdition;
  // Dormant: nothing shows the command again. The PMC window opens only if another program sends the command.
  controls_.mnuPMC.SetVisible(false);
  RecordInitialSizes(deps_.form.WindowSize());
  step(&Form1::ReadConfiguration);
  step(&Form1::LoadLanguage);
  if (!StartSockets()) return;
  step(&Form1::OpenIcmp);
  if (productFamily_) SetOptionMask(kFamilyMode);
  step(&Form1::ReadCommandLine);
  if (TestOptionMask(kClearPasswords)) {
    controls_.txtAccessCode.SetPasswordMask(false);
    controls_.txtFtpPasswd.SetPasswordMask(false);
  }
  step(&Form1::LoadCaptions);
  step(&Form1::UpdateLayout);
  step(&Form1::CheckModules);
  step(&Form1::SwitchK7PagesOff);
  step(&Form1::StartServiceControl);
  deps_.form.Guarded([this] { LoadHistory(controls_.cmbIPAddr, deps_.settings); });
  step(&Form1::PrefillNumbers);
  if (TestOptionMask(kTopmost)) deps_.form.Guarded([this] { deps_.form.MakeTopmost(); });
  if (!commandLine_.targetHost.empty()) step(&Form1::AutoRun);
  SetListExtent();
  step(&Form1::CheckK7ServicesEntry);
}

void Form1::UseProgramFolderAndWindowsLanguage() {
  commonDataFolder_ = deps_.programFolder;
  languageId_ = deps_.windowsLanguage == kJapanese ? kJapanese : kEnglish;
}

report::AnswerLanguage Form1::Language() const { return report::LanguageOfTexts(languageMode_, languageId_); }

bool Form1::TextsAreJapanese() const { return Language() == report::AnswerLanguage::Japanese; }

void Form1::ReadConfiguration() {
  if (!productFamily_) {
    UseProgramFolderAndWindowsLanguage();
    return;
  }
  languageMode_ = kLanguageFile;
  // Defaults, in case the library or one of its calls is missing.
  UseProgramFolderAndWindowsLanguage();
  int32_t result = -1;
  deps_.form.Guarded([&] {
    if (deps_.configuration.Available()) result = QueryConfiguration();
  });
  if (result != 0) deps_.form.Boxes().Show(L"GetCommonDataFolder2 Error");
}

int32_t Form1::QueryConfiguration() {
  {
    const ConfigurationSession session(deps_.configuration);
    languageId_ = deps_.configuration.GetLanguage();
  }
  char folder[512] = {};
  const int32_t result = deps_.configuration.GetCommonDataFolder2(folder, sizeof folder - 1);
  commonDataFolder_ = deps_.codePage.FromAnsi(TrimNull(std::string_view(folder, sizeof folder)));
  return result;
}

void Form1::LoadLanguage() {
  if (!resource_.Initialize(languageId_, commonDataFolder_, kProgramName))
    deps_.form.Boxes().Show(L"Loading language data is failed\r\n" + resource_.pErrorText());
}

bool Form1::StartSockets() {
  WsaData data;
  const int result = deps_.winsock.WSAStartup(Winsock::kVersion11, data);
  const auto text = [this](const char* field, size_t size) {
    return deps_.codePage.FromAnsi(TrimNull(std::string_view(field, size)));
  };
  // Read as a signed number; 65,536 is added to 0 and negatives. Large sizes therefore appear unsigned, and 0
  // ("no limit") as 65536.
  const auto datagram = static_cast<int16_t>(data.iMaxUdpDg);
  deps_.form.Guarded([&] {
    results_.AddToList(L"szDescription:" + text(data.szDescription, sizeof data.szDescription));
    results_.AddToList(L"szSystemStatus:" + text(data.szSystemStatus, sizeof data.szSystemStatus));
    results_.AddToList(L"iMaxSockets:" + Decimal(data.iMaxSockets));
    results_.AddToList(L"iMaxUdpDg:" + Decimal(datagram > 0 ? datagram : datagram + 65536));
    results_.AddToList(L"lpVendorInfo:" + Decimal(data.lpVendorInfo));
    results_.AddToList(kSeparator);
  });
  // -1 on purpose: ordinary WSAStartup failures are positive error codes and do not end start-up.
  return result != -1;
}

void Form1::OpenIcmp() {
  icmpHandle_ = deps_.icmp.IcmpCreateFile();
  if (icmpHandle_ != 0) return;
  results_.AddToList(L"ICMPCreateFile Error");
  results_.AddToList(kSeparator);
}

void Form1::ReadCommandLine() {
  ParseCommandLine(deps_.commandLine, commandLine_, optionMask_, languageMode_, [this](int32_t language) {
    languageId_ = language;
    resource_.Terminate();
    resource_.Initialize(languageId_, commonDataFolder_, kProgramName);
  });
}

void Form1::SwitchK7PagesOff() {
  if (!TestOptionMask(kFamilyMode)) return;
  controls_.tabMode.SetPageOn(kK7ApiPage, false);
  controls_.tabMode.SetPageOn(kK7SvcPage, false);
}

void Form1::PrefillNumbers() {
  const auto prefill = [](ui::TextBox& box, int16_t value) {
    if (value > 0) box.SetText(Decimal(value));
  };
  prefill(controls_.txtPingReqCount, commandLine_.pingCount);
  prefill(controls_.txtTcpPortNo, commandLine_.tcpPort);
  prefill(controls_.txtNxlibTimeOut, commandLine_.libraryTimeOut);
}

void Form1::AutoRun() {
  controls_.cmbIPAddr.SetText(commandLine_.targetHost);
  AddHistoryIfNew(controls_.cmbIPAddr);
  if (TestOptionMask(kLibraryTest)) PrefillAccessCode();
  if (TestOptionMask(kFtpTest)) PrefillFtp();
  deps_.form.Show();
  deps_.pump.LetEventsRun();
  controls_.cmdPing.SetFocus();
  RunAllTests();
}

void Form1::PrefillAccessCode() {
  controls_.tabMode.BringToFront(kPingPage);
  deps_.pump.LetEventsRun();
  controls_.chkAccessCode.SetChecked(false);
  const std::wstring code = Decoded(commandLine_.accessCode, Message::AccessCodeUndecodable);
  controls_.txtAccessCode.SetText(code);
  controls_.chkAccessCode.SetChecked(!code.empty());
}

void Form1::PrefillFtp() {
  if (controls_.tabMode.PageOn(kFtpPage)) controls_.tabMode.BringToFront(kFtpPage);
  deps_.pump.LetEventsRun();
  controls_.txtFtpUsername.SetText(commandLine_.ftpUser);
  controls_.txtFtpPasswd.SetText(Decoded(commandLine_.ftpPassword, Message::PasswordUndecodable));
}

std::wstring Form1::Decoded(const std::wstring& encoded, Message failure) {
  if (encoded.empty()) return {};
  if (const auto text = DecodeSecret(encoded, deps_.txCodec, deps_.codePage)) return *text;
  deps_.form.Boxes().Show(resource_.LoadString(RowOf(failure).id));
  return {};
}

}  // namespace tarvik
