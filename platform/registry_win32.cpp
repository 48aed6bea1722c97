#include "platform/registry_win32.h"

#include "platform/fixed_buffer.h"

namespace tarvik {
namespace {

bool IsText(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ; }

/// The largest result of ExpandEnvironmentStrings.
constexpr size_t kMaxExpandedCharacters = 32768;

std::wstring ExpandVariables(const std::wstring& text) {
  std::wstring expanded(kMaxExpandedCharacters, L'\0');
  const DWORD size =
      ::ExpandEnvironmentStringsW(text.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
  return size == 0 || size > expanded.size() ? text : std::wstring(TrimNull(std::wstring_view(expanded)));
}

}  // namespace

std::optional<std::wstring> ReadRegistryText(HKEY root, const std::wstring& key, const std::wstring& name,
                                             REGSAM view) {
  RegistryKey opened;
  if (::RegOpenKeyExW(root, key.c_str(), 0, KEY_QUERY_VALUE | view, opened.Out()) != ERROR_SUCCESS)
    return std::nullopt;
  DWORD type = 0;
  DWORD bytes = 0;
  if (::RegQueryValueExW(opened.Get(), name.c_str(), nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS ||
      !IsText(type))
    return std::nullopt;
  std::wstring value(bytes / sizeof(wchar_t) + 1, L'\0');
  bytes = static_cast<DWORD>(value.size() * sizeof(wchar_t));
  if (::RegQueryValueExW(opened.Get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(value.data()),
                         &bytes) != ERROR_SUCCESS ||
      !IsText(type))
    return std::nullopt;
  // A stored string need not be NUL-terminated, and may contain several NULs.
  value.resize(bytes / sizeof(wchar_t));
  value = TrimNull(std::wstring_view(value));
  return type == REG_EXPAND_SZ ? ExpandVariables(value) : value;
}

}  // namespace tarvik
