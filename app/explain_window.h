#pragma once

#include <memory>

#include "report/explanation_facts.h"
#include "report/finding_texts.h"
#include "ui/form.h"

namespace tarvik {

/// The Explain window: what a line, a message or a mark means, and what to do now. It is modeless, so that it
/// can be read next to the machine while a test runs.
class frmExplain {
 public:
  /// `form`: a new window. It is placed next to `mainForm`, where it covers as little as possible of `list`.
  frmExplain(std::unique_ptr<ui::Form> form, const ui::Form& mainForm, const ui::Control& list);
  frmExplain(const frmExplain&) = delete;
  frmExplain& operator=(const frmExplain&) = delete;

  /// Replaces the text and brings the window to the front. During a message box, the window can be used from
  /// then on.
  void Show(const report::ShownExplanation& explanation, report::AnswerLanguage language);
  void MakeTopmost() { form_->MakeTopmost(); }
  void SetPointer(ui::Pointer pointer) { form_->SetPointer(pointer); }

  /// True once the user has closed the window. A closed window cannot be shown again.
  bool Closed() const { return closed_; }

 private:
  void Form_Resize();
  void Form_ScalingChanged();
  ui::Size MinimumSize() const;

  std::unique_ptr<ui::Form> form_;
  ui::TextView& txtExplanation;
  bool closed_ = false;
};

}  // namespace tarvik
