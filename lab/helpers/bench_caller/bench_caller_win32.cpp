// Calls the bench's libraries for a test. Reads one command per line and writes one answer per line, in the
// format of lab/pc/driver_protocol.h, until the input ends.
//
//   set <variable> <value>      sets an environment variable, which the stand-ins in this process read
//   version <library>           -> "FileVersion" and "FileDescription" of its version resource
//   exports <library> <name>    -> 1 if it exports the name, otherwise 0
//   <call> <arguments>          -> result, then the output parameters; see libraries_win32.cpp

#include "lab/helpers/bench_caller/bench_caller_win32.h"

namespace tarvik::lab {
namespace {

std::string VersionText(const std::vector<char>& block, const char* name) {
  void* text = nullptr;
  UINT length = 0;
  const std::string path = std::string("\\StringFileInfo\\040904B0\\") + name;
  return ::VerQueryValueA(block.data(), path.c_str(), &text, &length) ? static_cast<const char*>(text) : "";
}

Fields Version(const Fields& arguments) {
  DWORD ignored = 0;
  std::vector<char> block(::GetFileVersionInfoSizeA(arguments.at(0).c_str(), &ignored));
  if (block.empty() ||
      !::GetFileVersionInfoA(arguments[0].c_str(), 0, static_cast<DWORD>(block.size()), block.data())) {
    throw std::runtime_error("no version resource");
  }
  return {VersionText(block, "FileVersion"), VersionText(block, "FileDescription")};
}

Fields Exports(const Fields& arguments) {
  const HMODULE module = ::LoadLibraryA(arguments.at(0).c_str());
  if (module == nullptr) throw std::runtime_error("cannot be loaded");
  return {::GetProcAddress(module, arguments.at(1).c_str()) != nullptr ? "1" : "0"};
}

Fields Set(const Fields& arguments) {
  ::SetEnvironmentVariableA(arguments.at(0).c_str(), arguments.at(1).c_str());
  return {};
}

void Run() {
  std::map<std::string, Command> commands = LibraryCommands();
  commands["version"] = Version;
  commands["exports"] = Exports;
  commands["set"] = Set;
  AnswerCommands(commands);
}

}  // namespace
}  // namespace tarvik::lab

int main() { tarvik::lab::Run(); }
