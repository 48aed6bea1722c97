#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "report/pump.h"
#include "report/run.h"

namespace tarvik::report {

/// Keeps what a run reports: the checks fill in `run.facts`, the result list adds its lines, the message
/// boxes their texts. Works without a run, too; lines and boxes are then not kept.
class RunRecorder {
 public:
  /// `pump` is the clock and outlives the recorder.
  explicit RunRecorder(const Pump& pump) : pump_(pump) {}
  RunRecorder(const RunRecorder&) = delete;
  RunRecorder& operator=(const RunRecorder&) = delete;

  Run run;

  /// The run has changed. Called often: before and after each step of a check.
  std::function<void()> onChanged;
  void Changed() {
    if (onChanged) onChanged();
  }

  /// The library that the rung needs is not on this PC. Every run keeps this.
  void SetLibraryMissing(Rung rung);

  /// Begins a run and discards the facts of its rungs, and all facts if the target differs from the last
  /// one. During a run, only adds the rungs to it; a Ping check also brings its target. Every Begin needs an
  /// End.
  void Begin(const std::wstring& target, const std::vector<Rung>& rungs, const RunSettings& settings,
             const std::wstring& localTime);
  /// What the rung tests, as the user has typed it by now.
  void AddressUsed(Rung rung, const std::wstring& address);
  /// Ends the outermost run. `clock` is the same time as numbers. The first reason other than Finished
  /// counts.
  void End(RunEnd end, const std::wstring& localTime, const LocalTime& clock = {});
  /// Discards everything about the last target. Nothing during a run, whose facts belong to its own target.
  void Forget();

  void AddLines(const std::vector<std::wstring>& lines);
  /// A message box opens. Returns its number for BoxAnswered, 0 when it is not kept.
  size_t BoxShown(const std::wstring& text);
  /// An error ends the test; the message box with its text opens afterwards.
  void ErrorShown(const std::wstring& text) { BoxAnswered(BoxShown(text), BoxAnswer::Error); }
  void BoxAnswered(size_t box, BoxAnswer answer);

  /// Milliseconds of a clock that never goes back.
  uint64_t Milliseconds() const { return pump_.Milliseconds(); }

 private:
  void Clear();
  /// Changes the run's target. The rungs so far have tested the one before, so their facts are discarded.
  void ReplaceTarget(const std::wstring& target);
  double Seconds() const { return static_cast<double>(Milliseconds() - began_) / 1000; }

  const Pump& pump_;
  uint64_t began_ = 0;
  int depth_ = 0;  ///< runs that have begun and not ended
};

}  // namespace tarvik::report
