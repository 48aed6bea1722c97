// The about box. Its texts are fixed when it is created; only the layout follows the scaling.

#include "about/about_box.h"

#include <algorithm>
#include <utility>

#include "about/os_version_info.h"
#include "about/system_information.h"
#include "app/control_ids.h"
#include "platform/text.h"
#include "resources/version.h"
#include "ui/form_layout.h"

namespace tarvik {
namespace {

/// Empty: no edition has a description today.
constexpr wchar_t kExtraDescription[] = L"";

constexpr ProgramVersion kThisProgram{TARVIK_VERSION_MAJOR, TARVIK_VERSION_MINOR, TARVIK_VERSION_PATCH,
                                      TARVIK_VERSION_BUILD};

constexpr int kMinBoxWidthInLines = 22;
constexpr size_t kMaxLineCharacters = 120;

/// The report with long lines wrapped, because paths can be longer than a window should be wide, and with
/// each "&" doubled, because a label would take it as a mnemonic.
std::wstring ForLabel(const std::wstring& report) {
  std::wstring text;
  size_t column = 0;
  for (size_t i = 0; i < report.size(); ++i) {
    const wchar_t letter = report[i];
    const bool lineEnds = letter == L'\n' || report.compare(i, 2, L"\r\n") == 0;
    if (!lineEnds && column >= kMaxLineCharacters) {
      text += L"\r\n";
      column = 0;
    }
    column = letter == L'\n' ? 0 : column + 1;
    text += letter;
    if (letter == L'&') text += letter;
  }
  while (text.ends_with(L'\n') || text.ends_with(L'\r')) text.pop_back();
  return text;
}

}  // namespace

std::wstring VersionText(const ProgramVersion& version) {
  return L"Version " + Decimal(version.first) + L"." + Decimal(version.second) + L"." +
         Decimal(version.fourth);
}

std::wstring AboutTitle(const std::wstring& extraDescription) {
  const std::wstring title = report::kProgramTitle;
  return extraDescription.empty() ? title : title + L"(" + extraDescription + L")";
}

frmAbout::frmAbout(std::unique_ptr<ui::Form> form, const Texts& texts, System& system, Processes& processes,
                   const std::wstring& versionReport, const std::wstring& missingReport)
    : form_(std::move(form)),
      system_(system),
      processes_(processes),
      cmdOK(form_->AddButton(ID_cmdOK, ui::kNoPage, L"OK")),
      cmdSysInfo(form_->AddButton(ID_cmdSysInfo, ui::kNoPage, texts.GetOrEmpty(Message::SystemInfoButton))),
      lblTitle(form_->AddLabel(ID_lblTitle, ui::kNoPage, AboutTitle(kExtraDescription))),
      lblVersion(form_->AddLabel(ID_lblVersion, ui::kNoPage, VersionText(kThisProgram))),
      lblOsVersion(form_->AddLabel(ID_lblOsVersion, ui::kNoPage, OsVersionInfo(system).GetVersionName())),
      lblModules(form_->AddLabel(ID_lblModules, ui::kNoPage, ForLabel(versionReport))) {
  form_->SetCaption(std::wstring(report::kProgramTitle) + L" Version Information");
  form_->FixSize();
  if (!missingReport.empty())
    lblMissing = &form_->AddLabel(ID_lblMissing, ui::kNoPage, ForLabel(missingReport));
  LayOut();
  form_->onScalingChanged = [this] { LayOut(); };
  form_->onEscape = [this] { cmdOK_Click(); };
  form_->onUnload = [this] { closed_ = true; };
  cmdOK.onClick = [this] { cmdOK_Click(); };
  cmdSysInfo.onClick = [this] { cmdSysInfo_Click(); };
}

void frmAbout::LayOut() {
  const auto [gap, margin] = ui::SpacingOf(*form_);
  std::vector<ui::BoxPtr> rows = ui::Boxed(
      ui::Column(gap,
                 ui::Boxed(ui::Captioned(lblTitle), ui::Captioned(lblVersion), ui::Captioned(lblOsVersion))),
      ui::Captioned(lblModules));
  if (lblMissing != nullptr) rows.push_back(ui::Captioned(*lblMissing));
  rows.push_back(ui::Row(gap, ui::Boxed(ui::Filler(), ui::Captioned(cmdOK), ui::Captioned(cmdSysInfo))));
  const ui::BoxPtr all = ui::Column(2 * margin, std::move(rows));
  const ui::Size needed = all->Measure();
  const int width = std::max(needed.width, kMinBoxWidthInLines * form_->LineHeight());
  all->Place({2 * margin, 2 * margin, width, needed.height});
  form_->SetWindowSize(ui::WindowSizeFor(*form_, {width + 4 * margin, needed.height + 4 * margin}));
}

void frmAbout::cmdOK_Click() { form_->Close(); }

void frmAbout::cmdSysInfo_Click() { StartSysInfo(system_, processes_, form_->Boxes()); }

}  // namespace tarvik
