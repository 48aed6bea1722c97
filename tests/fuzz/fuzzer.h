#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace tarvik::test {

/// The body of a fuzzer. Aborts when the code under test handles the input wrongly.
using FuzzerBody = void (*)(const uint8_t* data, size_t size);

/// Registers a body by name. One object per fuzzer, constructed before main.
struct RegisteredFuzzer {
  RegisteredFuzzer(const char* name, FuzzerBody body);
};

/// Aborts when the rule does not hold; libFuzzer then saves the input.
inline void Require(bool rule) {
  if (!rule) std::abort();
}

}  // namespace tarvik::test

/// Starts the definition of the fuzzer `name`; the parameters are `data` and `size`. Its corpus has that
/// name.
#define TARVIK_FUZZER(name)                                                           \
  static void Fuzz_##name(const uint8_t* data, size_t size);                          \
  static const tarvik::test::RegisteredFuzzer registered_##name(#name, &Fuzz_##name); \
  static void Fuzz_##name(const uint8_t* data, size_t size)
