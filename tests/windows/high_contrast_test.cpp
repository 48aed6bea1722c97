#include <algorithm>

#include "tests/windows/windows_fixture.h"

namespace tarvik::lab {
namespace {

/// A PC with a high-contrast scheme, light text on black. It has no theme (PcForTests), so that programs use
/// the scheme's colours.
class HighContrast : public WindowsTest<HighContrast> {
 public:
  static void PreparePc(WindowsPc& pc) {
    const auto colour = [&pc](const char* name, const char* value) {
      pc.Prefix().SetRegistryValue(WinePrefix::Hive::User, "Control Panel\\Colors", name,
                                   "\"" + std::string(value) + "\"");
    };
    for (const char* background : {"ButtonFace", "Window", "Menu", "MenuBar"}) colour(background, "0 0 0");
    for (const char* text : {"ButtonText", "WindowText", "MenuText"}) colour(text, "255 255 0");
    colour("Hilight", "0 128 0");
    colour("HilightText", "255 255 255");
    colour("GrayText", "0 255 0");
  }

 protected:
  /// The colours of a part of the screen, such as "#000000", the most frequent first.
  static std::vector<std::string> ColoursOf(const ScreenRect& part) {
    const TempDirectory folder(PcForTests().cacheFolder);
    const std::string picture = folder.Path() + "/part.png";
    Pc().Screen().Screenshot(picture, part);
    const Finished counted =
        lab::Run({"sh", "-c", "convert \"$1\" -depth 8 -alpha off -format %c histogram:info: | sort -rn",
                  "sh", picture});
    std::vector<std::string> colours;
    for (size_t at = 0; (at = counted.output.find("#", at)) != std::string::npos; ++at) {
      colours.push_back(counted.output.substr(at, 7));
    }
    return colours;
  }
  static bool Holds(const std::vector<std::string>& colours, const std::string& colour) {
    return std::find(colours.begin(), colours.end(), colour) != colours.end();
  }
};

TEST_F(HighContrast, Backgrounds_and_texts_have_the_colours_of_the_scheme) {
  const WindowUnderTest window = Start();
  window.BringToForeground();
  for (const int id : {ID_lblIPAddr, ID_cmbIPAddr, ID_lblPingReqCount, ID_txtPingReqCount, ID_cmdPing,
                       ID_lstResult, ID_sbrRungs}) {
    SCOPED_TRACE(id);
    const ScreenRect part = window.ClientRect(id);
    ASSERT_TRUE(WaitUntil(kSoon, [&] { return !ColoursOf(part).empty(); }));
    const std::vector<std::string> colours = ColoursOf(part);
    EXPECT_EQ(colours.front(), "#000000");
  }
  for (const int id : {ID_lblIPAddr, ID_lblPingReqCount, ID_cmdPing, ID_lstResult, ID_sbrRungs}) {
    SCOPED_TRACE(id);
    EXPECT_TRUE(Holds(ColoursOf(window.ClientRect(id)), "#FFFF00"));
  }
  // The last line is selected.
  EXPECT_TRUE(Holds(ColoursOf(window.ClientRect(ID_lstResult)), "#008000"));
}

TEST_F(HighContrast, The_explanation_has_the_colours_of_the_scheme) {
  const WindowUnderTest window = Start();
  window.Settle();
  window.Press("F1");
  const WindowUnderTest explain = Program().WaitForWindow("frmExplain");
  explain.BringToForeground();
  const ScreenRect part = explain.ClientRect(ID_txtExplanation);
  EXPECT_TRUE(WaitUntil(kSoon, [&] {
    const std::vector<std::string> colours = ColoursOf(part);
    return !colours.empty() && colours.front() == "#000000" && Holds(colours, "#FFFF00");
  }));
}

}  // namespace
}  // namespace tarvik::lab
