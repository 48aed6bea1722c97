// When the window may close, and what is released when it does.

#include "app/address_history.h"
#include "app/form1.h"

namespace tarvik {

// The save dialog disables the window only once it is visible.
bool Form1::Form_QueryUnload() { return !loading_ && !saving_ && Form_QueryEndSession(); }

bool Form1::Form_QueryEndSession() {
  const bool reading = pmcTest_ != nullptr && pmcTest_->Running();
  // Start-up queries the service without being asked; an error box of that query must not keep Windows from
  // shutting down.
  const bool commanding = ServiceBusy() && !loading_;
  return !deps_.flags.busy && !k7ApiBusy_ && !commanding && !reading;
}

void Form1::Form_EndSession() {
  // The window refuses to close while code of any window is on the stack, because that code still needs its
  // objects. Then only the history is saved; Windows reclaims the rest when the process ends.
  if (!deps_.form.Close()) SaveHistory(controls_.cmbIPAddr, deps_.settings);
}

void Form1::Form_Unload() {
  if (icmpHandle_ != 0) deps_.icmp.IcmpCloseHandle(icmpHandle_);
  icmpHandle_ = 0;
  deps_.winsock.WSACleanup();
  SaveHistory(controls_.cmbIPAddr, deps_.settings);
  EndServiceControl();
  UnloadAbout();
  pmcTest_.reset();
  explain_.reset();
  resource_.Terminate();
}

}  // namespace tarvik
