// Pictures of windows, and their encoding as PNG by the imaging component of Windows.

#include <algorithm>

#include "lab/windows_check/controls_win32.h"
// After windows.h.
#include <ole2.h>
#include <wincodec.h>

namespace tarvik::check {
namespace {

constexpr UINT kRenderFullContent = 2;  // PW_RENDERFULLCONTENT, Windows 8.1

/// A bitmap in memory that can be drawn on and whose pixels can be read.
class Canvas {
 public:
  Canvas(int width, int height) {
    if (width <= 0 || height <= 0) throw CheckError("a picture without an area");
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;  // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    context_ = ::CreateCompatibleDC(nullptr);
    bitmap_ = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
    if (bitmap_ == nullptr) throw CheckError("no memory for a picture");
    before_ = ::SelectObject(context_, bitmap_);
    picture_.width = width;
    picture_.height = height;
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  ~Canvas() {
    ::SelectObject(context_, before_);
    ::DeleteObject(bitmap_);
    ::DeleteDC(context_);
  }

  HDC Context() const { return context_; }

  void CopyScreen(const RECT& rect) {
    const HDC screen = ::GetDC(nullptr);
    ::BitBlt(context_, 0, 0, picture_.width, picture_.height, screen, rect.left, rect.top,
             SRCCOPY | CAPTUREBLT);
    ::ReleaseDC(nullptr, screen);
  }

  /// True when all pixels have the same colour, as when nothing was drawn.
  bool IsBlank() const {
    ::GdiFlush();
    const auto* const first = static_cast<const uint32_t*>(bits_);
    const uint32_t* const last = first + static_cast<size_t>(picture_.width * picture_.height);
    return std::all_of(first, last, [first](uint32_t pixel) { return pixel == *first; });
  }

  Picture Take() {
    ::GdiFlush();
    const auto* const first = static_cast<const uint32_t*>(bits_);
    picture_.pixels.assign(first, first + static_cast<size_t>(picture_.width * picture_.height));
    for (uint32_t& pixel : picture_.pixels) pixel &= 0x00FFFFFF;
    return std::move(picture_);
  }

 private:
  HDC context_ = nullptr;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ before_ = nullptr;
  void* bits_ = nullptr;
  Picture picture_;
};

/// Releases a COM object on destruction.
template <typename Interface>
struct Com {
  Interface* pointer = nullptr;

  Com() = default;
  Com(const Com&) = delete;
  Com& operator=(const Com&) = delete;
  ~Com() {
    if (pointer != nullptr) pointer->Release();
  }
  Interface* operator->() const { return pointer; }
};

void Require(HRESULT result, const char* step) {
  if (FAILED(result)) throw CheckError(std::string("a picture cannot be encoded: ") + step);
}

std::string BytesOf(IStream* stream) {
  STATSTG information{};
  Require(stream->Stat(&information, STATFLAG_NONAME), "Stat");
  std::string bytes(static_cast<size_t>(information.cbSize.QuadPart), '\0');
  ULONG count = 0;
  Require(stream->Seek({}, STREAM_SEEK_SET, nullptr), "Seek");
  Require(stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), &count), "Read");
  return bytes;
}

}  // namespace

Picture CaptureWindow(HWND window) {
  RECT rect{};
  ::GetWindowRect(window, &rect);
  Canvas canvas(static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top));
  DWORD_PTR ignored = 0;
  const bool answers = ::SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 2000, &ignored) != 0;
  if (!answers ||
      (!::PrintWindow(window, canvas.Context(), kRenderFullContent) &&
       !::PrintWindow(window, canvas.Context(), 0)) ||
      // Wine reports success, but windows of other programs draw nothing.
      canvas.IsBlank()) {
    // The user's screen may show other windows in that place.
    if (!IsWine()) return {};
    canvas.CopyScreen(rect);
  }
  return canvas.Take();
}

std::string EncodePng(const Picture& picture) {
  if (picture.pixels.empty()) return {};
  const auto width = static_cast<UINT>(picture.width);
  const auto height = static_cast<UINT>(picture.height);
  Com<IWICImagingFactory> factory;
  Com<IStream> stream;
  Com<IWICBitmapEncoder> encoder;
  Com<IWICBitmapFrameEncode> frame;
  Com<IWICBitmap> bitmap;
  std::vector<uint32_t> pixels = picture.pixels;
  Require(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                             reinterpret_cast<void**>(&factory.pointer)),
          "CoCreateInstance");
  Require(::CreateStreamOnHGlobal(nullptr, TRUE, &stream.pointer), "CreateStreamOnHGlobal");
  Require(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, &encoder.pointer), "CreateEncoder");
  Require(encoder->Initialize(stream.pointer, WICBitmapEncoderNoCache), "Initialize");
  Require(encoder->CreateNewFrame(&frame.pointer, nullptr), "CreateNewFrame");
  Require(frame->Initialize(nullptr), "frame");
  Require(frame->SetSize(width, height), "SetSize");
  // 24 bits per pixel; WriteSource converts.
  WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
  Require(frame->SetPixelFormat(&format), "SetPixelFormat");
  Require(factory->CreateBitmapFromMemory(width, height, GUID_WICPixelFormat32bppBGR, 4 * width,
                                          4 * width * height, reinterpret_cast<BYTE*>(pixels.data()),
                                          &bitmap.pointer),
          "CreateBitmapFromMemory");
  Require(frame->WriteSource(bitmap.pointer, nullptr), "WriteSource");
  Require(frame->Commit(), "frame commit");
  Require(encoder->Commit(), "commit");
  return BytesOf(stream.pointer);
}

}  // namespace tarvik::check
