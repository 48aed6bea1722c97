// Calls product code for a test, with Windows' own libraries. Reads one command per line and writes one
// answer per line, in the format of lab/pc/driver_protocol.h, until the input ends.
//
//   add_services <path> <name> <port> <protocol>  -> 1 or 0, the port, the texts of all message boxes
//   profile <path> <section> <key>               -> the value as Windows reads it, and as the program does
//   terminate                                     -> no answer: an exception that nobody handles
//   module_version <path>                         -> the version of the file, or nothing
//   ftp_connect <host> <user> <password>          -> 1 or 0
//   ftp_response                                  -> the server's last reply
//   ftp_get <remote file> <local file> <fail if it exists: 1 or 0>, ftp_put <local file> <remote file>,
//   ftp_delete <file>, ftp_rename <file> <new name>, ftp_make_dir <directory>, ftp_remove_dir <directory>,
//   ftp_set_dir <directory>                       -> 1 or 0
//   ftp_dir                                       -> the current remote directory
//   ftp_information <name>                        -> 1, name, size, 1 for a directory or 0; or only 0

#include <array>

#include <exception>

#include "app/process_protection_win32.h"
#include "ftp/ftp_client.h"
#include "ftp/wininet.h"
#include "k7/services_file_adding.h"
#include "lab/helpers/bench_caller/command_loop_win32.h"
#include "platform/code_page.h"
#include "platform/file_util.h"
#include "platform/files.h"
#include "platform/kernel_calls.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/version_library.h"
#include "platform/windows_win32.h"
#include "report/fmt_err_msg.h"

namespace tarvik::lab {
namespace {

std::wstring Wide(const std::string& text) {
  std::wstring wide(text.size(), L'\0');
  wide.resize(static_cast<size_t>(::MultiByteToWideChar(
      CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), static_cast<int>(wide.size()))));
  return wide;
}

std::string Utf8(const std::wstring& text) {
  std::string bytes(3 * text.size(), '\0');
  bytes.resize(static_cast<size_t>(::WideCharToMultiByte(CP_UTF8, 0, text.data(),
                                                         static_cast<int>(text.size()), bytes.data(),
                                                         static_cast<int>(bytes.size()), nullptr, nullptr)));
  return bytes;
}

Fields Verdict(bool passed) { return {passed ? "1" : "0"}; }

/// Records the texts of message boxes; answers "No" to questions.
class FakeMessageBoxes final : public report::MessageBoxes {
 public:
  void Show(const std::wstring& text, report::BoxIcon, const std::wstring&) override {
    texts.push_back(Utf8(text));
  }
  void ShowSystemModal(const std::wstring& text) override { texts.push_back(Utf8(text)); }
  bool AskYesNo(const std::wstring& text, bool, const std::wstring&) override {
    texts.push_back(Utf8(text));
    return false;
  }

  Fields texts;
};

Fields AddServices(const Fields& arguments) {
  const auto files = MakeFiles();
  const auto codePage = MakeCodePage();
  const auto kernel = MakeKernelCalls();
  FakeMessageBoxes boxes;
  FmtErrMsg errors(*kernel, *codePage, boxes);
  std::array<ServiceEntry, 1> entries;
  entries[0].Name = Wide(arguments.at(1));
  entries[0].PortNo = ParseInt32(Wide(arguments.at(2))).value_or(0);
  entries[0].Protocol = Wide(arguments.at(3));
  ServicesFileAdder adder(*files, *codePage, errors, boxes, Wide(arguments.at(0)));
  const bool done = adder.Add(entries, {2026, 11, 21, 9, 5});
  Fields answer = Verdict(done);
  answer.push_back(std::to_string(entries[0].PortNo));
  answer.insert(answer.end(), boxes.texts.begin(), boxes.texts.end());
  return answer;
}

Fields ReadProfile(const Fields& arguments) {
  const std::string &path = arguments.at(0), &section = arguments.at(1), &key = arguments.at(2);
  char windows[512] = {};
  ::GetPrivateProfileStringA(section.c_str(), key.c_str(), "", windows, sizeof windows, path.c_str());
  char program[512] = {};
  MakeSystem()->GetPrivateProfileStringA(section, key, program, sizeof program, Wide(path));
  return {windows, program};
}

Fields ModuleVersion(const Fields& arguments) {
  const auto kernel = MakeKernelCalls();
  const auto version = MakeVersionLibrary();
  FileUtil files(*kernel, *version);
  const auto text = files.mGetFileVersionInfoString(Wide(arguments.at(0)));
  return {text ? Utf8(*text) : std::string()};
}

void AddFtpCommands(std::map<std::string, Command>& commands, clsFtpClient& client) {
  commands["ftp_connect"] = [&client](const Fields& a) {
    return Verdict(client.Connect(Wide(a.at(0)), Wide(a.at(1)), Wide(a.at(2))));
  };
  commands["ftp_response"] = [&client](const Fields&) { return Fields{Utf8(client.Response())}; };
  commands["ftp_get"] = [&client](const Fields& a) {
    return Verdict(client.Get(Wide(a.at(0)), Wide(a.at(1)), a.at(2) == "1"));
  };
  commands["ftp_put"] = [&client](const Fields& a) {
    return Verdict(client.Put(Wide(a.at(0)), Wide(a.at(1))));
  };
  commands["ftp_delete"] = [&client](const Fields& a) { return Verdict(client.Delete(Wide(a.at(0)))); };
  commands["ftp_rename"] = [&client](const Fields& a) {
    return Verdict(client.Rename(Wide(a.at(0)), Wide(a.at(1))));
  };
  commands["ftp_make_dir"] = [&client](const Fields& a) { return Verdict(client.MakeDir(Wide(a.at(0)))); };
  commands["ftp_remove_dir"] = [&client](const Fields& a) {
    return Verdict(client.RemoveDir(Wide(a.at(0))));
  };
  commands["ftp_set_dir"] = [&client](const Fields& a) {
    return Verdict(client.SetCurrentDir(Wide(a.at(0))));
  };
  commands["ftp_dir"] = [&client](const Fields&) { return Fields{Utf8(client.CurrentDir())}; };
  commands["ftp_information"] = [&client](const Fields& a) {
    const std::optional<FtpFile> file = client.FileInformation(Wide(a.at(0)));
    if (!file) return Verdict(false);
    return Fields{"1", Utf8(file->FileName), std::to_string(file->Size),
                  (file->Attr & FtpFile::kDirectory) != 0 ? "1" : "0"};
  };
}

}  // namespace
}  // namespace tarvik::lab

int main() {
  using namespace tarvik;
  ProtectProcess();
  const auto wininet = MakeWininet();
  const auto codePage = MakeCodePage();
  clsFtpClient client(*wininet, *codePage);
  std::map<std::string, lab::Command> commands{
      {"add_services", lab::AddServices},
      {"profile", lab::ReadProfile},
      {"module_version", lab::ModuleVersion},
      {"terminate", [](const lab::Fields&) -> lab::Fields { std::terminate(); }}};
  lab::AddFtpCommands(commands, client);
  lab::AnswerCommands(commands);
}
