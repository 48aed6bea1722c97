#include "report/error_text.h"

#include "platform/library_error.h"
#include "report/typed_numbers.h"

namespace tarvik::report {
namespace {

std::wstring LibraryText(const LibraryError& error, const Texts& texts) {
  if (error.Which() == LibraryError::Kind::CannotBeLoaded)
    return error.Library() + texts.GetOrBuiltIn(Message::LibraryCannotBeLoaded) + L"\r\n" + error.Detail();
  // The name of the function has another place in each language's sentence.
  std::wstring text = texts.GetOrBuiltIn(Message::LibraryDoesNotExport);
  if (const size_t place = text.find(L"%1"); place != std::wstring::npos)
    text.replace(place, 2, error.Detail());
  return error.Library() + text;
}

}  // namespace

std::wstring ErrorText(const RuntimeError& error, const Texts& texts) {
  if (const auto* const library = dynamic_cast<const LibraryError*>(&error))
    return LibraryText(*library, texts);
  if (const auto* const number = dynamic_cast<const NumberError*>(&error))
    return NumberRequiredText(number->Typed(), number->BoxName(), number->Min(), number->Max(), texts);
  return error.Text();
}

}  // namespace tarvik::report
