#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace tarvik::test {

/// A fuzzer's body: returns for every input that the code under test handles as it should, and aborts
/// otherwise.
using FuzzerBody = void (*)(const uint8_t* data, size_t size);

/// Makes a body known under its name; one object per fuzzer, made before main.
struct RegisteredFuzzer {
  RegisteredFuzzer(const char* name, FuzzerBody body);
};

/// Ends the fuzzer with its input when the rule does not hold.
inline void Demand(bool rule) {
  if (!rule) std::abort();
}

}  // namespace tarvik::test

/// Opens the body of the fuzzer `name`, whose arguments are `data` and `size`. Its corpus has the same name.
#define TARVIK_FUZZER(name)                                                           \
  static void Fuzz_##name(const uint8_t* data, size_t size);                          \
  static const tarvik::test::RegisteredFuzzer registered_##name(#name, &Fuzz_##name); \
  static void Fuzz_##name(const uint8_t* data, size_t size)
