#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarvik::lab {

using std::chrono::milliseconds;

/// A laboratory operation failed; the text says which and why.
class LabError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Changes to this process' environment for a started program; no value removes the variable.
using Environment = std::map<std::string, std::optional<std::string>>;

/// A started program in its own process group, without random memory addresses. It is ended on destruction,
/// and killed by the kernel when this process dies.
class Process {
 public:
  struct Options {
    Environment environment;
    std::string workingFolder;      ///< empty = that of this process
    bool errorsWithOutput = false;  ///< adds standard error to the output; otherwise it is discarded
    bool outlivesOwner = false;     ///< not killed when this process dies; gets its own session
  };

  /// Starts the program, which is searched in PATH, with pipes as its standard input and output. Throws
  /// LabError.
  Process(const std::vector<std::string>& arguments, const Options& options);
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  /// Ends the whole process group: SIGTERM, after two seconds SIGKILL.
  ~Process();

  int Id() const { return id_; }

  /// Throws LabError when the program has closed its input.
  void Write(const std::string& text);
  void CloseInput();

  /// The next line of the output, without its line break. Throws LabError on a time-out and at the end of the
  /// output.
  std::string ReadLine(milliseconds timeOut);

  /// The rest of the output. Throws LabError when it does not end in time.
  std::string ReadAll(milliseconds timeOut);

  /// The exit code, or 128 + the number of the signal that ended the program; nothing on a time-out.
  std::optional<int> Wait(milliseconds timeOut);

 private:
  bool ReadMore(std::chrono::steady_clock::time_point deadline);
  void SignalGroup(int signal);

  std::string name_;
  int id_ = 0;
  int input_ = -1;
  int output_ = -1;
  int end_ = -1;  ///< a pidfd, readable once the program has ended
  std::string buffer_;
  std::optional<int> exitCode_;
};

struct Finished {
  int exitCode = 0;
  std::string output;  ///< output and errors, in the order written
};

/// Runs a program to its end with `input` as its standard input. Throws LabError on a time-out.
Finished Run(const std::vector<std::string>& arguments, const Process::Options& options = {},
             const std::string& input = {}, milliseconds timeOut = std::chrono::seconds(30));

/// The same for a program that must succeed: throws LabError with its output unless the exit code is 0.
void RunOrThrow(const std::vector<std::string>& arguments, const Process::Options& options = {},
                const std::string& input = {}, milliseconds timeOut = std::chrono::seconds(30));

int OwnProcessId();

/// True when this process may create network namespaces.
bool IsRoot();

/// The value of an environment variable; empty when it is not set.
std::string EnvironmentValue(const std::string& name);

/// Polls until the condition holds, less often the longer it takes. False on a time-out.
template <typename Condition>
bool WaitUntil(milliseconds timeOut, Condition condition);

/// The pause between two polls: a tenth of the time waited so far, from 20 to 50 ms. A poll of a program asks
/// its windows a dozen questions, whose processor time the other tests lack.
void PauseBetweenPolls(milliseconds waited);

/// An exclusive lock among processes (flock on a file), held during the object's lifetime.
class FileLock {
 public:
  /// Waits without limit for the lock. Throws LabError when the file cannot be created.
  explicit FileLock(const std::string& path);
  /// Null when the lock is already held. Throws as above.
  static std::unique_ptr<FileLock> IfFree(const std::string& path);
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

 private:
  explicit FileLock(int file) : file_(file) {}

  int file_ = -1;
};

template <typename Condition>
bool WaitUntil(milliseconds timeOut, Condition condition) {
  const auto begin = std::chrono::steady_clock::now();
  while (!condition()) {
    const auto waited = std::chrono::steady_clock::now() - begin;
    if (waited >= timeOut) return false;
    PauseBetweenPolls(std::chrono::duration_cast<milliseconds>(waited));
  }
  return true;
}

}  // namespace tarvik::lab
