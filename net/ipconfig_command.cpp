#include "net/ipconfig_command.h"

#include <optional>

#include "net/ipconfig_text.h"
#include "platform/text.h"

namespace tarvik {
namespace {

constexpr uint32_t kIpconfigPollIntervalMs = 500;
constexpr int kMaxIpconfigPolls = 11;

/// A temporary file, deleted on destruction.
class TemporaryFile {
 public:
  TemporaryFile(Files& files, std::wstring path) : files_(files), path_(std::move(path)) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (files_.Exists(path_)) files_.Delete(path_);
  }

  const std::wstring& Path() const { return path_; }

 private:
  Files& files_;
  std::wstring path_;
};

class QueriedProcess {
 public:
  QueriedProcess(Processes& processes, uint32_t processId)
      : processes_(processes), handle_(processes.OpenProcess(Processes::kQueryInformation, processId)) {}
  QueriedProcess(const QueriedProcess&) = delete;
  QueriedProcess& operator=(const QueriedProcess&) = delete;
  ~QueriedProcess() {
    if (handle_ != 0) processes_.CloseHandle(handle_);
  }

  bool HasFinished() {
    uint32_t code = 0;
    return handle_ != 0 && processes_.GetExitCodeProcess(handle_, code) && code == 0;
  }

 private:
  Processes& processes_;
  Processes::Handle handle_;
};

/// False when a stop is requested.
bool WaitForNextPoll(report::Pump& pump) {
  pump.LetEventsRun();
  pump.SleepUntil(kIpconfigPollIntervalMs, [&pump] { return pump.StopRequested(); });
  return !pump.StopRequested();
}

/// The path as text in a batch file, which the command interpreter reads in the OEM code page and in which a
/// single "%" would begin a variable.
std::string InBatchFile(CodePage& codePage, const std::wstring& path) {
  std::wstring doubled;
  for (const wchar_t character : path) doubled.append(character == L'%' ? 2 : 1, character);
  return codePage.ToOem(doubled);
}

bool WriteBatchFile(report::Pump& pump, const NetLibraries& libraries, const std::wstring& path,
                    const std::wstring& outputPath) {
  const std::string lines = "cd\\\r\nipconfig > \"" + InBatchFile(libraries.codePage, outputPath) + "\"\r\n";
  if (!libraries.files.Write(path, lines)) return false;
  while (!libraries.files.Exists(path))
    if (!WaitForNextPoll(pump)) return false;
  return true;
}

bool RunBatchFile(const report::CheckContext& context, const NetLibraries& libraries,
                  const std::wstring& path) {
  const uint32_t processId = libraries.processes.Shell(L"\"" + path + L"\"", StartWindow::Hidden, {});
  if (processId == 0) return false;
  {
    QueriedProcess process(libraries.processes, processId);
    for (int i = 0; i < kMaxIpconfigPolls; ++i) {
      if (!WaitForNextPoll(context.pump)) return false;
      if (process.HasFinished()) return true;
    }
  }
  context.boxes.Show(L"GetIPConfig:GetExitCodeProcess(tID=" + Decimal(processId) + L"), [" + path + L"]");
  return false;
}

}  // namespace

bool GetIPConfig(const report::CheckContext& context, const NetLibraries& libraries,
                 std::vector<LocalAddressRecord>& list) {
  list.clear();
  const std::wstring folder =
      libraries.programFolder.ends_with(L'\\') ? libraries.programFolder : libraries.programFolder + L"\\";
  const TemporaryFile output(libraries.files, folder + L"ipconfig.txt");
  const TemporaryFile batch(libraries.files, folder + L"ipconfig.bat");
  if (!WriteBatchFile(context.pump, libraries, batch.Path(), output.Path()) ||
      !RunBatchFile(context, libraries, batch.Path()))
    return false;
  const std::optional<std::string> text = libraries.files.Read(output.Path());
  if (!text) return false;
  list = ParseIpconfigText(*text);
  return true;
}

}  // namespace tarvik
