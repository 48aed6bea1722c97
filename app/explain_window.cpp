#include "app/explain_window.h"

#include <algorithm>
#include <string>
#include <utility>

#include "app/control_ids.h"
#include "ui/form_layout.h"

namespace tarvik {
namespace {

// In line heights of the message font.
constexpr int kDesignWidth = 32;
constexpr int kDesignHeight = 36;
constexpr int kMinExplainWidth = 20;
constexpr int kMinExplainHeight = 12;

struct Words {
  const wchar_t* english;
  const wchar_t* japanese;

  const wchar_t* In(report::AnswerLanguage language) const {
    return language == report::AnswerLanguage::Japanese ? japanese : english;
  }
};
constexpr Words kCaption{L"Explanation - Tarvik", L"説明 - Tarvik"};
constexpr Words kDoNow{L"Do this now", L"今すること"};
constexpr Words kMeaning{L"What it means", L"意味"};
constexpr Words kGood{L"Good so far", L"ここまで良好"};
constexpr Words kAsk{L"Who else to ask", L"他の問い合わせ先"};

/// The title, and the sections that are not empty, under their headings.
std::vector<ui::Paragraph> ParagraphsOf(const report::ShownExplanation& explanation,
                                        report::AnswerLanguage language) {
  std::vector<ui::Paragraph> text = {{ui::ParagraphKind::Title, explanation.title}};
  const auto add = [&](const Words& heading, ui::ParagraphKind kind, std::vector<std::wstring> section) {
    std::erase(section, std::wstring());
    if (!section.empty()) text.push_back({ui::ParagraphKind::Heading, heading.In(language)});
    for (std::wstring& paragraph : section) text.push_back({kind, std::move(paragraph)});
  };
  add(kDoNow, ui::ParagraphKind::Step, explanation.steps);
  add(kMeaning, ui::ParagraphKind::Text, {explanation.facts, explanation.meaning});
  add(kGood, ui::ParagraphKind::Text, {explanation.good});
  add(kAsk, ui::ParagraphKind::Text, {explanation.ask});
  // A paragraph is one line: the user and the language files may have typed line breaks.
  for (ui::Paragraph& paragraph : text)
    std::ranges::replace_if(
        paragraph.text, [](wchar_t letter) { return letter < L' '; }, L' ');
  return text;
}

}  // namespace

frmExplain::frmExplain(std::unique_ptr<ui::Form> form, const ui::Form& mainForm, const ui::Control& list)
    : form_(std::move(form)), txtExplanation(form_->AddTextView(ID_txtExplanation)) {
  form_->onResize = [this] { Form_Resize(); };
  form_->onScalingChanged = [this] { Form_ScalingChanged(); };
  form_->onEscape = [this] { form_->Close(); };
  form_->onUnload = [this] { closed_ = true; };
  form_->errorsInCaption = true;
  const int line = form_->LineHeight();
  form_->SetMinimumWindowSize(MinimumSize());
  form_->SetWindowSize(ui::MinWindowSizeFor(*form_, {kDesignWidth * line, kDesignHeight * line}));
  form_->PlaceBeside(mainForm, list);
  Form_Resize();
}

void frmExplain::Show(const report::ShownExplanation& explanation, report::AnswerLanguage language) {
  form_->SetCaption(kCaption.In(language));
  txtExplanation.SetParagraphs(ParagraphsOf(explanation, language));
  form_->SetEnabled(true);
  form_->Show();
}

ui::Size frmExplain::MinimumSize() const {
  const int line = form_->LineHeight();
  return ui::MinWindowSizeFor(*form_, {kMinExplainWidth * line, kMinExplainHeight * line});
}

void frmExplain::Form_Resize() {
  const ui::Size client = form_->ClientSize();
  txtExplanation.SetBounds({0, 0, client.width, client.height});
}

void frmExplain::Form_ScalingChanged() {
  const ui::Size window = form_->WindowSize();
  const ui::Size minimum = MinimumSize();
  const ui::Size room = form_->WorkArea();
  form_->SetMinimumWindowSize(minimum);
  form_->SetWindowSize({std::clamp(window.width, minimum.width, std::max(minimum.width, room.width)),
                        std::clamp(window.height, minimum.height, std::max(minimum.height, room.height))});
  Form_Resize();
}

}  // namespace tarvik
