// All fuzzers are one program, because each would have to compile and link the whole product. "--fuzzer=NAME"
// selects one; libFuzzer ignores options with two dashes and passes them on to its child processes.

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>

#include "tests/fuzz/fuzzer.h"

namespace tarvik::test {
namespace {

std::map<std::string, FuzzerBody>& Fuzzers() {
  static std::map<std::string, FuzzerBody> fuzzers;
  return fuzzers;
}

FuzzerBody selectedFuzzer = nullptr;

}  // namespace

RegisteredFuzzer::RegisteredFuzzer(const char* name, FuzzerBody body) { Fuzzers()[name] = body; }

}  // namespace tarvik::test

extern "C" int LLVMFuzzerInitialize(int* count, char*** arguments) {
  using namespace tarvik::test;
  constexpr std::string_view kOption = "--fuzzer=";
  for (int i = 1; i < *count; ++i) {
    const std::string_view argument = (*arguments)[i];
    if (!argument.starts_with(kOption)) continue;
    const auto found = Fuzzers().find(std::string(argument.substr(kOption.size())));
    if (found != Fuzzers().end()) selectedFuzzer = found->second;
  }
  if (selectedFuzzer != nullptr) return 0;
  std::printf("Select one with --fuzzer=NAME:\n");
  for (const auto& [name, body] : Fuzzers()) std::printf("  %s\n", name.c_str());
  std::exit(1);
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  tarvik::test::selectedFuzzer(data, size);
  return 0;
}
