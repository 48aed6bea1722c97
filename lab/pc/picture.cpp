#include "lab/pc/picture.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <utility>

namespace tarvik::lab {
namespace {

constexpr ScreenRect kPlace = {24, 40, 0, 0};

std::string PictureBytes(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// A LOGFONTW in the notation of .reg files: that many pixels high at 96 dpi, normal weight, any character
/// set.
std::string FontValue(int pixels, const std::string& face) {
  constexpr size_t kFaceAt = 28;
  std::array<unsigned char, 92> record{};
  for (size_t i = 0; i < 4; ++i)
    record.at(i) = static_cast<unsigned char>(static_cast<unsigned>(-pixels) >> 8 * i);
  record[16] = 400 % 256;
  record[17] = 400 / 256;
  record[23] = 1;  // DEFAULT_CHARSET
  for (size_t i = 0; i < face.size(); ++i) record.at(kFaceAt + 2 * i) = static_cast<unsigned char>(face[i]);
  std::string value = "hex:";
  for (const unsigned char byte : record) {
    std::array<char, 4> text{};
    std::snprintf(text.data(), text.size(), "%02x,", byte);
    value += text.data();
  }
  value.pop_back();
  return value;
}

}  // namespace

WindowsPc::Options PictureOptions(WindowsPc::Options options, WindowsLanguage language, int dpi) {
  options.language = language;
  options.dpi = dpi;
  if (language == WindowsLanguage::Japanese) options.environment["TARVIK_BENCH_LANGUAGE"] = "1041";
  return options;
}

void PrepareForPictures(WindowsPc& pc, WindowsLanguage language) {
  const auto user = [&pc](const char* key, const char* name, const std::string& text) {
    pc.Prefix().SetRegistryValue(WinePrefix::Hive::User, key, name, "\"" + text + "\"");
  };
  // What a PC with Windows has and Debian does not: the faces of the result list and of Japanese windows.
  constexpr char kReplacements[] = "Software\\Wine\\Fonts\\Replacements";
  user(kReplacements, "Consolas", "DejaVu Sans Mono");
  user(kReplacements, "MS Gothic", "IPAGothic");
  user(kReplacements, "MS UI Gothic", "IPAPGothic");
  user("Control Panel\\Desktop", "CursorBlinkRate", "-1");
  // Wine's own Tahoma is not smoothed, and a gamma of 0, its default, makes smoothed text pale.
  pc.Prefix().SetRegistryValue(WinePrefix::Hive::User, "Control Panel\\Desktop", "FontSmoothingGamma",
                               "dword:00000578");
  if (language == WindowsLanguage::English)
    pc.Prefix().SetRegistryValue(WinePrefix::Hive::User, "Control Panel\\Desktop\\WindowMetrics",
                                 "MessageFont", FontValue(11, "DejaVu Sans"));
  // Wine may leave a tab highlighted that the pointer has left, so it never enters one.
  pc.ParkPointer();
}

void PoseForPicture(const WindowUnderTest& window, int focus) {
  window.Settle();
  const ScreenRect outer = window.Rect(0);
  window.Move({kPlace.left, kPlace.top, outer.width, outer.height});
  window.BringToForeground();
  window.SetFocus(focus);
  window.Settle();
}

void TakePicture(const WindowsPc& pc, const std::string& path, const ScreenRect& part) {
  // The program may still draw.
  std::string before;
  const bool still = WaitUntil(kSoon, [&] {
    pc.Screen().Screenshot(path, part);
    const std::string last = std::exchange(before, PictureBytes(path));
    return before == last;
  });
  if (!still) throw LabError(path + ": the window does not stop changing");
  RunOrThrow({"convert", path, "-dither", "None", "-colors", "32", "-strip", "-define",
              "png:exclude-chunks=date,time", "PNG8:" + path});
}

std::optional<int> DifferentPixels(const std::string& picture, const std::string& expected,
                                   const std::string& difference) {
  const Finished compared = Run({"compare", "-metric", "AE", "-fuzz", "12%", expected, picture, difference});
  // 0: equal; 1: different; 2: not comparable.
  if (compared.exitCode == 2 && compared.output.find("differ") != std::string::npos) return std::nullopt;
  if (compared.exitCode > 1) throw LabError(compared.output);
  return static_cast<int>(std::strtod(compared.output.c_str(), nullptr));
}

}  // namespace tarvik::lab
