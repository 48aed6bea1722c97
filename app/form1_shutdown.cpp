// Closing and shut-down.

#include "app/address_history.h"
#include "app/form1.h"

namespace tarvik {

bool Form1::Form_QueryUnload() { return !loading_ && Form_QueryEndSession(); }

bool Form1::Form_QueryEndSession() {
  const bool reading = pmcTest_ != nullptr && pmcTest_->Running();
  // The start-up asks for the state of the service by itself, and a box of that is no work of the user's.
  const bool commanding = ServiceBusy() && !loading_;
  return !deps_.flags.busy && !k7ApiBusy_ && !commanding && !reading;
}

void Form1::Form_EndSession() {
  // The window refuses to close while code of any window is on the stack, which goes on afterwards and needs
  // everything that it had. The system then takes back what the process leaves.
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
  resource_.Terminate();
}

}  // namespace tarvik
