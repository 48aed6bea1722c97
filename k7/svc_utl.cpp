#include "k7/svc_utl.h"

#include <utility>

#include "platform/text.h"

namespace tarvik {

/// A text in both languages of SvcUtl. These texts are not in the language files.
struct ServiceWording {
  const wchar_t* english;
  const wchar_t* japanese;
};

/// Title, text and pErrCode of a failed call. The service's name follows the English text and precedes the
/// Japanese one.
struct ServiceFailure {
  ServiceWording title;
  ServiceWording text;
  int16_t code;
};

namespace {

constexpr wchar_t kLibrary[] = L"SvcKit.DLL";

/// The library's code for a service that it does not know. It has no state and needs no removal, so neither
/// query nor removal counts as failed.
constexpr auto kUnknownService = static_cast<int32_t>(0x80000124);

constexpr ServiceWording kConfirming{L"Confirming System Service", L"サービスの動作確認"};
constexpr ServiceWording kAdding{L"Adding System Service", L"サービスの登録"};
constexpr ServiceWording kRemoving{L"Removing System Service", L"サービスの削除"};
constexpr ServiceWording kNoLibrary{L"SvcKit.DLL not Exist", L"SvcKit.DLLがありません"};
constexpr ServiceWording kNoStatus{L"Can't get status information of ", L" の動作状態の確認に失敗しました"};
constexpr ServiceWording kCannotStop{L"Can't stop ", L" の停止に失敗しました"};

constexpr ServiceFailure kStatusFailure{kConfirming, kNoStatus, 1};
constexpr ServiceFailure kStartFailure{
    {L"Starting System Service", L"サービスの開始"}, {L"Can't Start ", L" の開始に失敗しました"}, 1};
constexpr ServiceFailure kStopFailure{{L"Stopping System Service", L"サービスの終了"}, kCannotStop, 2};
constexpr ServiceFailure kInstallFailure{kAdding, {L"Can't install ", L" の登録に失敗しました"}, 1};
constexpr ServiceFailure kFirstStartFailure{kAdding, {L"Can't start ", L" の開始に失敗しました"}, 2};
constexpr ServiceFailure kRemovalStatusFailure{kRemoving, kNoStatus, 1};
constexpr ServiceFailure kRemovalStopFailure{kRemoving, kCannotStop, 2};
constexpr ServiceFailure kRemovalFailure{kRemoving, {L"Can't remove ", L" の削除に失敗しました"}, 2};

std::wstring Quoted(const std::wstring& name) { return L"\"" + name + L"\""; }

}  // namespace

SvcUtl::~SvcUtl() {
  if (initialized_) boxes_.Show(L"SvcUtl is not Terminated");
}

const wchar_t* SvcUtl::In(const ServiceWording& wording) const {
  return langId_ == pLangJapanese ? wording.japanese : wording.english;
}

Boolean16 SvcUtl::Fail(const ServiceWording& title, std::wstring text, int16_t code) {
  errMsg_ = std::move(text);
  errCode_ = code;
  if (dispErrMsgBox_) boxes_.Show(errMsg_, report::BoxIcon::Exclamation, In(title));
  return false;
}

Boolean16 SvcUtl::Fail(const ServiceFailure& failure, const std::wstring& serviceName, int32_t result) {
  const std::wstring what = langId_ == pLangJapanese
                                ? serviceName + failure.text.japanese + L" Err=0x"
                                : failure.text.english + Quoted(serviceName) + L". Err=0x";
  return Fail(failure.title, what + Hexadecimal(static_cast<uint32_t>(result)), failure.code);
}

void SvcUtl::PauseAfterChange() {
  if (sleepRegistToStart_ > 0) pump_.Sleep(static_cast<uint32_t>(sleepRegistToStart_));
}

Boolean16 SvcUtl::mInitialize(int32_t langId) {
  langId_ = langId;
  initialized_ = files_.mSearchPath(kLibrary).has_value();
  if (!initialized_) Fail(kConfirming, In(kNoLibrary), 1);
  return initialized_;
}

Boolean16 SvcUtl::mTerminate() {
  initialized_ = false;
  return true;
}

Boolean16 SvcUtl::Query(const ServiceFailure& failure, const std::wstring& serviceName, int32_t& status) {
  int32_t answer = status;
  const std::string name = codePage_.ToAnsi(serviceName);
  const int32_t result = library_.QSetup_GetServiceStatus(name.c_str(), answer, SvcKit::kWait);
  if (result != 0 && result != kUnknownService) return Fail(failure, serviceName, result);
  status = answer;
  return true;
}

Boolean16 SvcUtl::mGetServiceStatus(const std::wstring& serviceName, int32_t& status) {
  return Query(kStatusFailure, serviceName, status);
}

Boolean16 SvcUtl::mStartStopService(const std::wstring& serviceName, Boolean16 start) {
  const std::string name = codePage_.ToAnsi(serviceName);
  const int32_t result = start ? library_.QSetup_StartService(name.c_str(), SvcKit::kWait)
                               : library_.QSetup_StopService(name.c_str(), SvcKit::kWait);
  return result == 0 ? Boolean16(true) : Fail(start ? kStartFailure : kStopFailure, serviceName, result);
}

Boolean16 SvcUtl::mSetupService(const std::wstring& serviceName, const std::wstring& displayName,
                                const std::wstring& path, int32_t startType) {
  const std::string name = codePage_.ToAnsi(serviceName);
  int32_t result = library_.QSetup_InstallService(name.c_str(), codePage_.ToAnsi(displayName).c_str(),
                                                  codePage_.ToAnsi(path).c_str(), startType);
  if (result != 0) return Fail(kInstallFailure, serviceName, result);
  PauseAfterChange();
  result = library_.QSetup_StartService(name.c_str(), SvcKit::kWait);
  return result == 0 ? Boolean16(true) : Fail(kFirstStartFailure, serviceName, result);
}

bool SvcUtl::AgreesToRemoval(const std::wstring& serviceName) {
  const std::wstring quoted = Quoted(serviceName);
  const std::wstring question =
      langId_ == pLangJapanese ? serviceName + L" が動作中です。\r" + serviceName +
                                     L" を削除して インストールを続行してもいいですか？\r\r"
                                     L"（ <いいえ>ボタンを選択すると インストールは中止されます ）"
                               : quoted + L" is now running.\rCan you remove " + quoted +
                                     L" ?\r\r( If you select <No> button, the installation is aborted. )";
  return boxes_.AskYesNo(question, false, In({L"Remove System Service", L"サービスの削除確認"}));
}

Boolean16 SvcUtl::mRemoveService(const std::wstring& serviceName) {
  int32_t status = 0;
  if (!Query(kRemovalStatusFailure, serviceName, status)) return false;
  const std::string name = codePage_.ToAnsi(serviceName);
  if (status == pSvcCondRunning) {
    if (!AgreesToRemoval(serviceName)) return false;
    const int32_t result = library_.QSetup_StopService(name.c_str(), SvcKit::kWait);
    if (result != 0) return Fail(kRemovalStopFailure, serviceName, result);
    PauseAfterChange();
  }
  const int32_t result = library_.QSetup_RemoveService(name.c_str());
  return result == 0 || result == kUnknownService ? Boolean16(true)
                                                  : Fail(kRemovalFailure, serviceName, result);
}

}  // namespace tarvik
