#pragma once

#include <memory>

#include "platform/system_library_win32.h"
#include "platform/windows_win32.h"

// Include this instead of <objbase.h>, which needs windows.h first although it sorts before it.
#include <objbase.h>

namespace tarvik::ui {

struct ReleaseInterface {
  void operator()(IUnknown* object) const { object->Release(); }
};

template <typename Interface>
using ComPointer = std::unique_ptr<Interface, ReleaseInterface>;

/// COM in this thread, from the first object on. Must outlive the objects.
class ComObjects {
 public:
  ComObjects() = default;
  ComObjects(const ComObjects&) = delete;
  ComObjects& operator=(const ComObjects&) = delete;
  ~ComObjects();

  /// Null when this Windows has no such object.
  template <typename Interface>
  ComPointer<Interface> Create(const GUID& classId, const GUID& interfaceId) {
    return ComPointer<Interface>(static_cast<Interface*>(CreateObject(classId, interfaceId)));
  }

 private:
  void* CreateObject(const GUID& classId, const GUID& interfaceId);

  SystemLibrary library_;
  bool loaded_ = false;
  bool initialised_ = false;
};

}  // namespace tarvik::ui
