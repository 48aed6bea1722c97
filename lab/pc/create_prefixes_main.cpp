// Creates the Wine prefixes of which all PCs are copies, so that no test has to.
//
//   create_prefixes CACHE

#include <cstdio>
#include <exception>

#include "lab/host/own_network.h"
#include "lab/pc/wine_prefix.h"

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) {
    std::fprintf(stderr, "usage: create_prefixes CACHE\n");
    return 2;
  }
  try {
    // So that no packet leaves this machine. Tests are skipped where that fails.
    if (const auto reason = tarvik::lab::MoveToPrivateNetwork()) {
      std::fprintf(stderr, "No Wine prefixes are created: %s\n", reason->c_str());
      return 1;
    }
    tarvik::lab::CreateMasterPrefixes(arguments[1]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
