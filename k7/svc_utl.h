#pragma once

#include <cstdint>
#include <string>

#include "k7/svc_kit.h"
#include "platform/boolean16.h"
#include "platform/code_page.h"
#include "platform/file_util.h"
#include "report/message_boxes.h"
#include "report/pump.h"

namespace tarvik {

struct ServiceWording;
struct ServiceFailure;

/// Queries, starts, stops, installs and removes Windows services through the service-setup library. Methods
/// return true on success. A failure sets pErrMsg and pErrCode, which then keep their values until the next
/// failure, and shows a message box while pDispErrMsgBox is set. Every method that takes a service name
/// throws RuntimeError when the library cannot be used.
class SvcUtl {
 public:
  // Languages of the messages. Every id except the Japanese one selects English.
  static constexpr int32_t pLangJapanese = 0;
  static constexpr int32_t pLangEnglish = 1;

  // States and start types of the Windows service control manager.
  static constexpr int32_t pSvcCondStopped = 1;
  static constexpr int32_t pSvcCondStartPending = 2;
  static constexpr int32_t pSvcCondStopPending = 3;
  static constexpr int32_t pSvcCondRunning = 4;
  static constexpr int32_t pSvcStartTypeAutoStart = 2;
  static constexpr int32_t pSvcStartTypeDemandStart = 3;

  SvcUtl(SvcKit& library, const FileUtil& files, report::MessageBoxes& boxes, report::Pump& pump,
         CodePage& codePage)
      : library_(library), files_(files), boxes_(boxes), pump_(pump), codePage_(codePage) {}
  SvcUtl(const SvcUtl&) = delete;
  SvcUtl& operator=(const SvcUtl&) = delete;
  /// Warns in a message box when the owner forgot mTerminate.
  ~SvcUtl();

  /// True between a successful mInitialize and mTerminate.
  Boolean16 pInitialized() const { return initialized_; }
  /// False unless set.
  void pDispErrMsgBox(Boolean16 show) { dispErrMsgBox_ = show; }
  Boolean16 pDispErrMsgBox() const { return dispErrMsgBox_; }
  const std::wstring& pErrMsg() const { return errMsg_; }
  /// 0 = no failure yet; 1 = the library is missing, or a query, a start or a registration failed; 2 = a stop
  /// or a removal failed, or the start after a registration.
  int16_t pErrCode() const { return errCode_; }
  /// Selects the language and looks for the library on the search path. False when it is missing.
  Boolean16 mInitialize(int32_t langId);
  Boolean16 mTerminate();

  /// `status` keeps its value on failure and when the library does not know the service.
  Boolean16 mGetServiceStatus(const std::wstring& serviceName, int32_t& status);
  Boolean16 mStartStopService(const std::wstring& serviceName, Boolean16 start);

  // Dormant: no caller installs or removes services today; the program only queries, starts and stops them.
  // Kept, and tested, because the class wraps the whole service-setup library.

  /// Registers the program at `path` as a service and starts it.
  Boolean16 mSetupService(const std::wstring& serviceName, const std::wstring& displayName,
                          const std::wstring& path, int32_t startType);
  /// Removes the service. A running service is stopped first if the user agrees; otherwise returns false and
  /// leaves pErrMsg unchanged.
  Boolean16 mRemoveService(const std::wstring& serviceName);
  /// The pause that both make after registering or stopping a service. 1000 unless set; 0 or less = no pause.
  void pSleepRegistToStart(int32_t milliseconds) { sleepRegistToStart_ = milliseconds; }

 private:
  const wchar_t* In(const ServiceWording& wording) const;
  Boolean16 Fail(const ServiceFailure& failure, const std::wstring& serviceName, int32_t result);
  Boolean16 Fail(const ServiceWording& title, std::wstring text, int16_t code);
  Boolean16 Query(const ServiceFailure& failure, const std::wstring& serviceName, int32_t& status);
  bool AgreesToRemoval(const std::wstring& serviceName);
  void PauseAfterChange();

  SvcKit& library_;
  FileUtil files_;
  report::MessageBoxes& boxes_;
  report::Pump& pump_;
  CodePage& codePage_;

  Boolean16 initialized_;
  Boolean16 dispErrMsgBox_;
  std::wstring errMsg_;
  int16_t errCode_ = 0;
  int32_t sleepRegistToStart_ = 1000;
  int32_t langId_ = pLangJapanese;
};

}  // namespace tarvik
