#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/runtime_error.h"
#include "report/message_boxes.h"
#include "resources/messages.h"

namespace tarvik::report {

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

/// What a message calls the box whose label has that caption: without its mnemonic and the colon behind it.
std::wstring BoxName(const std::wstring& labelCaption);

/// The text as a whole number of 32 bits, negative ones too. Throws NumberError when it is not one; its range
/// begins at 0, as only such a number is of use.
int32_t ToInt32(const std::wstring& text, const std::wstring& boxName);

/// The same for 16 bits.
int16_t ToInt16(const std::wstring& text, const std::wstring& boxName);

/// The typed text as a whole number from `least` to `most`. Anything else gets a message box that names the
/// box, its range and what was typed, and gives nothing.
std::optional<int32_t> NumberInBox(const std::wstring& typed, const std::wstring& boxName, int32_t least,
                                   int32_t most, const Texts& texts, MessageBoxes& boxes);

/// The message of that box. Typed text is cut after 60 characters.
std::wstring NumberRequiredText(const std::wstring& typed, const std::wstring& boxName, int32_t least,
                                int32_t most, const Texts& texts);

}  // namespace tarvik::report
