#include "ui/win32/message_font_win32.h"

#include <cstddef>
#include <cstring>
#include <cwchar>

namespace tarvik::ui {
namespace {

int SystemDpi() {
  HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

/// A function of user32.dll that older Windows versions do not export; null when missing.
template <typename Function>
Function* FindInUser32(const char* name) {
  return reinterpret_cast<Function*>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

int CALLBACK RememberOutline(const LOGFONTW*, const TEXTMETRICW*, DWORD type, LPARAM found) noexcept {
  if ((type & TRUETYPE_FONTTYPE) == 0) return TRUE;
  *reinterpret_cast<bool*>(found) = true;
  return FALSE;
}

void SetFace(LOGFONTW& font, const wchar_t* face) { std::wcsncpy(font.lfFaceName, face, LF_FACESIZE - 1); }

}  // namespace

bool IsOutlineFace(const wchar_t* face) {
  LOGFONTW wanted{};
  wanted.lfCharSet = DEFAULT_CHARSET;
  SetFace(wanted, face);
  bool found = false;
  HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &wanted, &RememberOutline, reinterpret_cast<LPARAM>(&found), 0);
  ReleaseDC(nullptr, screen);
  return found;
}

Scaling::Scaling()
    : getDpiForWindow_(FindInUser32<GetDpiForWindowFunction>("GetDpiForWindow")),
      systemParametersInfoForDpi_(
          FindInUser32<SystemParametersInfoForDpiFunction>("SystemParametersInfoForDpi")),
      getSystemMetricsForDpi_(FindInUser32<GetSystemMetricsForDpiFunction>("GetSystemMetricsForDpi")),
      setDialogDpiChangeBehavior_(FindInUser32<SetDpiChangeBehaviorFunction>("SetDialogDpiChangeBehavior")),
      setDialogControlDpiChangeBehavior_(
          FindInUser32<SetDpiChangeBehaviorFunction>("SetDialogControlDpiChangeBehavior")) {}

void Scaling::KeepDialogUnscaled(HWND dialog) const {
  constexpr int kDisableAll = 1;  // DDC_DISABLE_ALL
  if (setDialogDpiChangeBehavior_ != nullptr) setDialogDpiChangeBehavior_(dialog, kDisableAll, kDisableAll);
}

void Scaling::KeepControlUnscaled(HWND control) const {
  constexpr int kFontAndPlace = 3;  // DCDC_DISABLE_FONT_UPDATE | DCDC_DISABLE_RELAYOUT
  if (setDialogControlDpiChangeBehavior_ != nullptr)
    setDialogControlDpiChangeBehavior_(control, kFontAndPlace, kFontAndPlace);
}

int Scaling::DpiOf(HWND window) const {
  const int dpi = getDpiForWindow_ != nullptr ? static_cast<int>(getDpiForWindow_(window)) : SystemDpi();
  return dpi > 0 ? dpi : USER_DEFAULT_SCREEN_DPI;
}

LOGFONTW Scaling::MessageFont(int dpi) const {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (systemParametersInfoForDpi_ != nullptr) {
    if (systemParametersInfoForDpi_(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                                    static_cast<UINT>(dpi)))
      return metrics.lfMessageFont;
  } else if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
    metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, SystemDpi());
    return metrics.lfMessageFont;
  }
  LOGFONTW font{};
  GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof font, &font);
  return font;
}

int Scaling::Metric(int index, int dpi) const {
  if (getSystemMetricsForDpi_ != nullptr) return getSystemMetricsForDpi_(index, static_cast<UINT>(dpi));
  return MulDiv(GetSystemMetrics(index), dpi, SystemDpi());
}

MeasuredFont::MeasuredFont(const LOGFONTW& description)
    : description_(description),
      font_(CreateFontIndirectW(&description)),
      dc_(CreateCompatibleDC(nullptr)),
      replaced_(SelectObject(dc_, font_)) {
  TEXTMETRICW metrics{};
  if (GetTextMetricsW(dc_, &metrics)) lineHeight_ = static_cast<int>(metrics.tmHeight);
}

MeasuredFont::~MeasuredFont() {
  SelectObject(dc_, replaced_);
  DeleteDC(dc_);
  DeleteObject(font_);
}

std::unique_ptr<MeasuredFont> MeasuredFont::InFace(const wchar_t* face) const {
  LOGFONTW description = description_;
  description.lfCharSet = DEFAULT_CHARSET;
  description.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  SetFace(description, face);
  return std::make_unique<MeasuredFont>(description);
}

std::unique_ptr<MeasuredFont> MeasuredFont::Larger() const {
  LOGFONTW description = description_;
  description.lfHeight = MulDiv(static_cast<int>(description.lfHeight), 6, 5);
  return std::make_unique<MeasuredFont>(description);
}

bool MeasuredFont::Matches(const LOGFONTW& description) const {
  return std::memcmp(&description, &description_, offsetof(LOGFONTW, lfFaceName)) == 0 &&
         std::wcscmp(description.lfFaceName, description_.lfFaceName) == 0;
}

Size MeasuredFont::MeasureCaption(const std::wstring& caption) const {
  RECT box{};
  DrawTextW(dc_, caption.c_str(), static_cast<int>(caption.size()), &box, DT_CALCRECT | DT_EXPANDTABS);
  return {static_cast<int>(box.right), static_cast<int>(box.bottom)};
}

int MeasuredFont::TabbedTextWidth(const std::wstring& text, int stop) const {
  // List boxes and dialogs use this average, not the font's tmAveCharWidth.
  const int letters = TextWidth(L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  const int pixels = MulDiv(stop, (letters / 26 + 1) / 2, 4);
  return LOWORD(GetTabbedTextExtentW(dc_, text.c_str(), static_cast<int>(text.size()), 1, &pixels));
}

int MeasuredFont::TextWidth(const std::wstring& text) const {
  SIZE size{};
  GetTextExtentPoint32W(dc_, text.c_str(), static_cast<int>(text.size()), &size);
  return static_cast<int>(size.cx);
}

}  // namespace tarvik::ui
