#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "app/option_mask.h"
#include "resources/messages.h"

namespace tarvik {

/// The values that the command line can preset. A number of 0 or an empty text means not given.
struct CommandLineValues {
  std::wstring targetHost;
  std::wstring accessCode;  ///< encoded; see DecodeSecret
  int16_t pingCount = 0;
  int16_t tcpPort = 0;
  int16_t libraryTimeOut = 0;  ///< seconds
  std::wstring k7ServerHost = L"127.0.0.1";
  std::wstring ftpUser;
  std::wstring ftpPassword;  ///< encoded; see DecodeSecret
};

/// The result of GetCommandLine without its first word, the program's name. As in Windows' C runtime, each
/// double quote in that word switches quoting on or off, and the first space or tab outside quotes ends it.
/// The returned view points into `commandLine`; it is empty or starts with that space or tab.
std::wstring_view AfterProgramName(std::wstring_view commandLine);

/// Parses `text`, the result of AfterProgramName. Anything not given keeps its value. Only spaces separate
/// tokens; there is no quoting. An unknown key ends parsing. An option is ignored if its value is missing, or
/// is not a number, or does not fit into its type. For each "LOCALEID", calls `initLanguage` with the locale
/// id, then sets the language mode to kLanguageFile.
void ParseCommandLine(std::wstring_view text, CommandLineValues& values, OptionMask& optionMask,
                      LanguageMode& languageMode, const std::function<void(int32_t)>& initLanguage);

}  // namespace tarvik
