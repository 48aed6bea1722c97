// The inputs of start-up: command line, configuration library, WSAStartup's description, settings, language
// file, services file, decoded secrets.

#include <fuzzer/FuzzedDataProvider.h>

#include "tests/fuzz/fuzzer.h"
#include "tests/fuzz/whole_program.h"

namespace {

std::wstring Wide(const std::string& bytes) {
  std::wstring text;
  for (const char byte : bytes) text.push_back(static_cast<unsigned char>(byte));
  return text;
}

template <size_t size>
void Fill(FuzzedDataProvider& input, char (&field)[size]) {
  const std::string bytes = input.ConsumeRandomLengthString(size);
  std::fill_n(field, size, 'x');
  bytes.copy(field, size);
}

}  // namespace

TARVIK_FUZZER(app_start_up) {
  using namespace tarvik;
  FuzzedDataProvider input(data, size);
  const std::wstring commandLine = L" " + Wide(input.ConsumeRandomLengthString(400));
  test::WholeProgram program;
  const bool family = input.ConsumeBool();
  program.configuration.available = input.ConsumeBool();
  program.configuration.language =
      input.PickValueInArray<int32_t>({1033, 1041, input.ConsumeIntegral<int32_t>()});
  if (input.ConsumeBool()) program.configuration.folder = input.ConsumeRandomLengthString(511);
  program.configuration.terminated = program.configuration.folder.size() < 511 && input.ConsumeBool();
  program.configuration.folderResult = input.ConsumeIntegralInRange(0, 1);
  if (input.ConsumeBool()) {
    Fill(input, program.winsock.data.szDescription);
    Fill(input, program.winsock.data.szSystemStatus);
  }
  program.winsock.data.iMaxSockets = input.ConsumeIntegral<uint16_t>();
  program.winsock.data.iMaxUdpDg = input.ConsumeIntegral<uint16_t>();
  program.icmp.createResult = input.ConsumeIntegralInRange(0, 1);
  program.txCodec.output = input.ConsumeRandomLengthString(64);
  program.txCodec.missing = input.ConsumeBool();
  program.files.contents[test::WholeProgram::kServicesFile] = input.ConsumeRandomLengthString(300);
  for (int i = input.ConsumeIntegralInRange(0, 11); i > 0; --i)
    program.settings.values[L"History\\" + ZeroPadded(i, 2)] = Wide(input.ConsumeRandomLengthString(80));
  for (int i = input.ConsumeIntegralInRange(0, 8); i > 0; --i)
    program.AddString(1033, input.ConsumeIntegralInRange(1, 170), input.ConsumeRandomLengthString(80));
  if (input.ConsumeBool()) program.kernel.paths.erase("NxLib32.dll");
  if (input.ConsumeBool()) program.kernel.paths.erase("Wininet.dll");
  // A host on the command line starts a run, which the user stops.
  int rounds = 0;
  program.onEvents = [&] {
    if (++rounds > 40 && program.flags.busy) program.Button(ID_cmdPing).Click();
  };
  program.Start(commandLine, family);
  test::Require(program.Address().Count() <= 11);
  test::Require(program.List().Count() <= 1001);
  program.End();
}
