#pragma once

#include <string>

namespace tarvik::report {

/// The program's name, as titles show it.
inline constexpr const wchar_t* kProgramTitle = L"Tarvik";

enum class BoxIcon { None, Exclamation, Critical };

/// The message boxes of one window. While one is open, no window of the program takes input or closes.
/// Afterwards each is enabled or disabled as before, and the box's own window is active again. An empty
/// title selects the program's name.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  /// A box with an OK button; returns when the user has closed it.
  virtual void Show(const std::wstring& text, BoxIcon icon = BoxIcon::None,
                    const std::wstring& title = {}) = 0;

  /// A system-modal box with an OK button and the critical icon.
  virtual void ShowSystemModal(const std::wstring& text) = 0;

  /// A box with Yes and No and the exclamation icon; true for Yes. Esc and the close button mean No.
  virtual bool AskYesNo(const std::wstring& text, bool defaultIsNo, const std::wstring& title = {}) = 0;
};

}  // namespace tarvik::report
