#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "report/facts.h"
#include "report/message_boxes.h"
#include "report/rung.h"

namespace tarvik::report {

/// A date and time of day in the PC's own time zone. Months and days count from 1.
struct LocalTime {
  int32_t year = 0;
  int32_t month = 0;
  int32_t day = 0;
  int32_t hour = 0;
  int32_t minute = 0;
};

/// What the user had set when the run began, as typed. Secrets are only "set" or "not set".
struct RunSettings {
  std::wstring pingCount;
  std::wstring libraryPort;
  std::wstring libraryTimeOut;  ///< seconds
  std::wstring k7Count;
  std::wstring k7Server;
  bool accessCodeSet = false;
  bool ftpUserSet = false;
  bool ftpPasswordSet = false;
  uint32_t options = 0;         ///< the option mask
  bool generalEdition = false;  ///< the edition with K7
  bool nexalPage = true;        ///< the page is shown
  bool k7ServicePage = true;
};

/// A line that a test reported. Seconds count from the beginning of the run.
struct RunLine {
  double seconds;
  std::wstring text;
};

enum class BoxAnswer {
  Ok,
  Yes,
  No,
  Open,  ///< none yet
  Error  ///< unknown: it opens after the test that the error ended
};

/// A message box of the run.
struct RunBox {
  double shown = 0;     ///< seconds
  double answered = 0;  ///< seconds
  std::wstring text;
  BoxAnswer answer = BoxAnswer::Open;
};

enum class RunEnd {
  None,  ///< no run has begun yet, or it still runs
  Finished,
  Stopped,  ///< by the user
  Error     ///< an exception ended it; the last box has its text
};

/// One run: what a button or the command line started, and what every rung saw. Rungs that are not part of it
/// keep the facts of the latest run with the same target.
struct Run {
  /// Later lines are only counted. Enough for the largest directories.
  static constexpr size_t kMaxLines = 100'000;

  std::wstring target;  ///< as typed
  std::wstring began;   ///< local time, in the user's formats; empty = no run yet
  std::wstring ended;   ///< the same; empty while the run is active
  LocalTime endedAt;    ///< the same as numbers; the month is 0 while the run is active
  double seconds = 0;   ///< how long it took, or has taken so far
  bool active = false;
  RunEnd end = RunEnd::None;
  RunSettings settings;
  std::array<bool, kRungCount> planned{};  ///< the rungs of this run
  /// What the rungs tested instead of `target`, because the user typed another address meanwhile.
  std::array<std::wstring, kRungCount> otherTarget;
  /// The rungs whose library is not on this PC, known since the program's start.
  std::array<bool, kRungCount> libraryMissing{};
  Facts facts;
  std::vector<RunLine> lines;  ///< all of them, even those that the result list no longer shows
  uint64_t linesNotKept = 0;
  std::vector<RunBox> boxes;

  bool Planned(Rung rung) const { return planned[static_cast<size_t>(rung)]; }
  bool LibraryMissing(Rung rung) const { return libraryMissing[static_cast<size_t>(rung)]; }
  /// Empty when the rung tested `target` itself, "?" when the address box was empty.
  const std::wstring& OtherTarget(Rung rung) const { return otherTarget[static_cast<size_t>(rung)]; }
  /// The target's address: as typed, or what its name was resolved to; empty when it was not.
  const std::wstring& Resolved() const { return facts.name.address; }

  // Defined in one place, because they are long and several functions need them.
  Run();
  Run(const Run& other);
  Run& operator=(Run&& other) noexcept;
  ~Run();
};

}  // namespace tarvik::report
