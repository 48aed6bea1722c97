#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/runtime_error.h"
#include "report/message_boxes.h"
#include "resources/messages.h"

namespace tarvik::report {

/// The user typed something other than a whole number in the box's range. Text() is in English; ErrorText
/// words the error in the user's language.
class NumberError : public RuntimeError {
 public:
  /// `boxName`: the caption of the box's label.
  NumberError(std::wstring typed, std::wstring boxName, int32_t minimum, int32_t maximum);

  const std::wstring& Typed() const { return typed_; }
  const std::wstring& BoxName() const { return boxName_; }
  int32_t Min() const { return minimum_; }
  int32_t Max() const { return maximum_; }

 private:
  std::wstring typed_;
  std::wstring boxName_;
  int32_t minimum_;
  int32_t maximum_;
};

/// The name by which messages call the box with that label: the caption without its mnemonic and final colon.
std::wstring BoxName(const std::wstring& labelCaption);

/// The text as a 32-bit whole number, negative ones included. Otherwise throws NumberError with a range that
/// begins at 0, because only such numbers are useful.
int32_t ToInt32(const std::wstring& text, const std::wstring& boxName);

/// The same for 16 bits.
int16_t ToInt16(const std::wstring& text, const std::wstring& boxName);

/// The typed text as a whole number from `minimum` to `maximum`. For anything else, a message box names the
/// box, its range and the typed text, and nothing is returned.
std::optional<int32_t> NumberInBox(const std::wstring& typed, const std::wstring& boxName, int32_t minimum,
                                   int32_t maximum, const Texts& texts, MessageBoxes& boxes);

/// The text of that message box. Typed text is truncated to 60 characters.
std::wstring NumberRequiredText(const std::wstring& typed, const std::wstring& boxName, int32_t minimum,
                                int32_t maximum, const Texts& texts);

}  // namespace tarvik::report
