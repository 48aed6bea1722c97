#include "ui/win32/com_win32.h"

#include <utility>

namespace tarvik::ui {

void* ComObjects::CreateObject(const GUID& classId, const GUID& interfaceId) {
  using InitializeFunction = HRESULT(WINAPI*)(void*, DWORD);
  using CreateFunction = HRESULT(WINAPI*)(REFCLSID, IUnknown*, DWORD, REFIID, void**);
  if (!std::exchange(loaded_, true) && library_.Load(L"ole32.dll")) {
    // Fails when a library has set up COM for this thread in another way; it can be used anyway.
    const auto initialise = library_.Find<InitializeFunction>("CoInitializeEx");
    initialised_ = initialise != nullptr && SUCCEEDED(initialise(nullptr, COINIT_APARTMENTTHREADED));
  }
  void* object = nullptr;
  const auto create = library_.Find<CreateFunction>("CoCreateInstance");
  if (create == nullptr || FAILED(create(classId, nullptr, CLSCTX_INPROC_SERVER, interfaceId, &object)))
    return nullptr;
  return object;
}

ComObjects::~ComObjects() {
  if (!initialised_) return;
  if (const auto end = library_.Find<void(WINAPI*)()>("CoUninitialize")) end();
}

}  // namespace tarvik::ui
