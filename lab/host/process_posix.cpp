#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/personality.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <utility>

#include "lab/host/process.h"

namespace tarvik::lab {
namespace {

using Clock = std::chrono::steady_clock;

std::string SystemError(const std::string& what) { return what + ": " + std::strerror(errno); }

void Close(int& file) {
  if (file >= 0) close(file);
  file = -1;
}

int OpenLock(const std::string& path) {
  const int file = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (file < 0) throw LabError(SystemError(path));
  return file;
}

struct Pipe {
  int read = -1;
  int write = -1;

  Pipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw LabError(SystemError("pipe"));
    read = ends[0];
    write = ends[1];
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe() {
    Close(read);
    Close(write);
  }
};

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

std::vector<std::string> WithOwnEnvironment(const Environment& changes) {
  std::vector<std::string> variables;
  for (char** variable = environ; *variable != nullptr; ++variable) {
    const std::string text = *variable;
    if (!changes.contains(text.substr(0, text.find('=')))) variables.push_back(text);
  }
  for (const auto& [name, value] : changes) {
    if (value) variables.push_back(name + "=" + *value);
  }
  return variables;
}

/// The program's path, searched before vfork because little may be called between vfork and execve.
std::string FindProgram(const std::string& name) {
  if (name.find('/') != std::string::npos) return name;
  // The network tools are in a folder that not every user has in PATH.
  const std::string path = EnvironmentValue("PATH") + ":/usr/sbin:/sbin";
  for (size_t start = 0; start <= path.size();) {
    const size_t end = std::min(path.find(':', start), path.size());
    std::string candidate = path.substr(start, end - start) + "/" + name;
    if (access(candidate.c_str(), X_OK) == 0) return candidate;
    start = end + 1;
  }
  throw LabError(name + " is not installed");
}

}  // namespace

Process::Process(const std::vector<std::string>& arguments, const Options& options) : name_(arguments.at(0)) {
  const std::string program = FindProgram(name_);
  std::vector<std::string> argumentTexts = arguments;
  std::vector<std::string> variableTexts = WithOwnEnvironment(options.environment);
  const std::vector<char*> argv = Pointers(argumentTexts);
  const std::vector<char*> envp = Pointers(variableTexts);
  // Writing to a program that has ended must fail, not end this process.
  signal(SIGPIPE, SIG_IGN);
  Pipe input;
  Pipe output;
  const char* const folder = options.workingFolder.empty() ? "." : options.workingFolder.c_str();
  const pid_t parent = getpid();
  // Not fork: the kernel would copy the page tables of the sanitizers' shadow memory, which takes longer than
  // most of the programs. Until execve the child uses the memory of this process, and the thread that called
  // vfork waits. The child may change no variable except this one.
  const pid_t child = vfork();
  if (child < 0) throw LabError(SystemError("vfork"));
  if (child == 0) {
    if (options.outlivesOwner) {
      setsid();
    } else {
      setpgid(0, 0);
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      if (getppid() != parent) _exit(127);
    }
    // Otherwise one of about 8,000 starts of Debian's wine64 fails: Linux puts the heap anywhere in the
    // gigabyte after the program, sometimes onto the page at 0x7FFE0000, which Wine needs.
    personality(ADDR_NO_RANDOMIZE);
    signal(SIGPIPE, SIG_DFL);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(input.read, STDIN_FILENO);
    dup2(output.write, STDOUT_FILENO);
    dup2(options.errorsWithOutput ? output.write : nowhere, STDERR_FILENO);
    if (chdir(folder) != 0) _exit(127);
    execve(program.c_str(), argv.data(), envp.data());
    _exit(127);
  }
  id_ = child;
  // glibc 2.36 declares pidfd_open without C++ linkage.
  end_ = static_cast<int>(syscall(SYS_pidfd_open, id_, 0));
  if (end_ < 0) throw LabError(SystemError("pidfd_open"));
  input_ = std::exchange(input.write, -1);
  output_ = std::exchange(output.read, -1);
}

Process::~Process() {
  Close(input_);
  if (!exitCode_) {
    SignalGroup(SIGTERM);
    if (!Wait(std::chrono::seconds(2))) {
      SignalGroup(SIGKILL);
      Wait(std::chrono::seconds(5));
    }
  }
  Close(output_);
  Close(end_);
}

void Process::SignalGroup(int signal) {
  if (id_ > 1) kill(-id_, signal);
}

void Process::Write(const std::string& text) {
  for (size_t done = 0; done < text.size();) {
    const ssize_t count = write(input_, text.data() + done, text.size() - done);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) throw LabError(SystemError(name_ + " does not accept input"));
    done += static_cast<size_t>(count);
  }
}

void Process::CloseInput() { Close(input_); }

bool Process::ReadMore(Clock::time_point deadline) {
  while (true) {
    const auto left = std::chrono::duration_cast<milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) throw LabError(name_ + " does not answer in time");
    // A child of the program may keep the output open, so the program's own end counts too.
    const bool ended = Wait(milliseconds(0)).has_value();
    pollfd waiting[] = {{output_, POLLIN, 0}, {ended ? -1 : end_, POLLIN, 0}};
    poll(waiting, 2, ended ? 0 : static_cast<int>(left));
    if (waiting[0].revents == 0) {
      if (ended) return false;
      continue;
    }
    char bytes[4096];
    const ssize_t count = read(output_, bytes, sizeof bytes);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    buffer_.append(bytes, static_cast<size_t>(count));
    return true;
  }
}

std::string Process::ReadLine(milliseconds timeOut) {
  const auto deadline = Clock::now() + timeOut;
  size_t end = 0;
  while ((end = buffer_.find('\n')) == std::string::npos) {
    if (!ReadMore(deadline)) throw LabError(name_ + " has ended its output");
  }
  std::string line = buffer_.substr(0, end);
  buffer_.erase(0, end + 1);
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

std::string Process::ReadAll(milliseconds timeOut) {
  const auto deadline = Clock::now() + timeOut;
  while (ReadMore(deadline)) {
  }
  return std::exchange(buffer_, {});
}

std::optional<int> Process::Wait(milliseconds timeOut) {
  if (exitCode_) return exitCode_;
  pollfd waiting = {end_, POLLIN, 0};
  poll(&waiting, 1, static_cast<int>(timeOut.count()));
  int status = 0;
  if (waitpid(id_, &status, WNOHANG) == id_) {
    exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }
  return exitCode_;
}

Finished Run(const std::vector<std::string>& arguments, const Process::Options& options,
             const std::string& input, milliseconds timeOut) {
  Process::Options merged = options;
  merged.errorsWithOutput = true;
  Process process(arguments, merged);
  process.Write(input);
  process.CloseInput();
  Finished finished;
  finished.output = process.ReadAll(timeOut);
  const std::optional<int> code = process.Wait(timeOut);
  if (!code) throw LabError(arguments.at(0) + " does not end");
  finished.exitCode = *code;
  return finished;
}

void RunOrThrow(const std::vector<std::string>& arguments, const Process::Options& options,
                const std::string& input, milliseconds timeOut) {
  const Finished finished = Run(arguments, options, input, timeOut);
  if (finished.exitCode == 0) return;
  std::string command;
  for (const std::string& argument : arguments) command += argument + " ";
  throw LabError(command + "failed with " + std::to_string(finished.exitCode) + ": " + finished.output);
}

int OwnProcessId() { return getpid(); }

bool IsRoot() { return geteuid() == 0; }

std::string EnvironmentValue(const std::string& name) {
  const char* value = std::getenv(name.c_str());
  return value == nullptr ? std::string() : value;
}

void PauseBetweenPolls(milliseconds waited) {
  std::this_thread::sleep_for(std::clamp(waited / 10, milliseconds(20), milliseconds(50)));
}

FileLock::FileLock(const std::string& path) : file_(OpenLock(path)) {
  while (flock(file_, LOCK_EX) != 0) {
    if (errno == EINTR) continue;
    const std::string text = SystemError(path);
    Close(file_);
    throw LabError(text);
  }
}

std::unique_ptr<FileLock> FileLock::IfFree(const std::string& path) {
  std::unique_ptr<FileLock> lock(new FileLock(OpenLock(path)));
  if (flock(lock->file_, LOCK_EX | LOCK_NB) == 0) return lock;
  if (errno != EWOULDBLOCK) throw LabError(SystemError(path));
  return nullptr;
}

FileLock::~FileLock() { Close(file_); }

}  // namespace tarvik::lab
