// The command line. Unlike in the C runtime, only spaces separate the arguments and there is no quoting.

#include "app/command_line.h"

#include <optional>
#include <vector>

#include "platform/text.h"

namespace tarvik {
namespace {

std::vector<std::wstring_view> Tokens(std::wstring_view text) {
  std::vector<std::wstring_view> tokens;
  for (size_t start; (start = text.find_first_not_of(L' ')) != std::wstring_view::npos;) {
    text.remove_prefix(start);
    tokens.push_back(text.substr(0, text.find(L' ')));
    text.remove_prefix(tokens.back().size());
  }
  return tokens;
}

void StorePositional(std::wstring_view token, CommandLineValues& values) {
  const size_t semicolon = token.find(L';');
  values.targetHost = token.substr(0, semicolon);
  values.accessCode =
      semicolon == std::wstring_view::npos ? std::wstring_view() : token.substr(semicolon + 1);
}

bool IsKey(std::wstring_view key) {
  for (const std::wstring_view known : {L"PING_N", L"TCP_PORT", L"UDP_PORT", L"NXLIB_TMOUT", L"K7SERVER_HOST",
                                        L"LANGID", L"FTP_USER", L"FTP_PASSWD", L"X", L"LOCALEID"})
    if (key == known) return true;
  return false;
}

template <typename Number>
void StoreNumber(std::optional<Number> number, Number& target) {
  if (number) target = *number;
}

}  // namespace

std::wstring_view AfterProgramName(std::wstring_view commandLine) {
  bool quoted = false;
  size_t end = 0;
  for (; end < commandLine.size(); ++end) {
    const wchar_t character = commandLine[end];
    if (character == L'"') quoted = !quoted;
    if (!quoted && (character == L' ' || character == L'\t')) break;
  }
  return commandLine.substr(end);
}

void ParseCommandLine(std::wstring_view text, CommandLineValues& values, OptionMask& optionMask,
                      LanguageMode& languageMode, const std::function<void(int32_t)>& initLanguage) {
  const std::vector<std::wstring_view> tokens = Tokens(text);
  for (size_t i = 0; i < tokens.size(); ++i) {
    const std::wstring_view token = tokens[i];
    const bool last = i + 1 == tokens.size();
    const bool hasOptionMark = token.front() == L'-' || token.front() == L'/';
    if (!hasOptionMark && last) {
      StorePositional(token, values);
      return;
    }
    // A word that is not last is read as an option too, with its first letter dropped like a mark. That
    // usually makes an unknown key, and callers rely on parsing ending there.
    const std::wstring key = UpperCaseAscii(token.substr(1));
    if (!IsKey(key) || last) return;
    const std::wstring_view value = tokens[++i];

    if (key == L"PING_N") {
      StoreNumber(ParseInt16(value), values.pingCount);
    } else if (key == L"TCP_PORT") {
      StoreNumber(ParseInt16(value), values.tcpPort);
    } else if (key == L"NXLIB_TMOUT") {
      StoreNumber(ParseInt16(value), values.libraryTimeOut);
    } else if (key == L"K7SERVER_HOST") {
      values.k7ServerHost = value;
    } else if (key == L"LANGID") {
      StoreNumber(ParseInt32(value), languageMode);
    } else if (key == L"FTP_USER") {
      values.ftpUser = value;
    } else if (key == L"FTP_PASSWD") {
      values.ftpPassword = value;
    } else if (key == L"X") {
      optionMask.Set(static_cast<uint32_t>(ParseInt32(value).value_or(0)));
    } else if (key == L"LOCALEID") {
      if (const auto language = ParseInt32(value)) {
        initLanguage(*language);
        languageMode = kLanguageFile;
      }
    }
    // "UDP_PORT" and its value are accepted for callers of older releases, and ignored.
  }
}

}  // namespace tarvik
