#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarvik::lab {

using std::chrono::milliseconds;

/// The laboratory cannot do what it was asked for; the text says what and why.
class LabError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Variables that a started program has other than this process has them; no value = the variable is unset.
using Environment = std::map<std::string, std::optional<std::string>>;

/// A program that was started here, in a process group of its own. It ends with its owner, and also when
/// this process dies in any other way.
class Process {
 public:
  struct Options {
    Environment environment;
    std::string workingFolder;      ///< empty = this process' own
    bool errorsWithOutput = false;  ///< standard error goes where the output goes, otherwise nowhere
    bool outlivesOwner = false;     ///< is left alone when this process dies; in a session of its own
  };

  /// Starts the program, found through PATH. Its input and output are pipes to this object. Throws LabError.
  Process(const std::vector<std::string>& arguments, const Options& options);
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  /// Asks the whole group to end, and ends it by force when it has not after two seconds.
  ~Process();

  int Id() const { return id_; }

  /// Throws LabError when the program has closed its input.
  void Write(const std::string& text);
  void CloseInput();

  /// The next line of the output, without its line break. Throws LabError when none comes in time, and
  /// when the output has ended.
  std::string ReadLine(milliseconds timeOut);

  /// The rest of the output up to its end. Throws LabError when it does not end in time.
  std::string ReadAll(milliseconds timeOut);

  /// The exit code, or 128 + the signal that ended the program; nothing when it still runs after the time.
  std::optional<int> Wait(milliseconds timeOut);

 private:
  bool ReadMore(std::chrono::steady_clock::time_point deadline);
  void SignalGroup(int signal);

  std::string name_;
  int id_ = 0;
  int input_ = -1;
  int output_ = -1;
  std::string buffer_;
  std::optional<int> exitCode_;
};

struct Finished {
  int exitCode = 0;
  std::string output;  ///< output and errors, as they came
};

/// Runs a program to its end, with `input` as its whole input. Throws LabError when it takes longer.
Finished Run(const std::vector<std::string>& arguments, const Process::Options& options = {},
             const std::string& input = {}, milliseconds timeOut = std::chrono::seconds(30));

/// Runs a program that has to succeed; otherwise throws LabError with what it said.
void RunOrThrow(const std::vector<std::string>& arguments, const Process::Options& options = {},
                const std::string& input = {}, milliseconds timeOut = std::chrono::seconds(30));

/// The id of this process.
int OwnProcessId();

/// This process may make network namespaces.
bool IsRoot();

/// The value of an environment variable; empty when it is not set.
std::string EnvironmentValue(const std::string& name);

/// Polls until the condition holds. False when it does not in time.
template <typename Condition>
bool WaitUntil(milliseconds timeOut, Condition condition);

/// One step of a polling wait.
void ShortPause();

/// A lock on a file that other processes respect too, for as long as the object lives.
class FileLock {
 public:
  /// Waits until the lock is free. Throws LabError when the file cannot be made.
  explicit FileLock(const std::string& path);
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

 private:
  int file_ = -1;
};

template <typename Condition>
bool WaitUntil(milliseconds timeOut, Condition condition) {
  const auto deadline = std::chrono::steady_clock::now() + timeOut;
  while (!condition()) {
    if (std::chrono::steady_clock::now() >= deadline) return false;
    ShortPause();
  }
  return true;
}

}  // namespace tarvik::lab
