#include "report/run_recorder.h"

#include <algorithm>

namespace tarvik::report {
namespace {

/// Enough to see what a test shows again and again.
constexpr size_t kMaxBoxes = 1000;

void DiscardFacts(Facts& facts, Rung rung) {
  switch (rung) {
    case Rung::Name:
      facts.name = {};
      break;
    case Rung::Pc:
      facts.pc = {};
      break;
    case Rung::Gateway:
      facts.gateway = {};
      break;
    case Rung::Target:
      facts.target = {};
      // The controller may have been switched off since: what it answered then proves nothing now.
      facts.cnc.beforePing = facts.ftp.beforePing = true;
      break;
    case Rung::CncLibrary:
      facts.cnc = {};
      break;
    case Rung::K7:
      facts.k7 = {};
      break;
    case Rung::Ftp:
      facts.ftp = {};
      break;
  }
}

}  // namespace

Facts::Facts() = default;
Facts::Facts(const Facts& other) = default;
Facts& Facts::operator=(Facts&& other) noexcept = default;
Facts::~Facts() = default;

Run::Run() = default;
Run::Run(const Run& other) = default;
Run& Run::operator=(Run&& other) noexcept = default;
Run::~Run() = default;

void EchoSeries::Add(const Echo& echo, bool fromAddress) {
  ++sent;
  if (!echo.replied)
    error = echo.error;
  else if (echo.status != 0)
    ++refused;
  else if (fromAddress)
    ++answered;
  else
    ++elsewhere;
  if (echo.replied && echo.status != 0) status = echo.status;
  if (echo.replied && (echo.status != 0 || !fromAddress)) otherSender = echo.from;
  if (echo.replied && echo.status == 0 && fromAddress) slowestMs = std::max(slowestMs, echo.roundTripMs);
  if (echoes.size() < kMaxKept) echoes.push_back(echo);
}

void RunRecorder::Clear() {
  const auto missing = run.libraryMissing;
  run = {};
  run.libraryMissing = missing;
}

void RunRecorder::SetLibraryMissing(Rung rung) {
  run.libraryMissing[static_cast<size_t>(rung)] = true;
  Changed();
}

void RunRecorder::Begin(const std::wstring& target, const std::vector<Rung>& rungs,
                        const RunSettings& settings, const std::wstring& localTime) {
  if (depth_++ == 0) {
    Facts kept;
    if (target == run.target) {
      for (int index = 0; index < kRungCount; ++index)
        if (const auto rung = static_cast<Rung>(index); !run.OtherTarget(rung).empty())
          DiscardFacts(run.facts, rung);
      kept = std::move(run.facts);
    }
    Clear();
    run.facts = std::move(kept);
    run.target = target;
    run.settings = settings;
    run.began = localTime;
    run.active = true;
    began_ = Milliseconds();
  } else if (target != run.target && std::ranges::count(rungs, Rung::Name) > 0) {
    ReplaceTarget(target);
  }
  for (const Rung rung : rungs) {
    run.planned[static_cast<size_t>(rung)] = true;
    DiscardFacts(run.facts, rung);
    AddressUsed(rung, target);
  }
  Changed();
}

void RunRecorder::ReplaceTarget(const std::wstring& target) {
  run.facts = {};
  for (std::wstring& other : run.otherTarget) {
    if (other.empty()) other = run.target;
    if (other == target) other.clear();
  }
  run.target = target;
}

void RunRecorder::AddressUsed(Rung rung, const std::wstring& address) {
  const std::wstring used = address.empty() ? L"?" : address;
  run.otherTarget[static_cast<size_t>(rung)] = address == run.target ? std::wstring() : used;
}

void RunRecorder::End(RunEnd end, const std::wstring& localTime, const LocalTime& clock) {
  if (run.end == RunEnd::None || run.end == RunEnd::Finished) run.end = end;
  if (depth_ == 0 || --depth_ > 0) return;
  run.seconds = Seconds();
  run.ended = localTime;
  run.endedAt = clock;
  run.active = false;
  Changed();
}

void RunRecorder::Forget() {
  if (depth_ > 0) return;
  Clear();
  Changed();
}

void RunRecorder::AddLines(const std::vector<std::wstring>& lines) {
  if (depth_ == 0) return;
  run.seconds = Seconds();
  for (const std::wstring& line : lines) {
    if (run.lines.size() < Run::kMaxLines)
      run.lines.push_back({run.seconds, line});
    else
      ++run.linesNotKept;
  }
}

size_t RunRecorder::BoxShown(const std::wstring& text) {
  if (depth_ == 0 || run.boxes.size() >= kMaxBoxes) return 0;
  run.boxes.push_back({Seconds(), 0, text, BoxAnswer::Open});
  return run.boxes.size();
}

void RunRecorder::BoxAnswered(size_t box, BoxAnswer answer) {
  if (box == 0 || box > run.boxes.size()) return;
  run.boxes[box - 1].answered = Seconds();
  run.boxes[box - 1].answer = answer;
}

}  // namespace tarvik::report
