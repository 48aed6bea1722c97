#pragma once

namespace tarvik::report {

/// The rungs of the ladder of tests, in the order in which it runs them. The Ping check is the first four. K7
/// exists in the general edition only.
enum class Rung { Name, Pc, Gateway, Target, CncLibrary, K7, Ftp };
inline constexpr int kRungCount = 7;

/// What is known about a rung.
enum class RungState { NotTested, Running, Good, Doubtful, Failed, Stopped, NotInThisRun, LibraryMissing };

}  // namespace tarvik::report
