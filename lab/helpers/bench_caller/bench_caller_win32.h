#pragma once

#include <bit>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>

#include "lab/helpers/bench_caller/command_loop_win32.h"
#include "platform/windows_win32.h"

namespace tarvik::lab {

/// The commands that call the bench's libraries, by call name. The first field of each answer is the result.
std::map<std::string, Command> LibraryCommands();

/// The field as a number, decimal or hexadecimal. Throws when it is missing or not a number.
inline int32_t Number(const Fields& fields, size_t index) {
  return static_cast<int32_t>(std::stoll(fields.at(index), nullptr, 0));
}

/// The exported function of the library, which is loaded on first use and never unloaded. Throws
/// runtime_error when either does not exist.
template <typename Function>
Function* Find(const char* library, const char* name) {
  const HMODULE module = ::LoadLibraryA(library);
  if (module == nullptr) throw std::runtime_error(std::string(library) + " cannot be loaded");
  const FARPROC found = ::GetProcAddress(module, name);
  if (found == nullptr) throw std::runtime_error(std::string(library) + " does not export " + name);
  return std::bit_cast<Function*>(found);
}

}  // namespace tarvik::lab
