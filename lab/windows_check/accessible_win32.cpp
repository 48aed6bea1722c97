#include "lab/windows_check/accessible_win32.h"

// After windows.h.
#include <oleacc.h>

namespace tarvik::check {
namespace {

constexpr IID kAccessibleId = {0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};

VARIANT TheObjectItself() {
  VARIANT self{};
  self.vt = VT_I4;
  self.lVal = CHILDID_SELF;
  return self;
}

}  // namespace

AccessibleReader::AccessibleReader()
    : library_(LoadLibraryExW(L"oleacc.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {
  if (library_ == nullptr) return;
  objectFromWindow_ = reinterpret_cast<ObjectFromWindow*>(
      reinterpret_cast<void*>(GetProcAddress(library_, "AccessibleObjectFromWindow")));
}

AccessibleReader::~AccessibleReader() {
  if (library_ != nullptr) FreeLibrary(library_);
}

std::optional<Accessible> AccessibleReader::Read(HWND window) const {
  void* found = nullptr;
  if (objectFromWindow_ == nullptr ||
      FAILED(objectFromWindow_(window, static_cast<DWORD>(OBJID_CLIENT), &kAccessibleId, &found)) ||
      found == nullptr)
    return std::nullopt;
  auto* const object = static_cast<IAccessible*>(found);
  Accessible accessible;
  BSTR name = nullptr;
  if (object->get_accName(TheObjectItself(), &name) == S_OK && name != nullptr)
    accessible.name.assign(name, SysStringLen(name));
  SysFreeString(name);
  VARIANT role{};
  if (object->get_accRole(TheObjectItself(), &role) == S_OK && role.vt == VT_I4)
    accessible.role = static_cast<int>(role.lVal);
  object->Release();
  return accessible;
}

}  // namespace tarvik::check
