#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tarvik {

class Resource;

/// Which texts the program speaks; 32 bits, signed.
using LanguageMode = int32_t;
/// Texts come from the language file by number.
inline constexpr LanguageMode kLanguageFile = -1;
/// Texts are the built-in Japanese ones; every value but these two selects the built-in English ones.
inline constexpr LanguageMode kBuiltInJapanese = 0;
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
  const wchar_t* japanese;  ///< built-in Japanese; null when the message has none and is left out
  const wchar_t* english;   ///< built-in English
};

/// The row of a message.
const MessageRow& RowOf(Message message);

/// The texts as the present language mode gives them. The owner of the mode and of the language resource
/// object keeps both alive; either may change at any time.
class Texts {
 public:
  Texts(const LanguageMode& mode, Resource& resource) : mode_(mode), resource_(resource) {}

  LanguageMode Mode() const { return mode_; }

  /// The text of the message; nothing when the language has none, which leaves the message out.
  std::optional<std::wstring> Get(Message message) const;

  /// As Get, but empty when the language has none.
  std::wstring GetOrEmpty(Message message) const { return Get(message).value_or(std::wstring()); }

  /// As Get, but the built-in English one when the language file has none: for a message that is younger than
  /// some language files, and part of a sentence.
  std::wstring GetOrBuiltIn(Message message) const;

  /// The text of a message that comes from the language file in every mode; the built-in one when the file
  /// has none.
  std::wstring FromFile(Message message) const;

 private:
  const LanguageMode& mode_;
  Resource& resource_;
};

}  // namespace tarvik
