#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/runtime_error.h"
#include "resources/messages.h"
#include "ui/message_boxes.h"

namespace tarvik {

/// A text that is not a whole number of the box's range. Text() is in English; ErrorText words the error in
/// the user's language.
class NumberError : public RuntimeError {
 public:
  /// `boxName`: the caption of the box's label.
  NumberError(std::wstring typed, std::wstring boxName, int32_t least, int32_t most);

  const std::wstring& Typed() const { return typed_; }
  const std::wstring& BoxName() const { return boxName_; }
  int32_t Least() const { return least_; }
  int32_t Most() const { return most_; }

 private:
  std::wstring typed_;
  std::wstring boxName_;
  int32_t least_;
  int32_t most_;
};

/// The typed text as a whole number from `least` to `most`. Anything else gets a message box that names the
/// box, its range and what was typed, and gives nothing.
std::optional<int32_t> NumberInBox(const std::wstring& typed, const std::wstring& boxName, int32_t least,
                                   int32_t most, const Texts& texts, ui::MessageBoxes& boxes);

/// The message of that box. Typed text is cut after 60 characters.
std::wstring NumberRequiredText(const std::wstring& typed, const std::wstring& boxName, int32_t least,
                                int32_t most, const Texts& texts);

}  // namespace tarvik
