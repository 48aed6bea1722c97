#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "tests/unit/app/form1_fixture.h"
#include "tests/unit/resources/program_explanations.h"

namespace tarvik::test {

inline constexpr int16_t kExplainKey = 0x70;

inline std::string_view ProgramText() {
  static const std::string kText = [] {
    std::string text;
    for (const auto& file : ExplanationFiles()) text += BytesOf(file);
    return text;
  }();
  return kText;
}

/// The program with its own explanations, and what its Explain window shows.
class Form1ExplainTest : public Form1Test {
 protected:
  Form1ExplainTest() { explanationText = &ProgramText; }

  void Ping(const std::wstring& address, const std::wstring& count = L"4") {
    Address().Type(address);
    Box(ID_txtPingReqCount).SetText(count);
    Click(ID_cmdPing);
  }
  void PressF1() { EXPECT_TRUE(form.PressShortcut(kExplainKey, 0)); }
  void ClickField(int field) { form.Get<ui::MemoryStatusBar>(ID_sbrRungs).ClickField(field); }
  int LineOf(const std::wstring& line) {
    const auto found = std::find(List().lines.begin(), List().lines.end(), line);
    EXPECT_NE(found, List().lines.end());
    return static_cast<int>(found - List().lines.begin());
  }

  ui::MemoryTextView& View() { return lastForm->Get<ui::MemoryTextView>(ID_txtExplanation); }
  std::wstring Title() { return lastForm == nullptr ? L"" : View().paragraphs.at(0).text; }
  std::vector<std::wstring> Of(ui::ParagraphKind kind) {
    std::vector<std::wstring> texts;
    for (const ui::Paragraph& paragraph : View().paragraphs)
      if (paragraph.kind == kind) texts.push_back(paragraph.text);
    return texts;
  }
  bool Says(const std::wstring& text) { return View().Text().find(text) != std::wstring::npos; }

  /// What a finding's explanation says after its steps and facts.
  static std::wstring MeaningOf(report::Finding finding) {
    return ProgramExplanations().Of(finding).explanation->meaning.english;
  }
};

}  // namespace tarvik::test
