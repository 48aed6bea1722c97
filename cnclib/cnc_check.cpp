#include "cnclib/cnc_check.h"

#include <string_view>

#include "platform/fixed_buffer.h"
#include "platform/scope_guard.h"
#include "platform/text.h"

namespace tarvik {
namespace {

/// Option bit of "Extended drivers and libraries", without which the controller serves no library.
constexpr uint32_t kExtendedLibraries = 1;
constexpr int kNamedOptions = 7;
constexpr wchar_t kNoAccessCode[] = L"0";

/// Only the leading digits of a code count, so a code without digits is zero too.
bool CountsAsZero(const std::wstring& accessCode) {
  std::wstring_view digits = TrimSpaces(accessCode);
  digits = digits.substr(0, digits.find_first_not_of(L"0123456789"));
  return digits.find_first_not_of(L'0') == std::wstring_view::npos;
}

/// Makes one call of the library and records it. `context.recorder` first shows that it may block.
template <typename Call>
int16_t Recorded(const report::CheckContext& context, report::CncCall which, Call call) {
  report::CncFacts& facts = context.recorder.run.facts.cnc;
  facts.call = which;
  facts.result = 0;
  context.recorder.Changed();
  const uint64_t begin = context.recorder.Milliseconds();
  facts.result = call();
  facts.callMs = static_cast<uint32_t>(context.recorder.Milliseconds() - begin);
  return facts.result;
}

bool Connect(const report::CheckContext& context, CncConnection& connection, const std::wstring& accessCode) {
  int16_t result = Recorded(context, report::CncCall::Connect, [&] { return connection.Open(); });
  if (result == CncLibrary::kAccessCodeRefused) {
    result = Recorded(context, report::CncCall::ConnectWithCode,
                      [&] { return connection.OpenWithCode(accessCode); });
    if (result == CncLibrary::kAccessCodeRefused)
      context.boxes.Show(context.texts.FromFile(Message::AccessCodeWrong) + L"\r\n" +
                         context.texts.FromFile(Message::AccessCodeWrongHint));
  }
  if (result != 0) context.results.AddToList(L"Allocate Handle error=" + Decimal(result));
  return result == 0;
}

/// Adds the line of a failed call. Texts of the language files are shown without the code.
void ReportFailure(const report::CheckContext& context, Message message, int16_t code) {
  const std::wstring text = context.texts.GetOrEmpty(message);
  context.results.AddToList(context.texts.Mode() == kLanguageFile ? text : text + Decimal(code));
  context.results.AddToList(L"");
}

bool CheckOption(const report::CheckContext& context, CncLibrary& library, CncLibrary::Handle handle,
                 uint32_t& nxlibOptions) {
  int32_t reserved = 0;
  nxlibOptions = 0;  // the previous controller's options, in case the library does not set them
  const int16_t result = Recorded(context, report::CncCall::Options,
                                  [&] { return library.nx_getoptions1(handle, reserved, nxlibOptions); });
  if (result != 0) {
    ReportFailure(context, Message::OptionCheckError, result);
    return false;
  }
  if ((nxlibOptions & kExtendedLibraries) != 0) return true;
  context.recorder.run.facts.cnc.optionMissing = true;
  if (const auto text = context.texts.Get(Message::NoOption)) context.results.AddToList(*text);
  context.results.AddToList(L"");
  return false;
}

/// Returns the controller's type as listed.
std::wstring ShowSystemInfo(report::ResultList& results, CodePage& codePage, const CncSystemInfo& info) {
  const auto text = [&codePage](const auto& field) {
    return codePage.FromAnsi(TrimNull(std::string_view(field, sizeof field)));
  };
  std::wstring type = text(info.model_type);
  if (type == L"GL") type = L"31";
  type = std::wstring(TrimSpaces(type));
  std::wstring model;
  if (GetModelFromSysInfo(info.addinfo, model) && !model.empty()) type += L"i" + model;
  results.AddToList(L"CNC Type\t" + type);
  results.AddToList(L"M/T     \t" + text(info.machine_type));
  results.AddToList(L"Serise  \t" + text(info.series_code));
  results.AddToList(L"Version \t" + text(info.version_code));
  results.AddToList(L"Max Axes\t" + Decimal(info.max_axes));
  results.AddToList(L"Axes    \t" + text(info.axes_text));
  return type;
}

bool ReadSystemInfo(const report::CheckContext& context, CncLibrary& library, CodePage& codePage,
                    CncLibrary::Handle handle) {
  CncSystemInfo info;
  const int16_t result =
      Recorded(context, report::CncCall::SystemInfo, [&] { return library.nx_sysinfo(handle, info); });
  if (result != 0) {
    ReportFailure(context, Message::SystemInfoError, result);
    return false;
  }
  context.recorder.run.facts.cnc.type = ShowSystemInfo(context.results, codePage, info);
  return true;
}

}  // namespace

bool RunLibraryTest(const report::CheckContext& context, CncLibrary& library, CodePage& codePage,
                    const std::function<void(bool busy)>& setBusy, const CncTarget& target,
                    const std::optional<std::wstring>& accessCode, bool nxlibMissing,
                    uint32_t& nxlibOptions) {
  report::CncFacts& facts = context.recorder.run.facts.cnc;
  facts = {};
  facts.progress = report::Progress::Ended;
  facts.libraryMissing = nxlibMissing;
  if (nxlibMissing) return true;
  facts.addressMissing = target.address.empty();
  if (facts.addressMissing) return false;
  facts.codeGiven = accessCode.has_value();
  if (accessCode && CountsAsZero(*accessCode)) {
    facts.codeMissing = true;
    context.recorder.Changed();
    context.boxes.Show(context.texts.FromFile(Message::AccessCodeMissing));
    return false;
  }
  setBusy(true);
  const ScopeGuard endBusy([&] { setBusy(false); });
  facts.progress = report::Progress::Running;
  facts.port = ParseInt16(target.port.text).value_or(0);
  facts.timeOutSeconds = ParseInt16(target.timeOut.text).value_or(0);
  context.recorder.Changed();
  context.results.AddToList(L"");
  context.results.AddToList(L"Get System Information test....");
  context.pump.LetEventsRun();
  // Connecting can block for the whole time-out, so this is the last chance to stop without a wait.
  if (context.pump.StopRequested()) {
    facts.progress = report::Progress::Stopped;
    return false;
  }
  CncConnection connection(library, codePage, target);
  const bool passed = Connect(context, connection, accessCode.value_or(kNoAccessCode)) &&
                      CheckOption(context, library, connection.Handle(), nxlibOptions) &&
                      ReadSystemInfo(context, library, codePage, connection.Handle());
  facts.progress = report::Progress::Ended;
  context.recorder.Changed();
  return passed;
}

bool GetModelFromSysInfo(int16_t nAddinfo, std::wstring& sModel) {
  constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  const auto generation = static_cast<size_t>(nAddinfo < 1 ? 0 : nAddinfo / 256);
  if (generation == 0)
    sModel.clear();
  else if (generation <= kLetters.size())
    sModel = kLetters[generation - 1];
  else
    sModel = L"(" + Decimal(nAddinfo) + L")";
  return true;
}

void DisplayNexal1Options(report::ResultList& results, const Texts& texts, bool nxlibMissing,
                          uint32_t nxlibOptions) {
  if (nxlibMissing) return;
  const auto add = [&](Message message) { results.AddToList(texts.GetOrEmpty(message)); };
  for (int bit = 0; bit < kNamedOptions; ++bit)
    if ((nxlibOptions >> bit & 1) != 0) add(static_cast<Message>(static_cast<int>(Message::Option0) + bit));
  if (nxlibOptions == 0) add(Message::OptionNone);
}

}  // namespace tarvik
