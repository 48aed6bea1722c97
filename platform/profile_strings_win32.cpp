#include "platform/profile_strings_win32.h"

#include <algorithm>
#include <optional>

#include "platform/code_page_win32.h"
#include "platform/files_win32.h"
#include "platform/profile_section.h"
#include "platform/windows_win32.h"

namespace tarvik {
namespace {

/// The path in the system code page; nothing when that loses a character.
std::optional<std::string> Ansi(const std::wstring& path) {
  Win32CodePage codePage;
  std::string ansi = codePage.ToAnsi(path);
  if (codePage.FromAnsi(ansi) != path) return std::nullopt;
  return ansi;
}

/// The short (8.3) form of the path; empty where the volume has none.
std::wstring ShortPath(const std::wstring& path) {
  std::wstring shorter(::GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
  const DWORD length = ::GetShortPathNameW(path.c_str(), shorter.data(), static_cast<DWORD>(shorter.size()));
  shorter.resize(length < shorter.size() ? length : 0);
  return shorter;
}

/// The same from the file itself.
uint32_t ReadFromFile(const std::string& section, const std::string& key, char* buffer, uint32_t bufferSize,
                      const std::wstring& path) {
  const std::string text = Win32Files().Read(path).value_or(std::string());
  std::string_view value = ProfileValue(ReadProfileSection(text, section), key);
  value = value.substr(0, bufferSize - 1);
  *std::copy(value.begin(), value.end(), buffer) = '\0';
  return static_cast<uint32_t>(value.size());
}

}  // namespace

uint32_t Win32ProfileStrings::GetPrivateProfileStringA(const std::string& section, const std::string& key,
                                                       char* buffer, uint32_t bufferSize,
                                                       const std::wstring& path) {
  if (bufferSize == 0) return 0;
  std::optional<std::string> ansi = Ansi(path);
  if (!ansi) {
    const std::wstring shortPath = ShortPath(path);
    if (!shortPath.empty()) ansi = Ansi(shortPath);
  }
  if (!ansi) return ReadFromFile(section, key, buffer, bufferSize, path);
  return ::GetPrivateProfileStringA(section.c_str(), key.c_str(), "", buffer, bufferSize, ansi->c_str());
}

}  // namespace tarvik
