// The answer: what a run means, as one sentence above the result list and a mark for each rung in the status
// bar.

#include "app/form1.h"
#include "app/rung_names.h"
#include "platform/runtime_error.h"
#include "platform/scope_guard.h"
#include "platform/text.h"
#include "report/answer.h"
#include "report/error_text.h"

namespace tarvik {
namespace {

constexpr int kBriefMs = 3000;

}  // namespace

bool Form1::Recorded(const std::vector<report::Rung>& rungs, const std::function<bool()>& routine) {
  recorder_.Begin(controls_.cmbIPAddr.Text(), rungs, ReadRunSettings(), deps_.system.GeneralDateTime());
  KeepSecrets();
  report::RunEnd end = report::RunEnd::Error;
  const ScopeGuard ended([&] {
    // An address edited during the run keeps the answer until the next edit, or it would never be seen.
    const ZonedTime now = deps_.system.LocalTime();
    recorder_.End(end, deps_.system.GeneralDateTime(), {now.year, now.month, now.day, now.hour, now.minute});
  });
  bool passed = false;
  try {
    passed = routine();
  } catch (const RuntimeError& error) {
    // The error dialog opens when the run has ended.
    recorder_.ErrorShown(report::ErrorText(error, texts_));
    throw;
  }
  end = deps_.pump.StopRequested() ? report::RunEnd::Stopped : report::RunEnd::Finished;
  return passed;
}

report::RunSettings Form1::ReadRunSettings() const {
  report::RunSettings settings;
  settings.pingCount = controls_.txtPingReqCount.Text();
  settings.libraryPort = controls_.txtTcpPortNo.Text();
  settings.libraryTimeOut = controls_.txtNxlibTimeOut.Text();
  settings.k7Count = controls_.txtK7ApiTestCount.Text();
  settings.k7Server = commandLine_.k7ServerHost;
  settings.accessCodeSet = controls_.chkAccessCode.Checked() && !controls_.txtAccessCode.Text().empty();
  settings.ftpUserSet = !controls_.txtFtpUsername.Text().empty();
  settings.ftpPasswordSet = !controls_.txtFtpPasswd.Text().empty();
  settings.options = optionMask_.Bits();
  settings.generalEdition = !deps_.familyEdition;
  settings.nexalPage = controls_.tabMode.PageOn(kNexalPage);
  settings.k7ServicePage = controls_.tabMode.PageOn(kK7SvcPage);
  return settings;
}

void Form1::cmbIPAddr_Change(const std::wstring& text) {
  if (text != recorder_.run.target) recorder_.Forget();
}

void Form1::ShowSentence(const std::wstring& sentence) {
  deps_.form.StopTimer(kBriefTimer);
  // Screen readers announce each change, so the same sentence is not set again.
  if (controls_.lblAnswer.Caption() != sentence) controls_.lblAnswer.SetCaption(sentence);
}

void Form1::ShowAnswer() {
  const report::AnswerLanguage language = Language();
  const report::Answer answer = report::AnswerOf(recorder_.run, language);
  try {
    ShowSentence(answer.sentence);
  } catch (const RuntimeError&) {
    // A run must not end because its sentence cannot be shown.
  }
  int field = 0;
  for (const report::Rung rung : RungsOf(deps_.familyEdition)) {
    const report::RungFinding& finding = answer.Of(rung);
    const std::wstring text =
        report::NameOf(rung, language) + std::wstring(L" ") + report::MarkOf(finding.state, language);
    if (controls_.sbrRungs.FieldText(field) != text || controls_.sbrRungs.FieldWhole(field) != finding.text)
      controls_.sbrRungs.SetField(field, text, finding.text);
    ++field;
  }
}

void Form1::ShowBriefly(const std::wstring& text) {
  ShowSentence(text);
  deps_.form.StartTimer(kBriefTimer, kBriefMs, [this] { ShowAnswer(); });
}

void Form1::ShowCopied(size_t lines) {
  const std::wstring count = Decimal(static_cast<int64_t>(lines));
  ShowBriefly(TextsAreJapanese() ? count + L"行をコピーしました"
                                 : count + (lines == 1 ? L" line copied" : L" lines copied"));
}

}  // namespace tarvik
