// The report: gathers what it says, copies it and saves it.

#include <algorithm>
#include <utility>

#include "about/os_version_info.h"
#include "app/form1.h"
#include "app/report_file.h"
#include "platform/scope_guard.h"
#include "platform/text.h"
#include "report/answer.h"
#include "report/copied_report.h"
#include "report/saved_report.h"
#include "resources/version.h"

namespace tarvik {
namespace {

std::wstring TimeZoneText(std::optional<int32_t> minutesEast) {
  if (!minutesEast) return {};
  const int32_t minutes = *minutesEast < 0 ? -*minutesEast : *minutesEast;
  return (*minutesEast < 0 ? L"UTC-" : L"UTC+") + ZeroPadded(minutes / 60, 2) + L":" +
         ZeroPadded(minutes % 60, 2);
}

}  // namespace

const std::vector<std::wstring>& Form1::LibraryVersions() {
  if (!libraryVersions_.empty()) return libraryVersions_;
  FileUtil files(deps_.kernel, deps_.version);
  for (const FoundModule& module : foundModules_)
    libraryVersions_.push_back(module.name + L" " +
                               files.mGetFileVersionInfoString(module.path).value_or(L"-"));
  for (const std::wstring& name : notFoundModules_)
    libraryVersions_.push_back(name + (TextsAreJapanese() ? L" なし" : L" not found"));
  return libraryVersions_;
}

report::ReportSource Form1::MakeReportSource(const report::Run& run, const report::Answer& answer) {
  const ZonedTime now = deps_.system.LocalTime();
  std::wstring edition = sizeof(void*) == 4 ? L"32-bit" : L"64-bit";
  if (!deps_.familyEdition) edition = (TextsAreJapanese() ? L"一般版、" : L"general edition, ") + edition;
  std::vector<std::wstring> secrets = secrets_;
  secrets.push_back(deps_.system.UserName());
  std::erase(secrets, std::wstring());
  const ServiceEntry k7 = deps_.familyEdition ? ServiceEntry() : ReadK7Entry();
  return {
      .run = run,
      .answer = answer,
      .language = Language(),
      .program = std::wstring(report::kProgramTitle) + L" " + Decimal(TARVIK_VERSION_MAJOR) + L"." +
                 Decimal(TARVIK_VERSION_MINOR),
      .edition = std::move(edition),
      .windows = OsVersionInfo(deps_.system).GetVersionName(),
      .timeZone = TimeZoneText(now.minutesEast),
      .libraries = LibraryVersions(),
      .k7UdpPort = k7.NameExist && k7.PortNoExist ? Decimal(k7.PortNo) : std::wstring(),
      .made = {now.year, now.month, now.day, now.hour, now.minute},
      .explanations = &KnownExplanations(),
      .texts = &texts_,
      .secrets = std::move(secrets),
  };
}

void Form1::KeepSecrets() {
  for (const ui::TextBox* const box : {&controls_.txtFtpUsername, &controls_.txtFtpPasswd})
    if (std::ranges::count(secrets_, box->Text()) == 0) secrets_.push_back(box->Text());
}

void Form1::CopyReport() {
  const report::Answer answer = report::AnswerOf(recorder_.run, Language());
  deps_.clipboard.SetText(report::CopiedReport(MakeReportSource(recorder_.run, answer)));
  ShowBriefly(TextsAreJapanese() ? L"レポートをコピーしました" : L"Report copied");
}

std::wstring Form1::FolderForReports() {
  // Otherwise the dialog could wait for a server that the broken network does not reach.
  for (const std::wstring& folder : {reportFolder_, deps_.system.FolderOf(UserFolder::Desktop),
                                     deps_.system.FolderOf(UserFolder::PublicDocuments)})
    if (deps_.files.IsLocalFolder(folder)) return folder;
  return {};
}

void Form1::SaveReport() {
  if (saving_) return;
  saving_ = true;
  const ScopeGuard end([this] { saving_ = false; });
  const report::AnswerLanguage language = Language();
  // A copy: until the dialog is visible, the window can be used, for example to type another address.
  const report::Run run = recorder_.run;
  const report::Answer answer = report::AnswerOf(run, language);
  const report::ReportSource source = MakeReportSource(run, answer);
  const auto chosen =
      deps_.form.AskWhereToSave(ReportPrompt(FolderForReports(), report::ReportFileName(source), language));
  if (!chosen) return;
  const ReportPlace place = PlaceOfReport(*chosen);
  if (place.appended && deps_.files.Exists(place.path) &&
      !deps_.form.Boxes().AskYesNo(ReplaceQuestion(FileNameOf(place.path), language), true, {}))
    return;
  const std::string bytes =
      place.kind == ReportKind::Html ? report::SavedReportHtml(source) : report::SavedReportText(source);
  if (const uint32_t error = SaveSafely(deps_.files, place.path, bytes); error != 0) {
    deps_.form.Boxes().Show(SaveFailureText(error, language), report::BoxIcon::Exclamation);
    return;
  }
  if (deps_.files.IsLocalFolder(FolderOf(place.path))) reportFolder_ = FolderOf(place.path);
  ShowBriefly((TextsAreJapanese() ? L"保存しました：" : L"Saved: ") + FileNameOf(place.path));
}

}  // namespace tarvik
