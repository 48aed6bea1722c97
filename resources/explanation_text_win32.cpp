#include "resources/explanation_text.h"

#include "platform/windows_win32.h"

namespace tarvik {

std::string_view ExplanationText() {
  const HRSRC place = ::FindResourceW(nullptr, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(10));  // RT_RCDATA
  const HGLOBAL resource = place == nullptr ? nullptr : ::LoadResource(nullptr, place);
  const void* const bytes = resource == nullptr ? nullptr : ::LockResource(resource);
  if (bytes == nullptr) return {};
  return {static_cast<const char*>(bytes), ::SizeofResource(nullptr, place)};
}

}  // namespace tarvik
