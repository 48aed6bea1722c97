#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "app/option_mask.h"
#include "resources/messages.h"

namespace tarvik {

/// What the command line presets. A number of 0 means not given.
struct CommandLineValues {
  std::wstring targetHost;
  std::wstring accessCode;  ///< in the encoded form
  int16_t pingCount = 0;
  int16_t tcpPort = 0;
  int16_t libraryTimeOut = 0;  ///< seconds
  std::wstring k7ServerHost = L"127.0.0.1";
  std::wstring ftpUser;
  std::wstring ftpPassword;  ///< in the encoded form
};

/// The command-line text after the program's name: what GetCommandLine returned, without its first word. As
/// in Windows' own C runtime, each double quote switches quoting on or off and the word ends at the first
/// space outside quotes.
std::wstring_view BehindProgramName(std::wstring_view commandLine);

/// Reads the command line into the values, the option mask and the language mode. Tokens are cut at blanks
/// only; there is no quoting. `initLanguage` is called with the language id of each "LOCALEID", before the
/// language mode is set to the language files. An unknown key ends the parsing; an option without a value,
/// or with a number that is none or does not fit, is ignored.
void ParseCommandLine(std::wstring_view text, CommandLineValues& values, OptionMask& optionMask,
                      LanguageMode& languageMode, const std::function<void(int32_t)>& initLanguage);

}  // namespace tarvik
