// Explain: what F1 and a click on a field of the status bar explain. Until the user moves the selection, F1
// is about the run: the program itself selects the last line, which is often empty.

#include "app/form1.h"
#include "app/rung_names.h"

namespace tarvik {

void Form1::WireExplain() {
  results_.onAdd = [this](const std::vector<std::wstring>& lines) {
    recorder_.AddLines(lines);
    // The list now selects its last line.
    selectedLine_ = -1;
    linesArePasted_ = false;
  };
  controls_.lstResult.onSelect = [this] {
    selectedLine_ = controls_.lstResult.SelectedIndex();
    selectedText_ = controls_.lstResult.Item(selectedLine_);
  };
  controls_.sbrRungs.onFieldClick = [this](int field) { ExplainField(field); };
  deps_.form.onBoxHelp = [this](const std::wstring& text) { ExplainBox(text); };
}

const report::Explanations& Form1::KnownExplanations() {
  if (explanations_ == nullptr) {
    explanations_ = std::make_unique<report::Explanations>();
    explanations_->Add(deps_.explanationText());
  }
  return *explanations_;
}

int Form1::LineSelectedByUser() const {
  const int line = controls_.lstResult.SelectedIndex();
  // Another program may have replaced the lines.
  const bool same = line >= 0 && line == selectedLine_ && controls_.lstResult.Item(line) == selectedText_;
  return same ? line : -1;
}

void Form1::Explain() {
  const int line = LineSelectedByUser();
  const report::Run& run = recorder_.run;
  const std::vector<std::wstring> lines = resultView_.Shown();
  // Neither findings nor numbers of this run belong to a pasted list, or to the lines of a run before it.
  const bool ofThisRun =
      line < 0 || (!linesArePasted_ && static_cast<size_t>(line) + run.lines.size() >= lines.size());
  const report::Run unknown;
  ShowExplanation(ofThisRun ? run : unknown, [&](const ExplainSubject& subject) {
    return line < 0 ? subject.Verdict() : subject.OfLine(lines, static_cast<size_t>(line));
  });
}

void Form1::ExplainField(int field) {
  const report::Rung rung = RungsOf(deps_.familyEdition).at(static_cast<size_t>(field));
  ShowExplanation(recorder_.run, [rung](const ExplainSubject& subject) { return subject.OfRung(rung); });
}

void Form1::ExplainBox(const std::wstring& text) {
  ShowExplanation(recorder_.run, [&](const ExplainSubject& subject) { return subject.OfBox(text); });
}

void Form1::ShowExplanation(
    const report::Run& run,
    const std::function<report::FoundExplanation(const ExplainSubject& subject)>& find) {
  const report::AnswerLanguage language = Language();
  const report::FoundExplanation found = find(ExplainSubject(KnownExplanations(), texts_, run, language));
  if (found.explanation == nullptr) return;
  if (explain_ == nullptr || explain_->Closed()) {
    // The old window is destroyed first: two windows cannot register the same class.
    explain_.reset();
    explain_ = std::make_unique<frmExplain>(NewForm(L"frmExplain"), deps_.form, controls_.lstResult);
    if (TestOptionMask(kTopmost)) explain_->MakeTopmost();
  }
  explain_->Show(report::Shown(found, run, language), language);
}

std::unique_ptr<ui::Form> Form1::NewForm(const wchar_t* windowClass) {
  std::unique_ptr<ui::Form> form = deps_.newForm(windowClass);
  form->onHelp = [this] { Explain(); };
  form->onBoxHelp = deps_.form.onBoxHelp;
  return form;
}

}  // namespace tarvik
