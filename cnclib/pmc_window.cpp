#include "cnclib/pmc_window.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/text.h"
#include "report/error_text.h"
#include "report/typed_numbers.h"
#include "ui/hourglass.h"
#include "ui/redraw_pause.h"

namespace tarvik {
namespace {

/// The PMC's address letters; the library identifies each by its index here.
constexpr std::wstring_view kAddressLetters = L"GFYXARTKCDMNE";
constexpr size_t kFirstLetter = kAddressLetters.find(L'D');
constexpr int32_t kLastAddress = std::numeric_limits<int16_t>::max();
constexpr int kMaxLogLines = 32767;

/// The typed text as a number within the range; otherwise nothing.
std::optional<int16_t> NumberIn(const std::wstring& typed, int32_t minimum, int32_t maximum) {
  const std::optional<int32_t> number = ParseInt32(typed);
  if (!number || *number < minimum || *number > maximum) return std::nullopt;
  return static_cast<int16_t>(*number);
}

}  // namespace

frmPmcTest::ReadRun::ReadRun(frmPmcTest& window) : window_(window) {
  window_.running_ = true;
  window_.stopRequested_ = false;
  focusWasOnRead_ = window_.controls_.cmdRead.HasFocus();
  window_.controls_.cmdClose.SetEnabled(false);
  window_.controls_.cmdRead.SetEnabled(false);
}

frmPmcTest::ReadRun::~ReadRun() {
  window_.running_ = false;
  window_.stopRequested_ = false;
  try {
    PmcTestControls& c = window_.controls_;
    // Only if disabling the buttons moved the focus, not if the user did.
    const bool focusMoved = c.cmdStop.HasFocus() || (focusWasOnRead_ && c.cmbPmcAddr.HasFocus());
    c.cmdRead.SetEnabled(true);
    c.cmdClose.SetEnabled(true);
    if (focusMoved) c.cmdRead.SetFocus();
    c.cmdStop.SetEnabled(false);
  } catch (const RuntimeError&) {
    // The run has ended anyway.
  }
}

frmPmcTest::frmPmcTest(std::unique_ptr<ui::Form> form, const Texts& texts, report::Pump& pump,
                       CncLibrary& library, CodePage& codePage, System& system,
                       std::function<CncTarget()> target)
    : form_(std::move(form)),
      texts_(texts),
      pump_(pump),
      library_(library),
      codePage_(codePage),
      system_(system),
      controls_(*form_),
      target_(std::move(target)) {
  Form_Load();
}

void frmPmcTest::Form_Load() {
  form_->errorText = [this](const RuntimeError& error) { return report::ErrorText(error, texts_); };
  form_->onResize = [this] { Form_Resize(); };
  form_->onScalingChanged = [this] { Form_ScalingChanged(); };
  form_->onQueryClose = [this] { return !running_; };
  form_->onUnload = [this] { unloaded_ = true; };
  form_->onEscape = [this] { Form_Escape(); };
  controls_.cmdRead.onClick = [this] { cmdRead_Click(); };
  controls_.cmdStop.onClick = [this] { cmdStop_Click(); };
  controls_.cmdClose.onClick = [this] { cmdClose_Click(); };

  for (size_t i = 0; i < kAddressLetters.size(); ++i)
    controls_.cmbPmcAddr.InsertItem(static_cast<int>(i), std::wstring(1, kAddressLetters[i]));
  controls_.cmbPmcAddr.Select(static_cast<int>(kFirstLetter));
  controls_.txtPmcStart.SetText(L"0");
  controls_.txtPmcLen.SetText(L"1");
  controls_.txtCount.SetText(L"10");
  controls_.txtSleep.SetText(L"1000");
  controls_.cmdStop.SetEnabled(false);
  LoadCaptions();
  const ui::Size minimum = LayOutPmcTest(*form_, controls_);
  form_->SetMinimumWindowSize(minimum);
  form_->SetWindowSize(minimum);
}

void frmPmcTest::LoadCaptions() {
  form_->SetCaption(L"PMC Read Test");
  for (ui::Element* const element : form_->Captioned())
    element->SetCaption(texts_.GetOrEmpty(*element->captionMessage));
}

void frmPmcTest::Form_Resize() {
  if (!form_->Minimised()) LayOutPmcTest(*form_, controls_);
}

void frmPmcTest::Form_ScalingChanged() {
  const ui::Size minimum = LayOutPmcTest(*form_, controls_);
  const ui::Size window = form_->WindowSize();
  const int maxHeight = std::max(form_->WorkArea().height, minimum.height);
  form_->SetMinimumWindowSize(minimum);
  form_->SetWindowSize(
      {std::max(window.width, minimum.width), std::clamp(window.height, minimum.height, maxHeight)});
}

void frmPmcTest::Form_Escape() {
  if (running_) stopRequested_ = true;
}

void frmPmcTest::cmdRead_Click() {
  if (running_) return;
  const ReadRun run(*this);
  // Inside the run, so that the window cannot be closed under the error dialog.
  form_->Guarded([this] { Read(); });
  // Closing the connection may have taken long. Clicks of that time belong to this run: handled after it,
  // they would start another one, which clears the log.
  pump_.LetEventsRun();
}

std::optional<int32_t> frmPmcTest::ReadNumber(ui::TextBox& box, const ui::Label& label, int32_t minimum,
                                              int32_t maximum) {
  const auto number =
      report::NumberInBox(box.Text(), label.Caption(), minimum, maximum, texts_, form_->Boxes());
  if (!number) box.SetFocus();
  return number;
}

std::optional<int16_t> frmPmcTest::ReadLength() {
  const std::optional<int32_t> typed = ParseInt32(controls_.txtPmcLen.Text());
  if (typed && *typed > CncPmcRange::kMaxDataBytes) {
    // The text in the language files contains the number.
    const std::wstring text = texts_.GetOrEmpty(Message::PmcLengthError);
    form_->Boxes().Show(texts_.Mode() == kLanguageFile ? text : text + Decimal(CncPmcRange::kMaxDataBytes));
    controls_.txtPmcLen.SetFocus();
    return std::nullopt;
  }
  const auto length = ReadNumber(controls_.txtPmcLen, controls_.lblPmcLen, 1, CncPmcRange::kMaxDataBytes);
  if (!length) return std::nullopt;
  return static_cast<int16_t>(*length);
}

std::optional<frmPmcTest::Range> frmPmcTest::ReadRange() {
  const auto length = ReadLength();
  if (!length) return std::nullopt;
  // The last address of the range must also fit in 16 bits.
  const auto start =
      ReadNumber(controls_.txtPmcStart, controls_.lblPmcStart, 0, kLastAddress - (*length - 1));
  if (!start) return std::nullopt;
  return Range{static_cast<int16_t>(*start), *length};
}

void frmPmcTest::Read() {
  CncConnection connection(library_, codePage_, target_());
  const auto open = [&] {
    const ScopeGuard hourglass = ui::ShowHourglass(*form_);
    return connection.Open();
  };
  const int16_t result = open();
  if (result != 0) {
    form_->Boxes().Show(L"Allocate Handle error=" + Decimal(result));
    return;
  }
  constexpr int32_t kMaxInt32 = std::numeric_limits<int32_t>::max();
  const std::optional<Range> range = ReadRange();
  if (!range) return;
  // A count below 1 is accepted and makes no pass.
  const auto count =
      ReadNumber(controls_.txtCount, controls_.lblTest, std::numeric_limits<int32_t>::min(), kMaxInt32);
  if (!count) return;
  const auto interval = ReadNumber(controls_.txtSleep, controls_.lblSleep, 0, kMaxInt32);
  if (!interval) return;

  lastValid_ = *range;
  controls_.lstResult.Clear();
  controls_.cmdStop.SetEnabled(true);
  controls_.cmdStop.SetFocus();
  // 64 bits: a 32-bit number would overflow after the largest count.
  for (int64_t pass = 1; pass <= *count; ++pass) {
    ReadPmcOnce(connection.Handle(), static_cast<int32_t>(pass));
    controls_.lblCount.SetCaption(Decimal(pass));
    // One wait: several would each be rounded up to a tick of the system clock, which adds up.
    pump_.SleepUntil(static_cast<uint32_t>(*interval), [this] { return StopRequested(); });
    pump_.LetEventsRun();
    if (StopRequested()) return;
  }
  controls_.lstResult.AddItem(system_.GeneralDateTime());
  controls_.lstResult.Select(controls_.lstResult.Count() - 1);
}

frmPmcTest::Range frmPmcTest::RangeOfPass() const {
  const int16_t length =
      NumberIn(controls_.txtPmcLen.Text(), 1, CncPmcRange::kMaxDataBytes).value_or(lastValid_.length);
  const int32_t lastStart = kLastAddress - (length - 1);
  const int16_t start = NumberIn(controls_.txtPmcStart.Text(), 0, lastStart).value_or(lastValid_.start);
  // From the last valid start, a new length may exceed 16 bits.
  return start > lastStart ? lastValid_ : Range{start, length};
}

void frmPmcTest::ReadPmcOnce(CncLibrary::Handle handle, int32_t pass) {
  // Updated for each pass, so that the user can read another range without a new connection.
  lastValid_ = RangeOfPass();
  const auto [start, length] = lastValid_;
  CncPmcRange range;
  range.addr_type = static_cast<int16_t>(controls_.cmbPmcAddr.SelectedIndex());
  range.first_no = start;
  range.last_no = static_cast<int16_t>(start + length - 1);
  const int16_t result =
      library_.nx_pmc_rdrange(handle, range.addr_type, range.data_type, range.first_no, range.last_no,
                              static_cast<int16_t>(length + CncPmcRange::kHeaderSize), range);
  if (result == 0) {
    ShowData(range, length);
    // Only a successful read clears the full log: errors are never discarded for another error.
    if (controls_.lstResult.Count() >= kMaxLogLines) controls_.lstResult.Clear();
    AddVerdict(pass, L"OK");
  } else if (result == CncLibrary::kPmcError) {
    CncPmcDetailError detail;
    library_.nx_pmc_detailerr(handle, detail);
    AddVerdict(pass, L"ERR Ret=" + Decimal(result) + L"," + Decimal(detail.error_code) + L"," +
                         Decimal(detail.error_item));
  } else {
    AddVerdict(pass, L"ERR Ret=" + Decimal(result));
  }
  controls_.lstResult.Select(controls_.lstResult.Count() - 1);
  pump_.LetEventsRun();
}

void frmPmcTest::ShowData(const CncPmcRange& range, int16_t length) {
  const ScopeGuard pause = ui::PauseRedraw(controls_.lstData);
  controls_.lstData.Clear();
  for (int16_t j = 0; j < length; ++j)
    controls_.lstData.AddItem(ZeroPadded(j, 4) + L"\t" + Hexadecimal(range.data[j]));
  controls_.lstData.Select(0);
}

void frmPmcTest::AddVerdict(int32_t pass, const std::wstring& verdict) {
  controls_.lstResult.AddItem(ZeroPadded(pass, 4) + L" " + verdict);
}

}  // namespace tarvik
