#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tarvik {

class Resource;

/// Selects the language of the program's texts.
using LanguageMode = int32_t;
/// Texts are read from the language file, by number.
inline constexpr LanguageMode kLanguageFile = -1;
/// Built-in Japanese texts.
inline constexpr LanguageMode kBuiltInJapanese = 0;
/// Built-in English texts, as with every value other than these three.
inline constexpr LanguageMode kBuiltInEnglish = 1;

/// Every text of the program that exists in more than one language. The table in messages.cpp gives each
/// its number in the language files and its built-in wordings.
enum class Message {
  // Captions of the main window
  WindowCaption,
  HelpMenu,
  AboutCommand,
  PingPage,
  NexalPage,
  K7ApiPage,
  K7SvcPage,
  FtpPage,
  AddressLabel,
  PingCountLabel,
  PingButton,
  AllTestButton,
  TimeOutLabel,
  PortLabel,
  AccessCodeBox,
  GetInfoButton,
  TestCountLabel,
  K7ApiButton,
  StatusLabel,
  UdpPortLabel,
  StartButton,
  StopServiceButton,
  DebugButton,
  UserLabel,
  PasswordLabel,
  FtpConnectButton,
  AllFtpTestButton,
  StopButton,
  PmcCommand,
  AccessCodeLabel,
  ResultLabel,
  // About box
  SystemInfoButton,
  // Tool tips
  K7StatusTip,
  // Reachability check
  CannotResolve,
  NoSubnetMask,
  NotSameNetwork,
  StartGatewayCheck,
  NoConfiguration,
  NoGateway,
  SubnetMismatch,
  CannotAccessGateway,
  CannotPingGateway,
  CheckGateway,
  CannotPingTarget,
  CheckTarget,
  // CNC library
  OptionCheckError,
  NoOption,
  SystemInfoError,
  K7MustBeStopped,
  Option0,
  Option1,
  Option2,
  Option3,
  Option4,
  Option5,
  Option6,
  OptionNone,
  NumberRequired,
  NumberTyped,
  NumberRangeTo,
  PmcLengthError,
  PmcAddressLabel,
  PmcStartLabel,
  PmcLengthLabel,
  PmcCountLabel,
  PmcIntervalLabel,
  PmcDataLabel,
  PmcResultLabel,
  PmcReadButton,
  PmcStopButton,
  PmcCloseButton,
  NotAWholeNumber,
  LibraryCannotBeLoaded,
  LibraryDoesNotExport,
  AccessCodeWrong,
  AccessCodeWrongHint,
  AccessCodeMissing,
  AccessCodeUndecodable,
  PasswordUndecodable,
  TestIsRunning,
  ModuleNotFound,
  // K7 service
  AlreadyRunning,
  StartingService,
  ServiceStarted,
  CannotStartService,
  AlreadyStopped,
  ConfirmStop,
  ServiceStopped,
  CannotStopService,
  Count
};

/// One row of the table.
struct MessageRow {
  Message message;
  int32_t id;               ///< number in the language files
  const wchar_t* japanese;  ///< built-in Japanese; null = the message is left out in Japanese
  const wchar_t* english;   ///< built-in English
};

/// The row of a message.
const MessageRow& RowOf(Message message);

/// The texts in the current language mode. The mode and the language resource must outlive this object and
/// may change at any time.
class Texts {
 public:
  Texts(const LanguageMode& mode, Resource& resource) : mode_(mode), resource_(resource) {}

  LanguageMode Mode() const { return mode_; }

  /// The text of the message; nothing when the language leaves the message out.
  std::optional<std::wstring> Get(Message message) const;

  /// As Get, but empty when the language leaves the message out.
  std::wstring GetOrEmpty(Message message) const { return Get(message).value_or(std::wstring()); }

  /// As Get, but the built-in English text when the language file has none. For parts of a sentence, in
  /// messages that are newer than some language files.
  std::wstring GetOrBuiltIn(Message message) const;

  /// The text in the language file, whatever the mode; the built-in one when the file has none.
  std::wstring FromFile(Message message) const;

 private:
  const LanguageMode& mode_;
  Resource& resource_;
};

}  // namespace tarvik
