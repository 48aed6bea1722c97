// Closing and shut-down.

#include "app/address_history.h"
#include "app/form1.h"

namespace tarvik {

bool Form1::Form_QueryUnload() {
  const bool reading = pmcTest_ != nullptr && pmcTest_->Running();
  return !ground_.flags.busy && !k7ApiBusy_ && !serviceBusy_ && !loading_ && !reading;
}

void Form1::Form_Unload() {
  if (icmpHandle_ != 0) ground_.icmp.IcmpCloseHandle(icmpHandle_);
  icmpHandle_ = 0;
  ground_.winsock.WSACleanup();
  SaveHistory(controls_.cmbIPAddr, ground_.settings);
  EndServiceControl();
  UnloadAbout();
  // At the end of the Windows session nobody is asked, and a run may still stand below on the stack.
  if (pmcTest_ != nullptr && !pmcTest_->Running()) pmcTest_.reset();
  resource_.Terminate();
}

}  // namespace tarvik
