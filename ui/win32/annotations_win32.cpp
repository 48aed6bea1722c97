#include "ui/win32/annotations_win32.h"

// After windows.h.
#include <oleacc.h>

namespace tarvik::ui {
namespace {

constexpr GUID kAccPropServicesClass{
    0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID kAccPropServicesInterface{
    0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
/// PROPID_ACC_NAME
constexpr GUID kNameProperty{0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};
/// LiveSetting_Property_GUID of UI Automation, Windows 8 and newer
constexpr GUID kLiveSettingProperty{
    0xc12bcd8e, 0x2a8e, 0x4950, {0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb}};
constexpr LONG kPolite = 1;
constexpr DWORD kLiveRegionChangedEvent = 0x8019;  ///< EVENT_OBJECT_LIVEREGIONCHANGED

constexpr auto kClient = static_cast<DWORD>(OBJID_CLIENT);

}  // namespace

Annotations::Annotations() = default;
Annotations::~Annotations() = default;

void Annotations::Start(ComObjects& com) {
  services_ = com.Create<IAccPropServices>(kAccPropServicesClass, kAccPropServicesInterface);
}

void Annotations::SetName(HWND window, int child, const std::wstring& name) const {
  if (services_ != nullptr)
    services_->SetHwndPropStr(window, kClient, static_cast<DWORD>(child), kNameProperty, name.c_str());
}

void Annotations::MakeLiveRegion(HWND window) const {
  if (services_ == nullptr) return;
  VARIANT polite{};
  polite.vt = VT_I4;
  polite.lVal = kPolite;
  services_->SetHwndProp(window, kClient, CHILDID_SELF, kLiveSettingProperty, polite);
}

void Annotations::LiveRegionChanged(HWND window) {
  NotifyWinEvent(kLiveRegionChangedEvent, window, OBJID_CLIENT, CHILDID_SELF);
}

}  // namespace tarvik::ui
