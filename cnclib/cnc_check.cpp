#include "cnclib/cnc_check.h"

#include <string_view>

#include "platform/fixed_buffer.h"
#include "platform/text.h"
#include "ui/hourglass.h"

namespace tarvik {
namespace {

/// "Extended drivers and libraries", without which the controller serves no library.
constexpr uint32_t kExtendedLibraries = 1;
constexpr int kNamedOptions = 7;
constexpr wchar_t kNoAccessCode[] = L"0";

std::wstring TextOf(const LibraryTestTools& tools, Message message) {
  return tools.texts.Get(message).value_or(std::wstring());
}

/// A code counts as a number as far as it consists of digits.
bool CountsAsZero(const std::wstring& accessCode) {
  std::wstring_view digits = TrimBlanks(accessCode);
  digits = digits.substr(0, digits.find_first_not_of(L"0123456789"));
  return digits.find_first_not_of(L'0') == std::wstring_view::npos;
}

bool Connect(const LibraryTestTools& tools, const CncTarget& target, const std::wstring& accessCode,
             CncConnection& connection) {
  int16_t result = connection.Open(target);
  if (result == CncLibrary::kAccessCodeRefused) {
    result = connection.OpenWithCode(target, accessCode);
    if (result == CncLibrary::kAccessCodeRefused)
      tools.boxes.Show(tools.texts.FromFile(Message::AccessCodeWrong) + L"\r\n" +
                       tools.texts.FromFile(Message::AccessCodeWrongHint));
  }
  if (result != 0) tools.results.AddToList(L"Allocate Handle error=" + Decimal(result));
  return result == 0;
}

/// The line of a call that failed. The language files' texts stand without the code.
void ReportFailure(const LibraryTestTools& tools, Message message, int16_t code) {
  const std::wstring text = TextOf(tools, message);
  tools.results.AddToList(tools.texts.Mode() == kLanguageFile ? text : text + Decimal(code));
  tools.results.AddToList(L"");
}

bool CheckOption(const LibraryTestTools& tools, CncLibrary::Handle handle, uint32_t& nxlibOptions) {
  int32_t reserved = 0;
  nxlibOptions = 0;  // an answer that the library forgets must not be that of another controller
  if (const int16_t result = tools.library.nx_getoptions1(handle, reserved, nxlibOptions); result != 0) {
    ReportFailure(tools, Message::OptionCheckError, result);
    return false;
  }
  if ((nxlibOptions & kExtendedLibraries) != 0) return true;
  if (const auto text = tools.texts.Get(Message::NoOption)) tools.results.AddToList(*text);
  tools.results.AddToList(L"");
  return false;
}

void ShowSystemInfo(const LibraryTestTools& tools, const CncSystemInfo& info) {
  const auto text = [&tools](const auto& field) {
    return tools.codePage.FromAnsi(TrimNull(std::string_view(field, sizeof field)));
  };
  std::wstring type = text(info.model_type);
  if (type == L"GL") type = L"31";
  type = std::wstring(TrimBlanks(type));
  std::wstring model;
  if (GetModelFromSysInfo(info.addinfo, model) && !model.empty()) type += L"i" + model;
  tools.results.AddToList(L"CNC Type\t" + type);
  tools.results.AddToList(L"M/T     \t" + text(info.machine_type));
  tools.results.AddToList(L"Serise  \t" + text(info.series_code));
  tools.results.AddToList(L"Version \t" + text(info.version_code));
  tools.results.AddToList(L"Max Axes\t" + Decimal(info.max_axes));
  tools.results.AddToList(L"Axes    \t" + text(info.axes_text));
}

bool ReadSystemInfo(const LibraryTestTools& tools, CncLibrary::Handle handle) {
  CncSystemInfo info;
  if (const int16_t result = tools.library.nx_sysinfo(handle, info); result != 0) {
    ReportFailure(tools, Message::SystemInfoError, result);
    return false;
  }
  ShowSystemInfo(tools, info);
  return true;
}

}  // namespace

bool RunLibraryTest(const LibraryTestTools& tools, const CncTarget& target,
                    const std::optional<std::wstring>& accessCode, bool nxlibMissing,
                    uint32_t& nxlibOptions) {
  if (nxlibMissing) return true;
  if (target.address.empty()) return false;
  if (accessCode && CountsAsZero(*accessCode)) {
    tools.boxes.Show(tools.texts.FromFile(Message::AccessCodeMissing));
    return false;
  }
  const ui::Hourglass hourglass(tools.form);
  tools.results.AddToList(L"");
  tools.results.AddToList(L"Get System Information test....");
  tools.pump.LetEventsRun();
  // What follows blocks; who has asked to stop should not have to sit a time-out through.
  if (tools.pump.StopRequested()) return false;
  CncConnection connection(tools.library, tools.codePage);
  return Connect(tools, target, accessCode.value_or(kNoAccessCode), connection) &&
         CheckOption(tools, connection.Handle(), nxlibOptions) && ReadSystemInfo(tools, connection.Handle());
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

void DisplayNexal1Options(ResultList& results, const Texts& texts, bool nxlibMissing, uint32_t nxlibOptions) {
  if (nxlibMissing) return;
  const auto add = [&](Message message) { results.AddToList(texts.Get(message).value_or(std::wstring())); };
  for (int bit = 0; bit < kNamedOptions; ++bit)
    if ((nxlibOptions >> bit & 1) != 0) add(static_cast<Message>(static_cast<int>(Message::Option0) + bit));
  if (nxlibOptions == 0) add(Message::OptionNone);
}

}  // namespace tarvik
