// The main window's events, sizes and small handlers. The larger subjects are in the other form1_* files.

#include "app/form1.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "app/form1_layout.h"
#include "app/input_filters.h"
#include "platform/runtime_error.h"
#include "report/error_text.h"

namespace tarvik {
namespace {

constexpr int16_t kEnter = 13;
constexpr int16_t kMaxAccessCodeDigits = 8;
constexpr int16_t kListExtentFactor = 3;
constexpr float kTwipsPerInch = 1440;

}  // namespace

Form1::Form1(Dependencies dependencies)
    : deps_(std::move(dependencies)),
      controls_(deps_.form, deps_.familyEdition),
      resultView_(controls_.lstResult),
      results_(resultView_),
      resource_(deps_.files, deps_.system, deps_.codePage) {
  const ui::Size design = LayOutForm1(deps_.form, controls_, deps_.familyEdition);
  deps_.form.SetMinimumWindowSize(design);
  deps_.form.SetWindowSize(design);
  WireEvents();
}

void Form1::WireEvents() {
  const auto on = [this](void (Form1::*handler)()) { return [this, handler] { (this->*handler)(); }; };
  deps_.form.errorText = [this](const RuntimeError& error) {
    std::wstring text = report::ErrorText(error, texts_);
    recorder_.ErrorShown(text);
    return text;
  };
  recorder_.onChanged = [this] { ShowAnswer(); };
  deps_.form.onActivate = on(&Form1::Form_Activate);
  deps_.form.onResize = on(&Form1::Form_Resize);
  deps_.form.onScalingChanged = [this] {
    UpdateLayout();
    SetListExtent();
  };
  deps_.form.onQueryClose = [this] { return Form_QueryUnload(); };
  deps_.form.onQueryEndSession = [this] { return Form_QueryEndSession(); };
  deps_.form.onEndSession = on(&Form1::Form_EndSession);
  deps_.form.onUnload = on(&Form1::Form_Unload);
  deps_.form.onEscape = on(&Form1::Form_Escape);
  controls_.cmdPing.onClick = on(&Form1::cmdPing_Click);
  controls_.cmdAllTest.onClick = on(&Form1::cmdAllTest_Click);
  controls_.cmdFtpConnect.onClick = on(&Form1::cmdFtpConnect_Click);
  controls_.cmdAllFtpTest.onClick = on(&Form1::cmdAllFtpTest_Click);
  controls_.cmdK7Api.onClick = on(&Form1::cmdK7Api_Click);
  controls_.lblK7ServerStatus.onClick = on(&Form1::lblK7ServerStatus_Click);
  controls_.cmdStartK7Server.onClick = [this] { cmdStartStopK7Server_Click(1); };
  controls_.cmdStopK7Server.onClick = [this] { cmdStartStopK7Server_Click(0); };
  controls_.cmdK7ServerDebug.onClick = on(&Form1::cmdK7ServerDebug_Click);
  controls_.tabMode.onPageFront = [this](int page) { tabMode_PageFront(page); };
  controls_.lblK7UdpPortNo.onMouseDown = controls_.txtTcpPortNo.onMouseDown =
      [this](int16_t button, int16_t shift) { lblK7UdpPortNo_MouseDown(button, shift); };
  controls_.mnuHelpSub.onClick = on(&Form1::mnuHelpSub_Click);
  controls_.chkAccessCode.onClick = on(&Form1::chkAccessCode_Click);
  controls_.cmdGetInfo.onClick = on(&Form1::cmdGetInfo_Click);
  controls_.mnuPMC.onClick = on(&Form1::mnuPMC_Click);
  controls_.lstResult.onDoubleClick = on(&Form1::lstResult_DblClick);
  WireCommands();
  WireExplain();

  controls_.cmbIPAddr.onKeyDown = [this](int16_t keyCode, int16_t shift) {
    cmbIPAddr_KeyDown(keyCode, shift);
  };
  controls_.cmbIPAddr.onChange = [this](const std::wstring& text) { cmbIPAddr_Change(text); };
  controls_.cmbIPAddr.onKeyPress = [this](int16_t& key) {
    KeyPress_HostRange(key, controls_.cmbIPAddr, deps_.codePage);
  };
  controls_.txtAccessCode.onKeyPress = [this](int16_t& key) {
    KeyPress_NumRange(key, controls_.txtAccessCode, kMaxAccessCodeDigits, deps_.codePage);
  };
  controls_.txtPingReqCount.onValidate = [this] { return txtPingReqCount_Validate(); };
  for (ui::TextBox* const box : {&controls_.txtTcpPortNo, &controls_.txtPingReqCount,
                                 &controls_.txtNxlibTimeOut, &controls_.txtK7ApiTestCount})
    box->onGotFocus = [box] { TextBoxSellAll(*box); };
}

void Form1::Form_Resize() {
  if (deps_.form.Minimised()) return;
  const ui::Size window = deps_.form.WindowSize();
  const ui::Size minimum{Pixels(initialWindowWidth_), Pixels(initialWindowHeight_)};
  if (window.width < minimum.width) {
    deps_.form.SetWindowSize({minimum.width, window.height});
    return;
  }
  if (window.height < minimum.height) {
    deps_.form.SetWindowSize({window.width, minimum.height});
    return;
  }
  ResizeResultList(deps_.form, controls_,
                   {window.width - (minimum.width - Pixels(initialListWidth_)),
                    window.height - (minimum.height - Pixels(initialListHeight_))});
}

void Form1::UpdateLayout() {
  const ui::Size window = deps_.form.WindowSize();
  const ui::Size minimum{Pixels(initialWindowWidth_), Pixels(initialWindowHeight_)};
  const ui::Size design = LayOutForm1(deps_.form, controls_, deps_.familyEdition);
  RecordInitialSizes(design);
  deps_.form.SetMinimumWindowSize(design);
  // A dimension at its minimum follows the new design size; one that the user has enlarged only grows.
  deps_.form.SetWindowSize(
      {window.width > minimum.width ? std::max(window.width, design.width) : design.width,
       window.height > minimum.height ? std::max(window.height, design.height) : design.height});
  Form_Resize();
}

void Form1::SetListExtent() { ui::SetListExtent(controls_.lstResult, kListExtentFactor); }

void Form1::RecordInitialSizes(ui::Size window) {
  const ui::Rect list = controls_.lstResult.Bounds();
  initialListHeight_ = Twips(list.height);
  initialListWidth_ = Twips(list.width);
  initialWindowHeight_ = Twips(window.height);
  initialWindowWidth_ = Twips(window.width);
}

float Form1::Twips(int pixels) const {
  return static_cast<float>(pixels) * kTwipsPerInch / static_cast<float>(deps_.form.Dpi());
}

int Form1::Pixels(float twips) const {
  return static_cast<int>(std::lround(twips * static_cast<float>(deps_.form.Dpi()) / kTwipsPerInch));
}

void Form1::cmbIPAddr_KeyDown(int16_t keyCode, int16_t shift) {
  if (keyCode == kEnter && shift == 0) cmdPing_Click();
}

void Form1::chkAccessCode_Click() { controls_.txtAccessCode.SetEnabled(controls_.chkAccessCode.Checked()); }

void Form1::lstResult_DblClick() {
  if (TestOptionMask(kPasteMode)) {
    results_.ShowPasted(deps_.clipboard.GetText());
    linesArePasted_ = true;
    return;
  }
  CopyAllLines();
}

bool Form1::txtPingReqCount_Validate() {
  if (IsPingCount(controls_.txtPingReqCount.Text())) return true;
  deps_.form.Boxes().Show(L"0 to 2147483647 is required");
  return false;
}

void Form1::Form_Escape() {
  if (RunActive()) deps_.flags.stopRequested = true;
}

}  // namespace tarvik
