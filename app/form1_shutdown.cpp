// Closing and shut-down.

#include "app/address_history.h"
#include "app/form1.h"

namespace tarvik {

bool Form1::Form_QueryUnload() { return !ground_.flags.busy && !k7ApiBusy_ && !loading_; }

void Form1::Form_Unload() {
  if (icmpHandle_ != 0) ground_.icmp.IcmpCloseHandle(icmpHandle_);
  icmpHandle_ = 0;
  ground_.winsock.WSACleanup();
  SaveHistory(controls_.cmbIPAddr, ground_.settings);
  UnloadAbout();
  resource_.Terminate();
}

}  // namespace tarvik
